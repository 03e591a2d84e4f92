"""Volumes, random lines and SEG-Y as scripts meet them, on real files."""
import errno
import gc
import os
import pathlib
import re
import runpy
import subprocess
import sys
import tempfile
import textwrap
import threading
import time
import unittest
from unittest import mock

import numpy as np
import strativo_python as sp
from strativo_python import (NO_VALUE, BlockSpace, Domain, Image2d, InterpolationMethod, ObjectId, RandomLine, ScaleType,
                             ScanOrientation, SeismicVolume, Unit, Volume, getProject, segy, vec2, vec3, vec4)

ROOT = pathlib.Path(__file__).resolve().parents[2]
SHAPE = (6, 5, 7)  # inlines, crosslines, samples
UTM = ('PROJCRS["x",BASEGEOGCRS["WGS 84",DATUM["World Geodetic System 1984",ELLIPSOID["WGS 84",6378137,298.257223563]]],'
       'CONVERSION["y",METHOD["Transverse Mercator"],PARAMETER["Longitude of natural origin",3],'
       'PARAMETER["Scale factor at natural origin",0.9996],PARAMETER["False easting",500000]],CS[Cartesian,2],'
       'AXIS["easting",east],AXIS["northing",north],LENGTHUNIT["metre",1]]')


def space(inlines, crosslines, samples):
    """Lines 100, 102... and 200, 201..., samples every 4 ms from 1000; 25 m, the map turned by a right angle."""
    made = BlockSpace(crosslines, inlines, samples)
    below = vec4(0, 0, 4, 1000), vec4(0, 0, 0, 1)
    made.fromBlockToSurvey = sp.mat4(vec4(0, 2, 0, 100), vec4(1, 0, 0, 200), *below)
    made.fromBlockToWorld = sp.mat4(vec4(0, -25, 0, 5000), vec4(25, 0, 0, 6000), *below)
    return made


def made(name="Cube", values=None, shape=SHAPE):
    """A volume of the project, and what it holds as an array."""
    volume = SeismicVolume()
    volume.blockSpace = space(*shape)
    assert_true(volume.createFile(getProject().getNewFilename(ObjectId.Volume, name)))
    if values is None:
        values = np.arange(np.prod(shape), dtype=np.float32).reshape(shape)
    volume[:] = values
    return volume, np.array(values)


def assert_true(value):
    if not value:
        raise AssertionError("the file was not made")


def child(code, *arguments):
    """What a script that may end the program prints, run in a process of its own."""
    with tempfile.NamedTemporaryFile("w", suffix=".py") as script:
        script.write(code)
        script.flush()
        program = pathlib.Path(os.readlink("/proc/self/exe"))
        return subprocess.run([program, "run", script.name, *arguments], capture_output=True, text=True, timeout=120)


class Case(unittest.TestCase):
    def fails(self, kind, text, function, *arguments, **keywords):
        with self.assertRaises(kind) as caught:
            function(*arguments, **keywords)
        self.assertEqual(str(caught.exception), text)
        return caught.exception


