"""Images: indices, sizes, filling from any buffer, views, frames of a cube, copies."""
import array
import copy
import gc
import operator
import pickle
import sys
import tracemalloc
import unittest
import warnings

import numpy as np
from strativo_python import Image2d, Image3d, NO_VALUE, ScanOrientation, _HVImageBaseFloat


class Remembering(Image2d):
    """A subclass with another constructor and an attribute of its own."""

    def __init__(self, note):
        super().__init__(3, 2, name="noted")
        self.note = note


class ImageCase(unittest.TestCase):
    def assertRaisesText(self, error, text, function, *arguments, **keywords):
        with self.assertRaises(error) as caught:
            function(*arguments, **keywords)
        self.assertEqual(str(caught.exception), text)
        return caught.exception


class Pixels(ImageCase):
    def test_layout_and_every_way_to_a_pixel(self):
        image = Image2d(5, 3)
        image[3, 2] = 7
        image.setValue(y=1, x=4, value=np.float32(0.5))
        view = np.asarray(image)
        self.assertEqual((view.shape, view.dtype, view.flags.writeable), ((3, 5), np.float32, True))
        self.assertEqual((view[2, 3], view.ravel()[5 * 1 + 4]), (7.0, 0.5))
        self.assertEqual((image[(3, 2)], image.getValue(3, 2), image.getValue(x=3, y=2)), (7.0, 7.0, 7.0))
        self.assertEqual(image[0, 0], NO_VALUE)
        self.assertEqual(image.bufferAddress, view.__array_interface__["data"][0])
        cube = Image3d(2, 3, 4)
        cube[1, 2, 3] = 9
        cube.setValue(0, 1, 2, 8.0)
        view = np.asarray(cube)
        self.assertEqual((view.shape, view[3, 2, 1], view[2, 1, 0]), ((4, 3, 2), 9.0, 8.0))
        self.assertEqual((cube[1, 2, 3], cube.getValue(0, 1, 2), cube.size, cube.length), (9.0, 8.0, 24, 4))

    def test_wrong_indices(self):
        image, cube = Image2d(4, 3), Image3d(2, 3, 4)
        for index, text in (((4, 0), "Image2d, x index 4 out of range (0 -> 3)"),
                            ((-1, 9), "Image2d, x index -1 out of range (0 -> 3)"),
                            ((0, 3), "Image2d, y index 3 out of range (0 -> 2)"),
                            ((0, 2**64), "Image2d, y index 18446744073709551616 out of range (0 -> 2)")):
            self.assertRaisesText(IndexError, text, image.getValue, *index)
            self.assertRaisesText(IndexError, text, image.setValue, *index, 1.0)
            self.assertRaisesText(IndexError, text, image.__getitem__, index)
            self.assertRaisesText(IndexError, text, image.__setitem__, index, 1.0)
        self.assertRaisesText(IndexError, "Image3d, y index -1 out of range (0 -> 2)", cube.getValue, 0, -1, 9)
        self.assertRaisesText(IndexError, "Image3d, z index 4 out of range (0 -> 3)", cube.__getitem__, (1, 2, 4))
        expected = "Image2d, expected tuple of ('int', 'int') as index for image but got "
        for index, got in (((1.5, "a"), "('float', 'str')"), ((1, np.int64(2)), "('int', 'numpy.int64')"),
                           ((1, 2, 3), "('int', 'int', 'int')"), ((), "()"), (5, "'int'"), ([1, 2], "'list'")):
            self.assertRaisesText(TypeError, expected + got, image.__getitem__, index)
            self.assertRaisesText(TypeError, expected + got, image.__setitem__, index, 1.0)
        self.assertRaisesText(
            TypeError, "Image3d, expected tuple of ('int', 'int', 'int') as index for image but got "
            "('int', 'NoneType', 'int')", cube.__getitem__, (0, None, 0))
        for call in (lambda: image.getValue(1.0, 2), lambda: image.getValue(1), lambda: image.getValue(1, z=2),
                     lambda: image.setValue(0, 0, "1"), lambda: image.__setitem__((0, 0), None),
                     lambda: operator.delitem(image, (0, 0)), lambda: Image2d.getValue(cube, 0, 0)):
            self.assertRaises(TypeError, call)
        self.assertEqual(set(np.asarray(image).ravel()), {NO_VALUE})

    def test_overrides_and_objects_without_an_image(self):
        class Doubling(Image2d):
            def __getitem__(self, index):
                return 2 * super().__getitem__(index)

        image = Doubling(2, 2)
        image[1, 1] = 4
        self.assertEqual((image[1, 1], image.getValue(1, 1), np.asarray(image)[1, 1]), (8.0, 4.0, 4.0))

        class Shrinking:
            def __float__(self):
                image.resize(1, 1)
                return 1.0

        self.assertRaises(IndexError, image.setValue, 1, 1, Shrinking())
        empty = Image2d.__new__(Doubling)
        for use in (lambda: empty.width, lambda: empty.getValue(0, 0), lambda: Image2d.__getitem__(empty, (0, 0)),
                    lambda: empty.average(), lambda: empty.fill(1), lambda: memoryview(empty), lambda: empty.name,
                    lambda: Image3d(1, 1, 1).setImage(0, 0, empty), lambda: pickle.dumps(empty)):
            self.assertRaises(TypeError, use)
        self.assertRaises(RuntimeError, _HVImageBaseFloat)

    def test_attributes_are_of_one_object(self):
        image, cube = Image2d(2, 2), Image3d(2, 2, 2)
        image.note = cube.note = "kept"
        self.assertEqual((vars(image), vars(copy.copy(cube))), ({"note": "kept"}, {"note": "kept"}))
        for other in (Image2d(2, 2), image.transpose(), Image3d(1, 1, 1), cube.getImage(0, 0), type("Own", (Image2d,), {})(1, 1)):
            self.assertEqual(vars(other), {})


