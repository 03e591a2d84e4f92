"""SEG-Y in, a band-pass filter with NumPy, SEG-Y out; volumes may be larger than memory.

    strativo run examples/scripts/segy_filter.py [IN.segy [OUT.segy]]

Without an input a small noisy survey is made first. With a project (strativo run --project DIR ...) both volumes stay
there; else they are kept in a temporary folder while the script runs.
"""
import pathlib
import sys
import tempfile

import numpy as np
from strativo_python import BlockSpace, ObjectId, SeismicVolume, getProject, hasProject, segy, vec3

LOW, HIGH = 8.0, 60.0  # Hz
scratch = tempfile.TemporaryDirectory()


def new_file(name):
    if hasProject():
        return getProject().getNewFilename(ObjectId.Volume, name)
    return str(pathlib.Path(scratch.name) / (name + ".svol"))


# %% A survey of 40 inlines and 50 crosslines: dipping reflections of 30 Hz, and noise of all frequencies
def synthetic(path):
    volume = SeismicVolume()
    space = BlockSpace(50, 40, 200)
    space.setSurveySpace(300.0, 349.0, 100.0, 139.0, 1000.0, 1796.0)
    space.setWorldSpace(vec3(431000, 6474000, 1000), vec3(432225, 6474000, 1000), vec3(431000, 6474975, 1000),
                        vec3(431000, 6474000, 1796))
    volume.blockSpace = space
    if not volume.createFile(new_file("Synthetic")):
        raise SystemExit("the synthetic volume cannot be written")
    inline, crossline, time = np.ogrid[:40, :50, 1000:1800:4]
    noise = np.random.default_rng(7)
    for piece in volume.pieces(inlines=10):
        lines = inline[piece.region]
        phase = 2 * np.pi * 0.030 * (time - 0.8 * lines - 0.5 * crossline)
        piece.write(np.cos(phase) * np.sin(phase / 9) + noise.normal(0, 0.5, piece.array.shape))
    if not segy.Exporter().export(path, volume):
        raise SystemExit(f"{path} cannot be written")


source = sys.argv[1] if len(sys.argv) > 1 else ""
if not source:
    source = str(pathlib.Path(scratch.name) / "noisy.segy")
    synthetic(source)
target = sys.argv[2] if len(sys.argv) > 2 else str(pathlib.Path(scratch.name) / "filtered.segy")

# %% Import: what was found and assumed stands in the history
recorded = segy.importVolume(source, new_file("Recorded"))
print(f"{recorded.name}: {recorded.shape[0]} inlines, {recorded.shape[1]} crosslines, {recorded.shape[2]} samples every "
      f"{recorded.sampleInterval:g} ms")
for when, what in recorded.history:
    print(" ", what.split("\n")[0])

# %% The filter: cosine flanks of a third of an octave on the spectrum of each trace
frequencies = np.fft.rfftfreq(recorded.shape[2], recorded.sampleInterval / 1000)
octaves = np.log2(np.maximum(frequencies, 1e-3))
flanks = np.clip((octaves - np.log2(LOW)) * 3, 0, 1) * np.clip((np.log2(HIGH) - octaves) * 3, 0, 1)
response = np.sin(flanks * np.pi / 2) ** 2

filtered = SeismicVolume()
filtered.blockSpace = recorded.blockSpace
filtered.crs, filtered.domain, filtered.verticalUnit = recorded.crs, recorded.domain, recorded.verticalUnit
filtered.note(f"{recorded.name}, {LOW:g} to {HIGH:g} Hz")
if not filtered.createFile(new_file("Filtered")):
    raise SystemExit("the filtered volume cannot be written")
for piece in recorded.pieces():
    empty = piece.array == recorded.noValue
    traces = np.fft.irfft(np.fft.rfft(np.where(empty, 0, piece.array)) * response, n=recorded.shape[2])
    piece.write(np.where(empty, recorded.noValue, traces), to=filtered)

# %% How much of it is left, and the file
filtered.flush()
before, after = recorded.statistics.standardDeviation, filtered.makeStatistics().standardDeviation
print(f"standard deviation {before:.3f} before, {after:.3f} after")
if not segy.Exporter().export(target, filtered):
    raise SystemExit(f"{target} cannot be written")
print("exported", target)
