"""What a failing script looks like: the third stacking velocity drops faster than any rock allows, and Dix's formula says so.

    strativo run examples/scripts/error_example.py

prints a traceback that names the line below and leaves with status 1.
"""

import math

# two-way time (s), stacking velocity (m/s)
PICKS = [(0.40, 1800.0), (0.80, 2150.0), (0.95, 1500.0)]


def interval_velocity(t1, v1, t2, v2):
    """Dix (1955): root of the difference of t v^2 over the difference of t."""
    return math.sqrt((t2 * v2**2 - t1 * v1**2) / (t2 - t1))


for (t1, v1), (t2, v2) in zip(PICKS, PICKS[1:]):
    print(f"{t1:.2f} s to {t2:.2f} s: {interval_velocity(t1, v1, t2, v2):.0f} m/s")
