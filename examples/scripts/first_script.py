"""A synthetic seismogram from a small velocity and density log.

Run it in the script editor with Execute, or in a terminal:

    strativo run examples/scripts/first_script.py [FREQUENCY_IN_HZ]
"""

import math
import sys

SAMPLE_INTERVAL = 0.004  # seconds
TRACE_LENGTH = 0.340  # seconds of two-way time below the top of the log

# name, thickness (m), P-wave velocity (m/s), density (g/cm3)
LOG = [
    ("Shale", 90.0, 2450.0, 2.30),
    ("Gas sand", 28.0, 2150.0, 1.95),
    ("Brine sand", 60.0, 2600.0, 2.18),
    ("Marl", 75.0, 2900.0, 2.38),
    ("Limestone", 120.0, 4300.0, 2.60),
    ("Shale", 100.0, 2950.0, 2.42),
]


def ricker(frequency, time):
    """Ricker wavelet of unit amplitude; frequency in Hz, time in seconds from its peak."""
    a = (math.pi * frequency * time) ** 2
    return (1.0 - 2.0 * a) * math.exp(-a)


def reflectors(log):
    """(two-way time, reflection coefficient, label) of each interface at normal incidence."""
    time = 0.0
    for (upper, thickness, v1, rho1), (lower, _, v2, rho2) in zip(log, log[1:]):
        time += 2.0 * thickness / v1
        yield time, (rho2 * v2 - rho1 * v1) / (rho2 * v2 + rho1 * v1), f"{upper} / {lower}"


def synthetic_trace(interfaces, frequency):
    """Sum of one wavelet per interface, free of noise and multiples."""
    count = round(TRACE_LENGTH / SAMPLE_INTERVAL)
    return [
        sum(coefficient * ricker(frequency, i * SAMPLE_INTERVAL - time) for time, coefficient, _ in interfaces)
        for i in range(count)
    ]


def draw(trace, half_width=30):
    """The trace as text, time downwards, positive amplitudes to the right and filled."""
    scale = half_width / max(abs(value) for value in trace)
    for i, value in enumerate(trace):
        offset = round(value * scale)
        left = "*".rjust(half_width + offset + 1) if offset < 0 else " " * half_width
        right = "#" * offset
        row = (left.ljust(half_width) + "|" + right).rstrip()
        print(f"{i * SAMPLE_INTERVAL * 1000:5.0f} ms {row}")


frequency = float(sys.argv[1]) if len(sys.argv) > 1 else 30.0
interfaces = list(reflectors(LOG))

print(f"Ricker wavelet of {frequency:g} Hz, {len(interfaces)} interfaces")
for time, coefficient, label in interfaces:
    print(f"{time * 1000:7.1f} ms  {coefficient:+.3f}  {label}")
print()

draw(synthetic_trace(interfaces, frequency))