class Frames(Case):
    def test_frames_of_each_orientation_and_their_bounds(self):
        volume, data = made()
        for orientation, frames in ((ScanOrientation.Inline, data.transpose(0, 2, 1)),
                                    (ScanOrientation.Crossline, data.transpose(1, 2, 0)),
                                    (ScanOrientation.Timeslice, data.transpose(2, 0, 1))):
            volume.scanOrientation = orientation
            last = len(frames) - 1
            self.assertEqual((volume.minFrameIndex, volume.maxFrameIndex), (0, last))
            for index, frame in enumerate(frames):
                np.testing.assert_array_equal(np.asarray(volume.getFrame(index)), frame)
            for index in (last + 1, -1, 1 << 40):
                shown = min(index, 2 ** 31 - 1)
                self.fails(IndexError, f"SeismicVolume, frame index {shown} out of range: (0 -> {last})", volume.getFrame,
                           index)
            volume.frameIndex = last
            np.testing.assert_array_equal(np.asarray(volume.currentFrame()), frames[last])
        self.fails(IndexError, "SeismicVolume, frame index 9 out of range: (0 -> 6)", setattr, volume, "frameIndex", 9)

    def test_set_in_memory_and_written_into_the_file(self):
        volume, data = made()
        frame = Image2d(SHAPE[1], SHAPE[2])
        frame.fill(-1.0)
        volume.setFrame(2, frame)
        self.assertEqual(volume.getFrame(2)[0, 0], -1)
        volume.scanOrientation = ScanOrientation.Timeslice
        self.assertEqual(volume.getFrame(3)[4, 2], -1, "the other frames that cross it have it, too")
        np.testing.assert_array_equal(np.asarray(volume), data, "the file is as it was")
        volume.scanOrientation = ScanOrientation.Inline
        volume.writeFrame(2, frame)
        data[2] = -1
        np.testing.assert_array_equal(np.asarray(volume), data)
        for orientation in ScanOrientation.names.values():
            volume.scanOrientation = orientation
            again = Volume.fromFile(volume.filename)
            again.scanOrientation = orientation
            np.testing.assert_array_equal(np.asarray(again.getFrame(1)), np.asarray(volume.getFrame(1)))

    def test_refusals(self):
        volume, data = made()
        swapped = Image2d(SHAPE[2], SHAPE[1])
        for function in (volume.setFrame, volume.writeFrame):
            self.fails(RuntimeError, "SeismicVolume, image size mismatch: (7,5) -> (5,7)", function, 0, swapped)
            self.assertRaises(TypeError, function, 0, None)
        self.fails(IndexError, "SeismicVolume, frame index 6 out of range: (0 -> 5)", volume.setFrame, 6, swapped)
        self.fails(IndexError, "SeismicVolume, frame number -1 out of range (0 -> 5)", volume.writeFrame, -1, swapped)
        volume.flush()
        os.remove(volume.filename)
        frame = Image2d(SHAPE[1], SHAPE[2])
        with self.assertRaises(FileNotFoundError) as caught:
            volume.writeFrame(0, frame)
        self.assertEqual((caught.exception.errno, caught.exception.filename), (errno.ENOENT, volume.filename))
        np.testing.assert_array_equal(volume[:], data, "what was opened is still there")

    def test_names_and_files(self):
        volume, data = made("Named")
        stem = pathlib.Path(volume.filename)
        self.assertEqual((volume.name, volume.datasize), (stem.stem, data.nbytes))
        self.fails(FileExistsError, f"SeismicVolume, file '{stem}' exists already", volume.createFile, str(stem))
        self.fails(FileExistsError, f"SeismicVolume, file '{stem}' exists already", volume.createFile)
        self.fails(TypeError, "SeismicVolume, expected 'str' but got 'int' instead", volume.createFile, 5)
        self.assertEqual(volume.filename, str(stem))
        copy = pathlib.Path(getProject().getNewFilename(ObjectId.Volume, "Copied"))
        volume.name = copy.stem
        self.assertEqual((volume.filename, copy.exists()), (str(copy), False), "nothing is moved on the disk")
        self.assertIs(volume.createFile(None), True)
        self.assertIn(str(copy), getProject().objects(ObjectId.Volume))
        np.testing.assert_array_equal(np.asarray(SeismicVolume(copy.stem)), data)
        self.assertIs(volume.createFile("/nowhere/at/all.svol"), False)
        self.assertIs(SeismicVolume().createFile(None), False)

    def test_opened_by_name(self):
        volume, data = made("Opened")
        self.assertIsInstance(SeismicVolume(volume.name), Volume)
        self.fails(RuntimeError, "SeismicVolume, no block found with name 'No Such'", SeismicVolume, "No Such")
        self.assertRaises(TypeError, SeismicVolume, 5)
        self.assertRaises(RuntimeError, Volume)
        rock = pathlib.Path(getProject().getNewFilename(ObjectId.Volume, "Rock"))
        content = pathlib.Path(volume.filename).read_bytes()
        header = content[:65535].decode().replace('"seismic"', '"property"').rstrip().ljust(65535) + "\n"
        rock.write_bytes(header.encode() * 2 + content[131072:])
        self.fails(RuntimeError, f"SeismicVolume, block '{rock.stem}' has wrong type", SeismicVolume, rock.stem)
        self.assertIs(type(Volume.fromFile(rock)), Volume)
        np.testing.assert_array_equal(Volume.fromFile(rock)[:], data)
        rock.write_bytes(b"no volume")
        self.assertRaises(RuntimeError, SeismicVolume, rock.stem)
        self.assertRaises(OSError, Volume.fromFile, rock)
        self.assertRaises(FileNotFoundError, Volume.fromFile, "/none.svol")

    def test_further_orders(self):
        volume = SeismicVolume()
        volume.blockSpace = space(*SHAPE)
        volume.transposed = True
        self.assertFalse(volume.transposed, "there is no file that has them")
        volume.createFile(getProject().getNewFilename(ObjectId.Volume, "Orders"))
        self.assertTrue(volume.transposed)
        volume.transposed = False
        self.assertFalse(volume.transposed)
        volume.createFile(getProject().getNewFilename(ObjectId.Volume, "Orders"))
        volume.transposed = True
        self.assertFalse(volume.transposed)

    def test_smallest_volumes(self):
        for shape in ((1, 1, 1), (1, 4, 3), (4, 1, 3), (4, 3, 1)):
            volume, data = made("Small", shape=shape)
            np.testing.assert_array_equal(np.asarray(volume), data)
            np.testing.assert_array_equal(volume[...], data)
            volume[-1, -1, -1] = 9
            data[-1, -1, -1] = 9
            np.testing.assert_array_equal(volume[:, 0], data[:, 0])
            np.testing.assert_array_equal(np.concatenate([piece.array for piece in volume.pieces(inlines=1)]), data)
        empty = SeismicVolume()
        self.assertEqual((empty.shape, empty.filename, empty.name, empty.statistics), ((1, 1, 1), "", "", None))
        self.assertEqual(empty.getFrame(0)[0, 0], NO_VALUE)


