"""A synthetic seismogram from sonic and density, for a first look at a well tie.

Sonic is in microseconds per foot, density in g/cm3, depth in metres, times are two-way times in milliseconds. The
reflectivity is that of normal incidence; the wavelet is N. Ricker's, Geophysics 18 (1953), 10-40.
"""
import math

MICROSECONDS_PER_FOOT = 0.3048e6
SAMPLE_MS = 2.0


def read_columns(text):
    """Rows of depth, sonic, density; rows with a null value (-999.25 or below zero) are left out."""
    rows = []
    for line in text.splitlines():
        fields = line.split("#")[0].split()
        try:
            depth, sonic, density = (float(field) for field in fields[:3])
        except ValueError:
            continue
        if sonic > 0 and density > 0:
            rows.append((depth, sonic, density))
    if len(rows) < 3:
        raise ValueError("at least three lines of depth, sonic and density are needed")
    if any(b[0] <= a[0] for a, b in zip(rows, rows[1:])):
        raise ValueError("depths must increase")
    return rows


def impedance_in_time(rows):
    """Acoustic impedance (m/s g/cm3) every SAMPLE_MS from the first row on."""
    time, edges = 0.0, []
    for (depth, sonic, density), below in zip(rows, rows[1:]):
        velocity = MICROSECONDS_PER_FOOT / sonic
        time += 2000.0 * (below[0] - depth) / velocity
        edges.append((time, velocity * density))
    samples, layer = [], 0
    for i in range(int(time / SAMPLE_MS)):
        while edges[layer][0] < i * SAMPLE_MS:
            layer += 1
        samples.append(edges[layer][1])
    return samples


def reflectivity(impedance):
    return [(b - a) / (b + a) for a, b in zip(impedance, impedance[1:])]


def ricker(frequency):
    half = math.ceil(1000.0 / frequency / SAMPLE_MS)
    phases = ((math.pi * frequency * i * SAMPLE_MS / 1000.0) ** 2 for i in range(-half, half + 1))
    return [(1 - 2 * p) * math.exp(-p) for p in phases]


def convolve(series, wavelet):
    half = len(wavelet) // 2
    return [sum(wavelet[half + i - j] * series[j] for j in range(max(0, i - half), min(len(series), i + half + 1)))
            for i in range(len(series))]


def draw(synthetic, width=60):
    """Wiggles in text: one line per sample, positive to the right."""
    scale = max((abs(value) for value in synthetic), default=0) or 1.0
    lines = ["two-way time below the first sample in ms; sample interval %g ms" % SAMPLE_MS]
    for i, value in enumerate(synthetic):
        row = [" "] * (width + 1)
        row[width // 2] = "|"
        row[round((value / scale + 1) * width / 2)] = "*"
        lines.append("%7.1f  %s" % (i * SAMPLE_MS, "".join(row).rstrip()))
    return "\n".join(lines) + "\n"


def synthetic(text, frequency=30.0):
    return convolve(reflectivity(impedance_in_time(read_columns(text))), ricker(frequency))