class Sizes(ImageCase):
    def test_construction(self):
        image = Image2d(3, 2, name="top")
        self.assertEqual(str(image), "strativo_python.Image2d: name = 'top', width = 3, height = 2")
        self.assertEqual(str(Image3d(1, 2, 3)), "strativo_python.Image3d, width = 1, height = 2, length = 3")
        self.assertRaisesText(RuntimeError, "Image2d, can not create Image2d of size: (0, 10)", Image2d, 0, 10)
        self.assertRaisesText(TypeError, "Image2d, 'name' argument must be of type 'str', not 'bytes'",
                              Image2d, 1, 1, name=b"x")
        self.assertRaisesText(IndexError, "Image3d, unable to create 3d image with dimensions: (1, 2, -3)",
                              Image3d, 1, 2, -3)
        self.assertRaises(OverflowError, Image2d, 2**31, 1)
        self.assertRaises(TypeError, Image2d, 1.5, 1)
        settings = "Increase the physical memory dedicated to Strativo in Settings/Optimizations."
        # In the first test, of 32 bits, these two wrap to 0 and to 4 bytes.
        for size in ((2**20, 2**20), (2**31 - 1, 2**31 - 1)):
            self.assertRaisesText(MemoryError, "Image2d, not enough free memory. " + settings, Image2d, *size)
        self.assertRaisesText(
            MemoryError, "Image3d, not enough free memory for 3d image with dimensions: (%d, %d, %d). %s"
            % (*[2**31 - 1] * 3, settings), Image3d, *[2**31 - 1] * 3)

    def test_names(self):
        image = Image2d(1, 1)
        image.name = "Top of %1 %2"
        self.assertEqual(image.name, "Top of %1 %2")
        self.assertIn("name = 'Top of %1 %2', width = 1", str(image))
        image.name = "Überschiebung"
        for read in (lambda: image.name, lambda: str(image)):
            self.assertRaises(UnicodeDecodeError, read)
        with self.assertRaises(TypeError):
            image.name = 5

    def test_resize(self):
        image, cube = Image2d(3, 2), Image3d(2, 2, 2)
        image.fill(array.array("f", range(6)))
        cube.fill(bytes(range(8)))
        image.resize(2, 3)
        np.testing.assert_array_equal(image, [[0, 1], [3, 4], [NO_VALUE, NO_VALUE]])
        cube.resize(1, 2, 3)
        np.testing.assert_array_equal(np.asarray(cube)[:, :, 0], [[0, 2], [4, 6], [NO_VALUE, NO_VALUE]])
        self.assertEqual((cube.blockSpace.width, cube.blockSpace.length), (1, 3))
        zero = "can not resize to zero or fewer bytes "
        self.assertRaisesText(IndexError, "Image2d.resize(), " + zero + "(0, -1)", image.resize, 0, -1)
        self.assertRaisesText(IndexError, "Image3d.resize(), " + zero + "(1, 0, 1)", cube.resize, 1, 0, 1)
        self.assertRaisesText(
            MemoryError, "Image2d.resize(), unable to allocate memory for Image2d of size (1048576, 1048576)",
            image.resize, 2**20, 2**20)
        self.assertRaisesText(
            MemoryError, "Image3d.resize(), not enough memory to resize to size (1048576, 1048576, 9). Increase the "
            "physical memory dedicated to Strativo in Settings/Optimizations.", cube.resize, 2**20, 2**20, 9)
        for same, arguments, text in (
                (image, (2, 3), "Image2d.resize(), called with arguments that match current width and height (2, 3)"),
                (cube, (1, 2, 3), "Image3d.resize(), called with arguments that match current width, height, and "
                 "length (1, 2, 3)")):
            before = bytes(same)
            with warnings.catch_warnings(record=True) as caught:
                warnings.simplefilter("always")
                same.resize(*arguments)
            self.assertEqual([(w.category, str(w.message)) for w in caught], [(RuntimeWarning, text)])
            with warnings.catch_warnings():
                warnings.simplefilter("error")
                self.assertRaisesText(RuntimeWarning, text, same.resize, *arguments)
            self.assertEqual(bytes(same), before)


