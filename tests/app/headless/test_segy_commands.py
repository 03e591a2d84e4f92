"""`strativo import` and `strativo export segy` beside segyio, an independent reader and writer of SEG-Y."""
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import numpy as np
import segyio

PROGRAM = os.path.abspath(sys.argv.pop(1))
# Files that other programs wrote; they are not part of the sources.
FOREIGN = os.environ.get("STRATIVO_FOREIGN_SEGY", "")


def strativo(*words, **options):
    return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True, timeout=120, **options)


def make(path, format=1, ilines=range(10, 30, 2), xlines=range(100, 107), samples=25):
    """A survey with coordinates, written by segyio."""
    spec = segyio.spec()
    spec.format, spec.sorting = format, 2
    spec.iline, spec.xline = 189, 193
    spec.samples = np.arange(samples) * 4.0
    spec.ilines, spec.xlines = np.array(ilines), np.array(xlines)
    cube = np.random.default_rng(5).normal(0, 1000, (len(ilines), len(xlines), samples)).astype("f4")
    if format == 1:  # what such a number can hold, so that nothing is rounded
        cube = np.round(cube)
    with segyio.create(str(path), spec) as file:
        for i, iline in enumerate(ilines):
            for j, xline in enumerate(xlines):
                trace = i * len(xlines) + j
                file.header[trace] = {189: iline, 193: xline, 71: -100, 115: samples, 117: 4000,
                                      181: 50000000 + 2500 * j, 185: 600000000 + 1250 * i}
                file.trace[trace] = cube[i, j]
        file.bin.update(hdt=4000)
    return cube