class Samples(Case):
    def test_slices_are_those_of_numpy(self):
        volume, data = made()
        random = np.random.default_rng(1)

        def axis(extent):
            kind = random.integers(4)
            if kind == 0:
                return int(random.integers(-extent, extent))
            ends = [None if random.integers(3) == 0 else int(random.integers(-extent - 2, extent + 3)) for _ in "ab"]
            return slice(*ends, [None, 1, 2, 3, -1, -2, 100][random.integers(7)])

        indices = [(axis(6), axis(5), axis(7))[:random.integers(1, 4)] for _ in range(400)]
        indices += [..., (..., 2), (1, ..., 2), (slice(None), 3), (np.int64(-1), ..., slice(1, 3)), (), slice(None)]
        for index in indices:
            expected, got = data[index], volume[index]
            self.assertEqual(np.shape(got), np.shape(expected), index)
            np.testing.assert_array_equal(got, expected, str(index))
        self.assertIs(type(volume[0, 0, 0]), float)
        self.assertEqual((volume.shape, volume.ndim, volume.dtype, len(volume)), (SHAPE, 3, np.float32, 6))
        self.fails(IndexError, "SeismicVolume, crossline index 5 is out of range for 5", volume.__getitem__, (0, 5))
        self.fails(IndexError, "SeismicVolume, too many indices: the volume has 3 axes", volume.__getitem__, (0, 0, 0, 0))
        for index in ([0, 1], "a", None, True, 1.0, (0, np.array([1, 2]))):
            self.assertRaises(TypeError, volume.__getitem__, index)
        self.assertEqual([line[0, 0] for line in volume], list(data[:, 0, 0]))

    def test_assigned_regions_are_those_of_numpy(self):
        volume, data = made()
        random = np.random.default_rng(2)
        for index in (1, (slice(1, 3), slice(0, 4)), (slice(None, None, 2), ..., -1), (slice(4, 0, -1), slice(3, 0, -2)),
                      (..., slice(5, 1, -1)), (2, 3, 4), slice(3, 3), (0, slice(1, 2), slice(None, None, 3))):
            values = random.normal(size=np.shape(data[index]))
            data[index] = values
            volume[index] = values
            np.testing.assert_array_equal(volume[:], data, str(index))
            for further in (volume[:, 2], volume[..., 4]):  # from the other orders
                self.assertEqual(further.dtype, np.float32)
        volume[1:3, :, 2:4] = 5
        volume[3] = np.arange(7)
        data[1:3, :, 2:4] = 5
        data[3] = np.arange(7)
        np.testing.assert_array_equal(Volume.fromFile(volume.filename)[:], data)
        self.assertRaises(ValueError, volume.__setitem__, 0, np.zeros((3, 3)))
        self.assertRaises(ValueError, volume.__setitem__, 0, "text")
        self.assertRaises(IndexError, volume.__setitem__, 6, 0)
        np.testing.assert_array_equal(volume[:], data)

    def test_a_volume_assigned_to_itself_in_another_place(self):
        volume, data = made()
        view = np.asarray(volume)[::1]
        volume[1:6] = view[0:5]
        np.testing.assert_array_equal(volume[:], np.concatenate([data[:1], data[:5]]))

    def test_the_view_shows_the_file_and_outlives_everything(self):
        volume, data = made()
        view = np.asarray(volume)
        self.assertEqual((view.shape, view.dtype, view.flags.writeable), (SHAPE, np.float32, False))
        self.assertFalse(view.flags.owndata)
        volume[0] = 3
        data[0] = 3
        np.testing.assert_array_equal(view, data)
        volume.flush()
        os.remove(volume.filename)
        del volume
        gc.collect()
        np.testing.assert_array_equal(view, data)
        self.assertRaises(ValueError, view.__setitem__, (0, 0, 0), 1.0)
        self.fails(RuntimeError, "SeismicVolume, the volume has no file yet; createFile() makes it", np.asarray,
                   SeismicVolume())
        for use in (lambda: SeismicVolume()[0], lambda: SeismicVolume().__setitem__(0, 0), SeismicVolume().pieces,
                    SeismicVolume().toImage3d, SeismicVolume().makeStatistics):
            self.assertRaises(RuntimeError, use)

    def test_a_file_truncated_while_it_is_viewed(self):
        volume, _ = made("Cut", np.ones((64, 64, 64)), (64, 64, 64))
        volume.flush()
        done = child("""
import os, sys
import numpy as np
from strativo_python import Volume, Image2d
volume = Volume.fromFile(sys.argv[1])
view = np.asarray(volume)
os.truncate(sys.argv[1], 200000)
print("nan", bool(np.isnan(view).any()), bool(np.isnan(view[-1]).all()))
for use in (lambda: volume[:], lambda: volume.getFrame(63), lambda: volume.toImage3d(), lambda: list(volume.pieces())):
    try:
        use()
    except OSError as error:
        print("OSError", "a part of it was lost" in str(error))
try:
    volume[5] = 1
except OSError:
    print("not written")
""", volume.filename)
        self.assertEqual((done.returncode, done.stdout.split("\n")[:6]),
                         (0, ["nan True True"] + ["OSError True"] * 4 + ["not written"]), done.stderr)

    def test_other_threads_have_arrays_but_not_the_volume(self):
        volume, data = made()
        view, results = np.asarray(volume), []

        def work():
            results.append(float(view.sum()))
            for use in (lambda: volume.getFrame(0), lambda: volume[0], lambda: volume.name, lambda: np.asarray(volume)):
                try:
                    use()
                except RuntimeError as error:
                    results.append(str(error))

        thread = threading.Thread(target=work)
        thread.start()
        thread.join()
        self.assertEqual(results, [float(data.sum())] + ["SeismicVolume, can only be used on the main thread"] * 4)
        # The last reference goes on another thread.
        thread = threading.Thread(target=[SeismicVolume(volume.name)].pop)
        thread.start()
        thread.join()

    def test_image_of_a_region_lies_in_its_place(self):
        volume, data = made()
        for slices in ((slice(None),) * 3, (slice(1, 4), 2, slice(2, 7)), (slice(None, None, 2), slice(3, 0, -1), slice(1, 2))):
            image = volume.toImage3d(*slices)
            part = data[tuple(slice(each, each + 1) if isinstance(each, int) else each for each in slices)]
            np.testing.assert_array_equal(np.asarray(image), part.transpose(2, 0, 1))
            for x, y, z in ((0, 0, 0), (image.width - 1, image.height - 1, image.length - 1)):
                place = sp.utils.blockToSurvey(vec3(x, y, z), image.blockSpace)
                cell = round((place.x - 100) / 2), round(place.y - 200), round((place.z - 1000) / 4)
                self.assertEqual(image[x, y, z], data[cell])
                ours, whole = (sp.utils.surveyToWorld(place, each) for each in (image.blockSpace, volume.blockSpace))
                np.testing.assert_allclose((ours.x, ours.y, ours.z), (whole.x, whole.y, whole.z))
        self.assertRaises(IndexError, volume.toImage3d, slice(3, 3))

    def test_pieces_see_what_was_there_before_and_write_back(self):
        shape = (11, 3, 4)
        for halo, lines in ((0, 1), (1, 1), (3, 2), (2, 5), (20, 4), (0, 0), (1, 11)):
            volume, data = made("Pieces", np.random.default_rng(3).normal(size=shape).astype(np.float32), shape)
            padded = np.pad(data, ((halo, halo), (0, 0), (0, 0)))
            expected = sum(padded[i:i + len(data)] for i in range(2 * halo + 1))
            lines_seen = []
            for piece in volume.pieces(halo=halo, inlines=lines):
                lines_seen += range(shape[0])[piece.region]
                start = piece.region.start - piece.inner.start
                np.testing.assert_array_equal(piece.array, data[start:start + len(piece.array)])
                around = np.pad(piece.array, ((halo, halo), (0, 0), (0, 0)))
                sums = sum(around[i:i + len(piece.array)] for i in range(2 * halo + 1))
                piece.array[:] = sums
                piece.write() if halo % 2 else piece.write(sums[piece.inner])
            self.assertEqual(lines_seen, list(range(shape[0])))
            np.testing.assert_allclose(volume[:], expected, rtol=1e-5, atol=1e-5)
        other, _ = made("Target", shape=shape)
        for piece in volume.pieces(inlines=4):
            piece.write(piece.array * 2, to=other)
        np.testing.assert_array_equal(other[:], volume[:] * 2)
        self.assertRaises(ValueError, volume.pieces, halo=-1)
        self.assertRaises(TypeError, piece.write, to=5)

    def test_reading_and_writing_leave_the_interpreter_to_others(self):
        volume, _ = made("Large", np.zeros((200, 250, 200), np.float32), (200, 250, 200))
        counts, isDone = [0], []

        def count():
            while not isDone:
                time.sleep(0.0005)
                counts[0] += 1

        thread = threading.Thread(target=count)
        thread.start()
        interval = sys.getswitchinterval()
        sys.setswitchinterval(1000)  # nobody else runs unless the lock is given away
        try:
            for use in (lambda: volume[:], lambda: volume.__setitem__(slice(None), 1), volume.toImage3d):
                before = counts[0]
                use()
                self.assertGreater(counts[0], before)
        finally:
            sys.setswitchinterval(interval)
            isDone.append(True)
            thread.join()