class Filling(ImageCase):
    def test_numbers(self):
        image = Image2d(3, 2)
        for number in (1.5, 2, True, np.float32(0.25), np.int16(-3), np.array(4.0)):
            image.fill(number)
            self.assertEqual(set(np.asarray(image).ravel()), {float(number)})
        image.clear()
        self.assertEqual(set(np.asarray(image).ravel()), {-9999.0})

    def test_every_kind_of_buffer(self):
        numbers = np.arange(12).reshape(3, 4)
        image = Image2d(4, 3)
        sources = [bytes(range(12)), array.array("i", range(12)), array.array("d", range(12)), numbers.ravel()]
        for code in "?bBhHiIlLqQefd":
            typed = (numbers % 2 if code == "?" else numbers).astype(code)
            for order in "<>":
                sources.append(typed.astype(typed.dtype.newbyteorder(order)))
        sources += [np.asfortranarray(numbers), np.asfortranarray(numbers, np.float32),
                    np.repeat(numbers, 3, 1)[:, ::3], numbers[::-1, ::-1].copy()[::-1, ::-1],
                    np.broadcast_to(np.float32(5), (3, 4)), memoryview(numbers.astype(np.float32))]
        for source in sources:
            with self.subTest(source=source):
                image.clear()
                image.fill(source)
                np.testing.assert_array_equal(np.asarray(image).ravel(), np.asarray(
                    np.frombuffer(source, np.uint8) if isinstance(source, bytes) else source).ravel())
        # Halfway between two floats and a little: a pixel is the same whether it comes from an int or from a buffer.
        wide = 2**62 + 2**38 + 1
        image.fill(np.full(12, wide))
        image[0, 0] = wide
        self.assertEqual(set(np.asarray(image).ravel()), {2.0**62})
        cube = Image3d(4, 3, 2)
        block = np.moveaxis(np.arange(24.0).reshape(4, 2, 3), 0, 2)
        cube.fill(block)
        np.testing.assert_array_equal(cube, block)

    def test_arrays_of_another_shape_do_not_scramble_the_pixels(self):
        image, cube = Image2d(4, 3), Image3d(4, 3, 2)
        numbers = np.arange(24.0)
        image.fill(numbers[:12].reshape(3, 4))
        cube.fill(numbers.reshape(2, 3, 4))
        before = bytes(image), bytes(cube)
        mismatch = "Image2d, image size mismatch: is %d instead of %d"
        for filled, shape, told in (
                (image, (4, 3), 4), (image, (2, 6), 2), (image, (12, 1), 1), (image, (1, 12), 1), (image, (1, 3, 4), 1),
                (cube, (4, 3, 2), 4), (cube, (2, 4, 3), 2), (cube, (6, 4), 6), (cube, (24, 1), 1), (cube, (1, 2, 3, 4), 1)):
            self.assertRaisesText(RuntimeError, mismatch % (told, filled.size), filled.fill,
                                  numbers[:filled.size].reshape(shape))
        self.assertRaisesText(RuntimeError, mismatch % (3, 12), Image2d(3, 4).fill, image)
        self.assertEqual((bytes(image), bytes(cube)), before)
        for flat in (numbers[:12], bytes(12), array.array("d", range(12))):
            image.fill(flat)
        cube.fill(numbers)

    def test_views_of_the_image_itself(self):
        image = Image2d(4, 3)
        image.fill(np.arange(12))
        for turned in (lambda a: a[::-1, ::-1], lambda a: a[:, ::-1], lambda a: a):
            expected = turned(np.array(image))
            image.fill(turned(np.asarray(image)))
            np.testing.assert_array_equal(image, expected)

    def test_refusals_change_nothing(self):
        image = Image2d(4, 3)
        image.fill(5)
        mismatch = "Image2d, image size mismatch: is %d instead of 12"
        for source, length in ((np.zeros(5), 5), (b"1" * 48, 48), (np.zeros((3, 5)), 3), (np.zeros((12, 2)), 24),
                               (b"", 0), (np.zeros((0, 4)), 0)):
            self.assertRaisesText(RuntimeError, mismatch % length, image.fill, source)
        for source in (np.zeros(12, complex), np.zeros(12, "f4,f4"), np.array(["a"] * 12),
                       np.zeros(12, np.longdouble)):
            error = self.assertRaisesText(RuntimeError, "Copy failed, unable to copy data into image",
                                          image.fill, source)
            self.assertIsNotNone(error.__cause__)
        for source in ([1.0] * 12, "x" * 12, None):
            self.assertRaises(TypeError, image.fill, source)
        self.assertEqual(set(np.asarray(image).ravel()), {5.0})


