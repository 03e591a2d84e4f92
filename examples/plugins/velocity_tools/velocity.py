"""Interval, average and RMS velocities of a layered earth.

Times are two-way times in milliseconds, increasing; velocities are in metres per second. A velocity belongs to the
layer that ends at its time. The inversion is C. H. Dix, "Seismic velocities from surface measurements", Geophysics 20
(1955), 68-86.
"""
import math


def check_times(times, velocities):
    if len(times) != len(velocities) or not times:
        raise ValueError("as many velocities as times are needed, and at least one")
    for before, time in zip([0.0] + times, times):
        if not time > before:
            raise ValueError("times must be positive and increase, but %g follows %g" % (time, before))
    for velocity in velocities:
        if not (velocity > 0 and math.isfinite(velocity)):
            raise ValueError("velocities must be positive, but one is %g" % velocity)


def rms_from_interval(times, interval):
    check_times(times, interval)
    squares, before, rms = 0.0, 0.0, []
    for time, velocity in zip(times, interval):
        squares += velocity ** 2 * (time - before)
        before = time
        rms.append(math.sqrt(squares / time))
    return rms


def interval_from_rms(times, rms):
    check_times(times, rms)
    interval, before, squares_before = [], 0.0, 0.0
    for time, velocity in zip(times, rms):
        squares = velocity ** 2 * time
        if squares <= squares_before:
            raise ValueError("the RMS velocity falls too fast before %g ms: no interval velocity explains it" % time)
        interval.append(math.sqrt((squares - squares_before) / (time - before)))
        before, squares_before = time, squares
    return interval


def average_from_interval(times, interval):
    check_times(times, interval)
    path, before, average = 0.0, 0.0, []
    for time, velocity in zip(times, interval):
        path += velocity * (time - before)
        before = time
        average.append(path / time)
    return average


def parse_table(text):
    """Two columns, time and velocity, separated by blanks, commas or semicolons; '#' begins a comment."""
    times, velocities = [], []
    for number, line in enumerate(text.splitlines(), 1):
        fields = line.split("#")[0].replace(",", " ").replace(";", " ").split()
        if not fields:
            continue
        try:
            time, velocity = (float(field) for field in fields[:2])
        except ValueError:
            raise ValueError("line %d has no time and velocity: %s" % (number, line.strip())) from None
        times.append(time)
        velocities.append(velocity)
    check_times(times, velocities)
    return times, velocities


def format_table(times, **columns):
    lines = ["# time_ms " + " ".join("%12s" % name for name in columns)]
    for row in zip(times, *columns.values()):
        lines.append("%9.1f " % row[0] + " ".join("%12.1f" % value for value in row[1:]))
    return "\n".join(lines) + "\n"