class Commands(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="strativo-segy-"))

    def test_samples_and_headers_go_through_unchanged(self):
        for format in (1, 5):
            source, target = self.folder / f"in{format}.sgy", self.folder / f"out{format}.sgy"
            cube = make(source, format)
            result = strativo("import", source, "--as", self.folder / f"{format}.svol")
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertIn("Inlines      10 to 28 by 2 (10)", result.stdout)
            self.assertIn("Assumed", result.stdout)
            result = strativo("export", "segy", "--format", "ibm" if format == 1 else "ieee", self.folder / f"{format}.svol", target)
            self.assertEqual(result.returncode, 0, result.stderr)
            with segyio.open(str(target)) as file, segyio.open(str(source)) as before:
                np.testing.assert_array_equal(segyio.tools.cube(file), cube)
                self.assertEqual(file.bin[3225], format)
                np.testing.assert_array_equal(file.samples, before.samples)
                for field in (71, 115, 117, 181, 185, 189, 193):
                    np.testing.assert_array_equal(file.attributes(field)[:], before.attributes(field)[:], str(field))
                np.testing.assert_array_equal(file.attributes(21)[:], before.attributes(193)[:])
                self.assertIn("INLINES:    10 TO 28 BY 2 (10)", file.text[0].decode())

    def test_a_project_takes_the_volume_and_gives_it_back(self):
        make(self.folder / "in.sgy")
        result = strativo("import", self.folder / "in.sgy", "--project", self.folder / "project", "--as", "Amplitude",
                          "--inlines", "12-20/2", "--crs", "EPSG:32631")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertTrue((self.folder / "project/volumes/Amplitude.svol").is_file())
        again = strativo("import", self.folder / "in.sgy", "--project", self.folder / "project", "--as", "Amplitude")
        self.assertEqual((again.returncode, again.stderr.count("exists already")), (1, 1))
        result = strativo("export", "segy", "--project", self.folder / "project", "Amplitude", self.folder / "out.sgy", "--text", "ascii")
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(self.folder / "out.sgy", "rb") as file:
            text = file.read(3200).decode("ascii")
        self.assertIn("EPSG:32631", text)
        self.assertIn("INLINES:    12 TO 20 BY 4 (3)", text)
        result = strativo("export", "segy", "--project", self.folder / "project", "Amplitude", self.folder / "out.sgy")
        self.assertEqual(result.returncode, 1)
        self.assertIn("exists already", result.stderr)

    def test_wrong_words_and_files_give_a_sentence_and_a_status(self):
        (self.folder / "text.txt").write_text("no seismic " * 1000)
        for words, status, part in [
            (("import",), 2, "usage"),
            (("import", "a", "b"), 2, "usage"),
            (("import", "--inline-byte", "260", "a"), 2, "--inline-byte 260 cannot be understood"),
            (("import", "--inlines", "5-x", "a"), 2, "--inlines 5-x"),
            (("import", "--crs", "EPSG:0", "a"), 2, "--crs EPSG:0"),
            (("import", "--nonsense", "a"), 2, "nonsense"),
            (("import", self.folder / "text.txt"), 1, "names the sample format"),
            (("import", self.folder / "none.sgy"), 1, "No such file"),
            (("export", "segy", self.folder / "none.svol", "x.sgy"), 1, "There is no file"),
            (("export", "las", "a", "b"), 2, "no format"),
            (("export", "segy", self.folder / "text.txt", self.folder / "x.sgy"), 1, "text.txt"),
        ]:
            result = strativo(*words, cwd=self.folder)
            self.assertEqual(result.returncode, status, (words, result.stderr))
            self.assertIn(part, result.stderr)
        self.assertEqual(os.listdir(self.folder), ["text.txt"])
        self.assertEqual(strativo("import", "--help").returncode, 0)

    def test_ctrl_c_leaves_nothing_behind(self):
        make(self.folder / "in.sgy", 5, range(200), range(200), 500)
        process = subprocess.Popen([PROGRAM, "import", str(self.folder / "in.sgy"), "--as", str(self.folder / "v.svol")],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        deadline = time.monotonic() + 60
        while not any(each.name.startswith(".strativo-part") for each in self.folder.iterdir()) and time.monotonic() < deadline:
            time.sleep(0.001)
        process.send_signal(signal.SIGINT)
        _, errors = process.communicate(timeout=60)
        self.assertEqual(process.returncode, 1, errors)
        self.assertIn("cancelled", errors)
        self.assertEqual(os.listdir(self.folder), ["in.sgy"])

    def test_arrays_are_what_numpy_and_zarr_open(self):
        import zarr
        cube = make(self.folder / "in.sgy", 5)
        self.assertEqual(strativo("import", self.folder / "in.sgy", "--as", self.folder / "v.svol").returncode, 0)
        for format, *options in (("npy",), ("zarr",), ("zarr", "--compress")):
            target = self.folder / f"out{len(options)}.{format}"
            result = strativo("export", *options, format, self.folder / "v.svol", target)
            self.assertEqual(result.returncode, 0, result.stderr)
            if format == "npy":
                np.testing.assert_array_equal(np.load(target), cube)
            else:
                group = zarr.open_consolidated(str(target), mode="r")
                np.testing.assert_array_equal(group["samples"][:], cube)
                np.testing.assert_array_equal(group["inline"][:], range(10, 30, 2))
                np.testing.assert_allclose(group["x"][3, 2], 500050.0)
                self.assertEqual(group["samples"].attrs["_ARRAY_DIMENSIONS"], ["inline", "crossline", "time"])
            back = self.folder / f"back{len(options)}{format}.svol"
            self.assertEqual(strativo("import", target, "--as", back).returncode, 0)
            result = strativo("export", "segy", "--format", "ieee", back, self.folder / f"back{len(options)}{format}.sgy")
            self.assertEqual(result.returncode, 0, result.stderr)
            with segyio.open(str(self.folder / f"back{len(options)}{format}.sgy")) as file:
                np.testing.assert_array_equal(segyio.tools.cube(file), cube)
                self.assertEqual(file.ilines[0], 10 if format == "zarr" else 0)
        # What zarr writes by itself.
        zarr.save_array(str(self.folder / "own.zarr"), cube.astype(">i2"), chunks=(3, 4, 7), compressor=zarr.Zlib(level=1))
        result = strativo("import", self.folder / "own.zarr", "--as", self.folder / "own.svol")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(strativo("export", "npy", self.folder / "own.svol", self.folder / "own.npy").returncode, 0)
        np.testing.assert_array_equal(np.load(self.folder / "own.npy"), cube.astype("i2").astype("f4"))

    @unittest.skipUnless(FOREIGN, "STRATIVO_FOREIGN_SEGY names no folder with files of other programs")
    def test_files_of_other_programs(self):
        files = sorted(each for each in Path(FOREIGN).rglob("*") if each.suffix in (".sgy", ".segy"))
        self.assertTrue(files)
        for source in files:
            with self.subTest(file=source.name):
                middle, target = self.folder / (source.stem + ".svol"), self.folder / source.name
                self.assertEqual(strativo("import", source, "--as", middle).returncode, 0)
                endian = "little" if "lsb" in source.name else "big"
                with segyio.open(str(source), strict=False, ignore_geometry=True, endian=endian) as file:
                    format, traces = file.bin[3225], file.trace.raw[:]
                    headers = {field: file.attributes(field)[:] for field in (115, 117, 189, 193)}
                result = strativo("export", "segy", "--leave-out", "--format", "ibm" if format == 1 else "ieee", middle, target)
                self.assertEqual(result.returncode, 0, result.stderr)
                with segyio.open(str(target), strict=False, ignore_geometry=True) as file:
                    np.testing.assert_array_equal(file.trace.raw[:], traces)
                    for field in (189, 193):
                        np.testing.assert_array_equal(file.attributes(field)[:], headers[field])
                    self.assertEqual(file.bin[3217], 4000)


if __name__ == "__main__":
    unittest.main()
