"""Images and point conversion: single pixels against a hand-written C type, whole images against NumPy."""
import harness

import image_ctype
import numpy as np
import strativo_python as sp
from strativo_python import ScanOrientation, utils

bench = harness.Bench("Pixels", reference="C type", subject="strativo_python", limit=1.3)
spaces = {"strativo_python": {"i": sp.Image2d(64, 48)}, "C type": {"i": image_ctype.Image2d(64, 48)},
          "NumPy": {"i": np.zeros((64, 48), np.float32)}}
for statement in ("i[3, 4]", "i[3, 4] = 1.5"):
    bench.case(statement, {who: (statement, space) for who, space in spaces.items()})
for statement in ("i.getValue(3, 4)", "i.setValue(3, 4, 1.5)", "i.width"):
    bench.case(statement, {who: (statement, spaces[who]) for who in ("strativo_python", "C type")})
cube = {"i": sp.Image3d(16, 16, 16), "p": sp.vec3(1, 2, 3), "b": sp.BlockSpace(9, 9, 9), "f": utils.blockToSurvey}
for statement in ("i[3, 4, 5]", "i.getValue(3, 4, 5)", "f(p, b)", "f(1.0, 2.0, 3.0, b)"):
    bench.case(statement, {"strativo_python": (statement, cube)})
pixels = bench.too_slow
bench.too_slow = []
bench.finish("The C type has no frames of three dimensions and no points.")

# Whole images: 4096 x 4096 pixels, a cube of 256 x 256 x 256, a million points.
side, edge, count = 4096, 256, 1000000
numbers = np.random.default_rng(3).normal(size=(side, side)).astype(np.float32)
image = sp.Image2d(side, side)
image.fill(numbers)
voxels = np.random.default_rng(4).normal(size=(edge, edge, edge)).astype(np.float32)
volume = sp.Image3d(edge, edge, edge)
volume.fill(voxels)
space = sp.BlockSpace(edge, edge, edge)
space.setWorldSpace(sp.vec3(4e5, 6e6, 0), sp.vec3(4.1e5, 6.002e6, 0), sp.vec3(3.98e5, 6.01e6, 0), sp.vec3(4e5, 6e6, 900))
points = np.random.default_rng(5).uniform(0, edge, (count, 3))
array = sp.Vec3Array()
array.extend(points)
matrix = np.array([[space.fromBlockToWorld[r][c] for c in range(4)] for r in range(4)])
map_numbers = numbers[:1000, :1000].copy()
map_image = sp.Image2d(1000, 1000)
map_image.fill(map_numbers)
own = {"i": image, "m": map_image, "n": numbers, "w": numbers.astype(np.float64), "s": numbers[:, ::-1], "v": volume, "a": array,
       "b": space, "u": utils, "o": (ScanOrientation.Inline, ScanOrientation.Crossline, ScanOrientation.Timeslice)}
other = {"t": np.empty_like(numbers), "n": numbers, "w": own["w"], "s": own["s"], "v": voxels, "np": np, "p": points,
         "m": matrix, "k": map_numbers}

whole = harness.Bench("Whole images", reference="NumPy", subject="strativo_python", limit=1.3, rounds=25)
for name, ours, theirs in (
        ("fill from float32", "i.fill(n)", "np.copyto(t, n)"),
        ("fill from float64", "i.fill(w)", "np.copyto(t, w, casting='unsafe')"),
        ("fill from a reversed view", "i.fill(s)", "np.copyto(t, s)"),
        ("mean", "i.average()", "n.mean(dtype=np.float64)"),
        ("mean, deviation, least, largest", "i.average(), i.standardDeviation(), i.minValue, i.maxValue",
         "n.mean(), n.std(), n.min(), n.max()"),
        ("the same four, 1000 x 1000", "m.average(), m.standardDeviation(), m.minValue, m.maxValue",
         "k.mean(), k.std(), k.min(), k.max()"),
        ("transposed copy", "i.transpose()", "np.ascontiguousarray(n.T)"),
        ("inline frame", "v.getImage(o[0], 99)", "v[:, 99, :].copy()"),
        ("crossline frame", "v.getImage(o[1], 99)", "v[:, :, 99].copy()"),
        ("time slice", "v.getImage(o[2], 99)", "v[99].copy()"),
        ("1,000,000 points to the world", "u.blockToWorld(a, b)", "p @ m[:3, :3].T + m[:3, 3]")):
    whole.case(name, {"strativo_python": (ours, own), "NumPy": (theirs, other)}, once=True)
whole.too_slow += pixels
whole.finish("Images of %d x %d, a cube of %d x %d x %d. The mean counts the pixels that hold a value; NumPy's counts all. "
             "The four statistics are four passes."
             % (side, side, edge, edge, edge))