class Statistics(ImageCase):
    def test_pixels_without_value_are_left_out(self):
        values = np.random.default_rng(1).normal(3e4, 2, (300, 400)).astype(np.float32)
        image = Image2d(400, 300)
        image.fill(values)
        image[7, 8], image[9, 9] = NO_VALUE, float("nan")
        kept = np.delete(values.ravel().astype(float), [8 * 400 + 7, 9 * 400 + 9])
        self.assertAlmostEqual(image.average(), kept.mean(), 8)
        self.assertAlmostEqual(image.standardDeviation(), kept.std(), 8)
        self.assertEqual((image.minValue, image.maxValue), (kept.min(), kept.max()))
        image.clear()
        self.assertEqual((image.minValue, image.maxValue), (NO_VALUE, NO_VALUE))
        self.assertTrue(np.isnan(image.average()) and np.isnan(image.standardDeviation()))


class Views(ImageCase):
    def test_a_view_keeps_image_and_size(self):
        for image, other in ((Image2d(6, 4), (2, 2)), (Image3d(3, 2, 4), (2, 2, 2))):
            view = np.asarray(image)
            second = memoryview(image)[1:]
            self.assertRaisesRegex(BufferError, r"^Image.d.resize\(\), the size can not change while a view uses the memory$",
                                   image.resize, *other)
            address, count = image.bufferAddress, sys.getrefcount(image)
            del view
            gc.collect()
            self.assertEqual(sys.getrefcount(image), count - 1)
            self.assertRaises(BufferError, image.resize, *other)
            second.release()
            image.resize(*other)
            self.assertEqual(image.width, 2)
            view = np.asarray(image)
            del image
            gc.collect()
            view[...] = 3
            self.assertEqual(view.sum(), 3 * view.size)
            self.assertTrue(address)
        self.assertRaises(TypeError, Image2d(2, 2).fill)

    def test_shape_and_order_of_requests(self):
        image = Image2d(2, 2)
        image.fill(np.arange(4))
        self.assertEqual(bytes(image), np.arange(4, dtype=np.float32).tobytes())
        self.assertEqual(memoryview(image).tolist(), [[0, 1], [2, 3]])
        image.__init__(5, 5)
        self.assertEqual(np.asarray(image).shape, (5, 5))

    def test_nothing_leaks(self):
        def use(image):
            for _ in range(20000):
                image[1, 1] = image[2, 2] + image.getValue(0, 0)
                try:
                    image[9, 9]
                except IndexError:
                    pass
            for _ in range(2000):
                memoryview(image).release()
                image.transpose()
                image.fill(1.0)
                copy.copy(image)

        image = Image2d(8, 8)
        use(image)
        gc.collect()
        tracemalloc.start()
        before, count = tracemalloc.get_traced_memory()[0], sys.getrefcount(image)
        use(image)
        gc.collect()
        grown = tracemalloc.get_traced_memory()[0] - before
        tracemalloc.stop()
        self.assertLess(grown, 50000)  # one forgotten object of 32 bytes a round is 64000
        self.assertEqual(sys.getrefcount(image), count)