class Header(Case):
    def test_what_a_new_volume_says_is_in_its_file(self):
        volume = SeismicVolume()
        volume.blockSpace = space(*SHAPE)
        volume.crs = sp.Crs.fromWtk(UTM)
        volume.domain = Domain.Depth
        volume.verticalUnit = Unit.Feet
        volume.horizontalUnit = Unit.FeetUS
        volume.quantity = "Impedance"
        volume.note("made by a test")
        volume.createFile(getProject().getNewFilename(ObjectId.Volume, "Header"))
        volume[:] = np.arange(210).reshape(SHAPE)
        volume.flush()
        again = SeismicVolume(volume.name)
        self.assertEqual((again.domain, again.verticalUnit, again.horizontalUnit, again.quantity, again.sampleInterval),
                         (Domain.Depth, Unit.Feet, Unit.FeetUS, "Impedance", 4.0))
        self.assertEqual((again.history[0][1], again.noValue), ("made by a test", NO_VALUE))
        self.assertIsNotNone(again.crs)
        self.assertEqual(sp.utils.blockToWorld(vec3(0, 1, 0), again.blockSpace).x, 4975)
        statistics = again.statistics
        self.assertEqual((statistics.count, statistics.minimum, statistics.maximum, statistics.mean), (210, 0, 209, 104.5))
        self.assertAlmostEqual(statistics.standardDeviation, np.arange(210).std(), delta=0.3)
        self.assertAlmostEqual(statistics.percentile(50), 104.5, delta=2)
        self.assertRaises(ValueError, statistics.percentile, 101)
        again.domain = Domain.Time
        again.crs = None
        self.assertEqual((SeismicVolume(volume.name).domain, SeismicVolume(volume.name).crs), (Domain.Time, None))
        self.assertEqual(again.makeStatistics().count, 210)

    def test_the_place_of_a_file_stays(self):
        volume, data = made()
        turned = volume.blockSpace
        turned.scanOrientation = ScanOrientation.Crossline
        turned.frameIndex = 3
        volume.blockSpace = turned
        self.assertEqual((volume.scanOrientation, volume.frameIndex), (ScanOrientation.Crossline, 3))
        for wrong in (BlockSpace(1, 2, 3), space(6, 5, 8), BlockSpace(5, 6, 7)):
            self.assertRaises(RuntimeError, setattr, volume, "blockSpace", wrong)
        self.assertRaises(TypeError, setattr, volume, "blockSpace", 5)
        self.assertRaises(TypeError, setattr, volume, "domain", 5)
        np.testing.assert_array_equal(volume[:], data)
        huge = SeismicVolume()
        huge.blockSpace = BlockSpace(100000, 100000, 100000)
        self.assertEqual(huge.datasize, 4 * 10 ** 15)
        self.assertFalse(huge.createFile(getProject().getNewFilename(ObjectId.Volume, "Huge")))
        self.assertRaises(RuntimeError, setattr, huge, "blockSpace", BlockSpace(2 ** 31 - 1, 2 ** 31 - 1, 2 ** 31 - 1))


