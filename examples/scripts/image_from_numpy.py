"""A horizon from NumPy: build a map, load it into an Image2d, measure it, save a picture of it.

    strativo run examples/scripts/image_from_numpy.py [picture.png]

Without an argument the picture is image_from_numpy.png in the current folder.
"""
import struct
import sys
import zlib

import numpy as np
from strativo_python import NO_VALUE, BlockSpace, Image2d, utils, vec3

# %% A synthetic horizon: times in milliseconds on a grid of 480 crosslines and 320 inlines
width, height = 480, 320
x, y = np.meshgrid(np.arange(width), np.arange(height))
times = 1800 + 0.15 * x + 0.08 * y
times -= 140 * np.exp(-(((x - 210) / 90) ** 2 + ((y - 150) / 70) ** 2))

# A normal fault: the block to the right of it lies 45 ms deeper, and nothing was picked in the gap between the two.
beyond_fault = x - (300 + 0.25 * y + 12 * np.sin(y / 35))
times[beyond_fault > 0] += 45
times[np.abs(beyond_fault) < 3] = NO_VALUE

# %% Into the application's image: fill() takes any numbers and makes 32-bit floats of them
horizon = Image2d(width, height, name="Top reservoir")
horizon.fill(times)
print(horizon)

# %% Statistics leave the pixels without value out
print(f"picked from {horizon.minValue:.0f} to {horizon.maxValue:.0f} ms, on average {horizon.average():.1f} ms, "
      f"deviation {horizon.standardDeviation():.1f} ms")

# %% Where is the crest? A NumPy array over the image's own pixels: pixels[y, x] is horizon[x, y]
pixels = np.asarray(horizon)
picked = pixels != NO_VALUE
crest_y, crest_x = np.unravel_index(np.where(picked, pixels, np.inf).argmin(), pixels.shape)
crest_x, crest_y = int(crest_x), int(crest_y)
print(f"crest at crossline {crest_x}, inline {crest_y}: {horizon[crest_x, crest_y]:.1f} ms")

# %% The same place on the map: cells of 25 m, the survey turned by 30 degrees
space = BlockSpace(width, height, 1)
right = np.array([np.cos(np.pi / 6), np.sin(np.pi / 6)]) * 25
down = np.array([-right[1], right[0]])
origin = np.array([431000.0, 6474000.0])
space.setWorldSpace(vec3(*origin, 0), vec3(*(origin + right * (width - 1)), 0), vec3(*(origin + down * (height - 1)), 0),
                    vec3(*origin, 1))
crest = utils.blockToWorld(vec3(crest_x, crest_y, 0), space)
print(f"that is x = {crest.x:.0f} m, y = {crest.y:.0f} m")

# %% An attribute: amplitudes fall with the distance from the crest; normalised to mean 0 and deviation 1, in place
noise = np.random.default_rng(7).normal(0, 0.15, times.shape)
amplitudes = Image2d(width, height, name="Amplitude, normalised")
strength = np.exp((horizon.minValue - np.where(picked, pixels, 0)) / 120)
amplitudes.fill(np.where(picked, strength + noise, NO_VALUE))
values = np.asarray(amplitudes)
values[picked] = (values[picked] - amplitudes.average()) / amplitudes.standardDeviation()
print(f"{amplitudes.name}: mean {amplitudes.average():.3f}, deviation {amplitudes.standardDeviation():.3f}")


# %% A picture: colours from deep (blue) to shallow (red), shaded as if lit from the upper left
def colours(data, valid):
    ramp = np.array([[38, 70, 130], [60, 150, 190], [240, 235, 200], [235, 140, 70], [150, 30, 40]], float)
    low, high = np.percentile(data[valid], (1, 99))
    place = np.clip((data - low) / (high - low), 0, 1) * (len(ramp) - 1)
    below = np.minimum(place.astype(int), len(ramp) - 2)
    part = (place - below)[..., None]
    return ramp[below] * (1 - part) + ramp[below + 1] * part


def shade(data, valid):
    slope_y, slope_x = np.gradient(np.where(valid, data, data[valid].mean()))
    return np.clip(1 - 0.25 * (slope_x + slope_y), 0.6, 1.25)[..., None]


def save_png(path, rgb):
    """An array of shape (height, width, 3) of bytes as a PNG file (https://www.w3.org/TR/png/)."""

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows, columns, _ = rgb.shape
    lines = np.concatenate([np.zeros((rows, 1), np.uint8), rgb.reshape(rows, -1)], axis=1)  # 0: lines without a filter
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", columns, rows, 8, 2, 0, 0, 0))
                   + chunk(b"IDAT", zlib.compress(lines.tobytes(), 9)) + chunk(b"IEND", b""))


def picture(data, lit):
    rgb = colours(data, picked) * lit
    rgb[~picked] = (60, 60, 60)
    return np.clip(rgb, 0, 255).astype(np.uint8)


path = sys.argv[1] if len(sys.argv) > 1 else "image_from_numpy.png"
save_png(path, np.concatenate([picture(-pixels, shade(pixels, picked)), picture(values, 1)], axis=1))
print("saved", path)