class Frames(ImageCase):
    def setUp(self):
        self.cube = Image3d(4, 3, 2)
        self.voxels = np.arange(24.0, dtype=np.float32).reshape(2, 3, 4)
        self.cube.fill(self.voxels)

    def test_frames_of_every_orientation(self):
        cuts = {ScanOrientation.Inline: lambda a, i: a[:, i, :], ScanOrientation.Crossline: lambda a, i: a[:, :, i],
                ScanOrientation.Timeslice: lambda a, i: a[i]}
        for orientation, count in zip(cuts, (3, 4, 2)):
            for frame in range(count):
                image = self.cube.getImage(orientation, frame)
                np.testing.assert_array_equal(image, cuts[orientation](self.voxels, frame))
                np.testing.assert_array_equal(self.cube.getImage(int(orientation), frame), image)
            image.fill(-1)
            self.cube.setImage(orientation, 1, image)
            cuts[orientation](self.voxels, 1)[...] = -1
            np.testing.assert_array_equal(self.cube, self.voxels)

    def test_refusals(self):
        get, put = self.cube.getImage, self.cube.setImage
        self.assertRaisesText(RuntimeError, "Image3d, getImage() unknown enumeration supplied.", get, 3, 0)
        for frame in (3, -1):
            error = self.assertRaisesText(
                MemoryError, "Image3d, getImage() unable to allocate memory for 'Image2d' for frame %d" % frame,
                get, ScanOrientation.Inline, frame)
            self.assertIsInstance(error.__cause__, IndexError)
        self.assertRaisesText(RuntimeError, "Image3d, setImage() expected 'Image2d' but got 'None' instead",
                              put, ScanOrientation.Inline, -1, None)
        self.assertRaisesText(TypeError, "Image3d, setImage() expected 'Image2d' but got 'Image3d' instead",
                              put, ScanOrientation.Inline, 0, self.cube)
        for frame in (-1, 4):
            self.assertRaisesText(IndexError, "Image3d, setImage() got invalid frame index %d" % frame,
                                  put, ScanOrientation.Crossline, frame, Image2d(9, 9))
        self.assertRaisesText(
            IndexError, "Image3d, setImage() incompatible sizes (3, 2) and (4, 2) for orientation 'Crossline'",
            put, ScanOrientation.Crossline, 0, Image2d(4, 2))
        self.assertRaises(RuntimeError, put, 3, 0, Image2d(4, 2))
        np.testing.assert_array_equal(self.cube, self.voxels)

    def test_transpose(self):
        image = self.cube.getImage(ScanOrientation.Timeslice, 1)
        image.name = "slice"
        turned = image.transpose()
        np.testing.assert_array_equal(turned, self.voxels[1].T)
        np.testing.assert_array_equal(image, self.voxels[1])
        self.assertEqual(turned.name, "slice")


class Copies(ImageCase):
    def test_copies_and_pickles(self):
        image = Remembering("kept")
        image.fill(np.arange(6))
        image.name = "size"
        cube = Image3d(2, 3, 4)
        cube.fill(np.arange(24))
        for original in (image, cube):
            for made in (copy.copy(original), copy.deepcopy(original),
                         *(pickle.loads(pickle.dumps(original, protocol)) for protocol in range(6))):
                self.assertIs(type(made), type(original))
                self.assertEqual(vars(made), vars(original))
                self.assertEqual(str(made), str(original))
                np.testing.assert_array_equal(made, original)
                made.fill(0)
                self.assertEqual(original.maxValue, original.size - 1)

    def test_broken_states(self):
        for state in (None, (), ((1, 1, ""), {}), ((1, 1, "", b"123"), {}), (("a", 1, "", b"1234"), {}),
                      ((1, 1, "", "1234"), {}), ((1, 1, "", b"1234"), 5), ((2**40, 1, "", b"1234"), {})):
            with self.assertRaises((TypeError, ValueError, OverflowError), msg=state):
                Image2d.__new__(Image2d).__setstate__(state)