class Lines(Case):
    def test_a_line_is_saved_opened_and_saved_again(self):
        line = RandomLine()
        self.assertEqual((line.filename, line.name, line.nodes, line.frame), ("", "", [], ScaleType.World))
        self.assertRaises(RuntimeError, line.save, "/tmp/none.geojson")
        line.nodes = [(5000, 6000), vec2(4900, 6100), vec3(4950, 6050, 7)]
        line.crs = sp.Crs.fromWtk(UTM)
        self.assertRaises(ValueError, line.save)
        path = getProject().getNewFilename(ObjectId.RandomLine, "Line")
        line.save(path)
        self.assertIn(path, getProject().objects(ObjectId.RandomLine))
        again = RandomLine(path)
        self.assertEqual((again.filename, again.name), (path, pathlib.Path(path).stem))
        self.assertEqual([(node.x, node.y) for node in again.nodes], [(5000, 6000), (4900, 6100), (4950, 6050)])
        again.nodes = np.array([[100, 200], [104, 203]])
        again.frame = ScaleType.Survey
        self.assertEqual(len(RandomLine(path).nodes), 3, "what is changed is the script's own until it saves")
        again.save()
        self.assertEqual((len(RandomLine(path).nodes), RandomLine(path).frame), (2, ScaleType.Survey))
        self.fails(FileExistsError, f"RandomLine, file '{path}' exists already", RandomLine.save, self.nodes(), path)
        for wrong, kind in (([(1, 2)], ValueError), ([(1, 2), (np.nan, 0)], ValueError), ([1, 2], TypeError),
                            ([(1, 2), "ab"], TypeError), (5, TypeError), ([(1, 2), (1, "a")], TypeError)):
            self.assertRaises(kind, setattr, again, "nodes", wrong)
        self.assertRaises(ValueError, setattr, again, "frame", ScaleType.Pixel)
        self.assertEqual(len(again.nodes), 2)

    def nodes(self):
        line = RandomLine()
        line.nodes = [(0, 0), (1, 1)]
        return line

    def test_files_that_are_no_lines(self):
        self.fails(FileNotFoundError, "RandomLine, file '/none.geojson' does not exist.", RandomLine, "/none.geojson")
        with tempfile.NamedTemporaryFile(suffix=".geojson") as file:
            file.write(b"{}")
            file.flush()
            error = self.fails(RuntimeError, "RandomLine, unable to create 'RandomLine' object", RandomLine, file.name)
            self.assertIn(file.name, str(error.__cause__))

    def test_section_along_lines_of_the_survey(self):
        volume, data = made()
        line = RandomLine()
        self.assertRaises(RuntimeError, line.section, volume)
        line.frame = ScaleType.Survey
        line.nodes = [(102, 200), (102, 204), (110, 204)]
        section = line.section(volume, InterpolationMethod.NoInterpolation)
        expected = np.concatenate([data[1], data[2:, 4]])
        np.testing.assert_array_equal(np.asarray(section.image), expected.T)
        np.testing.assert_array_equal(np.asarray(section.inlines), [102] * 5 + [104, 106, 108, 110])
        np.testing.assert_array_equal(np.asarray(section.crosslines), [200, 201, 202, 203] + [204] * 5)
        np.testing.assert_allclose(np.asarray(section.distances), 25 * np.arange(9))
        np.testing.assert_allclose(np.asarray(section.x), [4975] * 5 + [4950, 4925, 4900, 4875])
        self.assertEqual(len(section), 9)
        world = RandomLine()
        world.nodes = list(zip(section.x, section.y))[::4]
        np.testing.assert_array_equal(np.asarray(world.section(volume).image), expected.T)
        between = RandomLine()
        between.nodes = [(4987.5, 6000), (4987.5, 6100)]
        np.testing.assert_allclose(np.asarray(between.section(volume).image), ((data[0] + data[1]) / 2).T)
        self.assertRaises(ValueError, line.section, volume, InterpolationMethod.Bicubic)
        self.assertRaises(ValueError, line.section, volume, spacing=-1.0)
        self.assertRaises(RuntimeError, line.section, SeismicVolume())


class Segy(Case):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = str(pathlib.Path(self.folder.name) / "cube.segy")

    def test_order_of_refusals(self):
        exporter = segy.Exporter()
        volume, _ = made()
        self.fails(RuntimeError, "A SeismicVolume is required.", exporter.export, self.path, None)
        self.fails(TypeError, "Exporter.export(), expected 'SeismicVolume' but got 'int' instead", exporter.export,
                   self.path, 5)
        self.assertIs(exporter.export(self.path, volume), True)
        self.fails(FileExistsError, f"The output file already exists: {self.path}.", exporter.export, self.path, volume)
        huge = SeismicVolume()
        huge.blockSpace = BlockSpace(100000, 100000, 100000)
        megabytes = (3600 + 10 ** 10 * (240 + 400000)) // 2 ** 20
        with self.assertRaises(RuntimeError) as caught:
            exporter.export(self.path, huge)  # before it is found to exist
        self.assertRegex(str(caught.exception), rf"^Disk Space: File export requires {megabytes} MB on /\S* drive\.$")
        self.assertIs(exporter.export("/none/cube.segy", volume), False)

    def test_what_is_exported_is_imported(self):
        values = np.random.default_rng(4).normal(size=SHAPE).astype(np.float32)
        volume, _ = made("Exported", values)
        frame = Image2d(SHAPE[1], SHAPE[2])
        frame.fill(2.5)
        volume.setFrame(3, frame)
        values[3] = 2.5
        exporter = segy.Exporter()
        self.assertEqual((exporter.textualHeader, exporter.sampleFormat, exporter.encoding), ("", "IBM", "EBCDIC"))
        exporter.sampleFormat = "IEEE"
        exporter.textualHeader = "C 1 OWN TEXT"
        self.assertRaises(ValueError, setattr, exporter, "sampleFormat", "float")
        exporter.encoding = "ASCII"
        self.assertTrue(exporter.export(self.path, volume))
        self.assertEqual(pathlib.Path(self.path).read_bytes()[:13], b"C 1 OWN TEXT ")
        target = getProject().getNewFilename(ObjectId.Volume, "Imported")
        again = segy.importVolume(self.path, target)
        self.assertIn(target, getProject().objects(ObjectId.Volume))
        np.testing.assert_array_equal(again[:], values)
        self.assertTrue(again.history)
        for index in ((0, 0, 0), (4, 5, 6)):
            for convert in (sp.utils.blockToSurvey, sp.utils.blockToWorld):
                before, after = (convert(vec3(*index), each.blockSpace) for each in (volume, again))
                np.testing.assert_allclose((before.x, before.y), (after.x, after.y), atol=0.01)
        self.assertRaises(FileExistsError, segy.importVolume, self.path, target)
        self.assertRaises(FileNotFoundError, segy.importVolume, "/none.segy", target + "x")
        self.assertRaises(ValueError, segy.importVolume, self.path, target + "x", inlineByte="0x")
        pathlib.Path(self.path).write_bytes(b"text")
        self.assertRaises(OSError, segy.importVolume, self.path, target + "x")
        self.assertFalse(os.path.exists(target + "x"))
        generated = segy.Exporter()
        os.remove(self.path)
        self.assertTrue(generated.export(self.path, volume))
        self.assertIn(volume.name.upper(), pathlib.Path(self.path).read_bytes()[:3200].decode("cp037").upper())

    def test_example_imports_filters_and_exports(self):
        result = pathlib.Path(self.folder.name) / "filtered.segy"
        output = []
        with mock.patch.object(sys, "argv", ["segy_filter.py", "", str(result)]), \
                mock.patch("builtins.print", lambda *words: output.append(" ".join(map(str, words)))):
            runpy.run_path(str(ROOT / "examples" / "scripts" / "segy_filter.py"), run_name="__main__")
        self.assertRegex("\n".join(output), r"deviation 0\.\d+ before, 0\.\d+ after\n")
        self.assertGreater(result.stat().st_size, 3600)


class Page(Case):
    def test_examples_of_the_page_run(self):
        text = (ROOT / "docs" / "volumes.rst").read_text()
        blocks = re.findall(r"^\.\. code-block:: python\n\n((?:   .*\n|\n)+)", text, re.MULTILINE)
        self.assertGreater(len(blocks), 5)
        made("Amplitude", np.random.default_rng(5).normal(size=(20, 12, 30)), (20, 12, 30))
        names = {}
        here = os.getcwd()
        with tempfile.TemporaryDirectory() as folder, mock.patch("builtins.print"):
            os.chdir(folder)
            try:
                for block in blocks:
                    exec(compile(textwrap.dedent(block), "volumes.rst", "exec"), names)
            finally:
                os.chdir(here)


if __name__ == "__main__":
    unittest.main()
