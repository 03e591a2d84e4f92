"""The typed arrays: elements, texts, memory shared with numpy, bulk input, pickling, hostile arguments."""
import array
import copy
import gc
import pickle
import threading
import unittest

import leaks
import numpy
from strativo_python import DoubleArray, FloatArray, IntArray, Vec3Array, vec3

# Class, type word, element type, dtype, five values that differ.
FAMILY = [
    (IntArray, "Int", "int", numpy.int32, [3, -1, 2**31 - 1, -2**31, 7]),
    (FloatArray, "Float", "float", numpy.float32, [0.5, -1.0, 3.0e38, 0.0, 2.25]),
    (DoubleArray, "Double", "float", numpy.float64, [0.1, -1.0, 1e308, 0.0, 2.25]),
    (Vec3Array, "Vec3", "vec3", numpy.float64, [vec3(i, -i, 0.5 * i) for i in range(1, 6)]),
]


def plain(elements):
    """The elements as values that compare: a vec3 equals only itself."""
    return [(e.x, e.y, e.z) if isinstance(e, vec3) else e for e in elements]


class SizedArray(FloatArray):
    """A subclass with a constructor of its own and an override."""

    def __init__(self, first, count):
        FloatArray.__init__(self, count)
        self.first = first

    def __getitem__(self, index):
        return -1.0


class Uninitialised(FloatArray):
    def __init__(self):
        pass


class Family(unittest.TestCase):
    def each(self):
        for cls, word, element, dtype, values in FAMILY:
            with self.subTest(cls.__name__):
                filled = cls()
                filled.extend(values)
                yield cls, word, element, dtype, values, filled

    def raises(self, exception, message, function, *arguments):
        with self.assertRaises(exception) as caught:
            function(*arguments)
        self.assertEqual(str(caught.exception), message)


class Members(Family):
    def test_sizes_and_texts(self):
        for cls, word, element, dtype, values, a in self.each():
            text = "[ %sArray, size = %d ]"
            self.assertEqual([str(cls(3)), repr(cls()), repr(a)], [text % (word, n) for n in (3, 0, 5)])
            self.assertEqual((len(a), a.size(), len(cls(size=2)), len(cls(0))), (5, 5, 2, 0))
            self.assertFalse(numpy.asarray(cls(1000)).any())
            negative = "%sArray, invalid size. Size can not be negative." % word
            for call in (lambda: cls(-1), lambda: cls(-2**70), lambda: a.resize(-1)):
                self.raises(ValueError, negative, call)
            self.raises(TypeError, "%sArray, expected 'int' but got 'str'" % word, cls, "3")
            for size in (2**45, 2**62, 2**63 - 1):
                self.raises(MemoryError, "%sArray, unable to allocate memory for array of size %d" % (word, size),
                            cls, size)
                self.raises(MemoryError, "unable to resize array to size %d" % size, a.resize, size)
            self.assertEqual(plain(a), [float(dtype(v)) if element == "float" else v for v in plain(values)])
            a.resize(7)
            self.assertEqual((len(a), numpy.asarray(a).any()), (7, False))
            a.clear()
            self.assertEqual(list(a), [])

    def test_elements(self):
        for cls, word, element, dtype, values, a in self.each():
            expected = plain(float(dtype(v)) if element == "float" else v for v in values)
            self.assertEqual(plain(a[i] for i in range(5)), expected)
            self.assertEqual((plain(a), plain(reversed(a))), (expected, expected[::-1]))
            a[True] = values[4]
            self.assertEqual(*plain([a[1], a[4]]))
            # The number in the message of reading is not the index; in that of writing it is.
            for bad in (-1, 5, 2**40, 2**70):
                with self.assertRaisesRegex(IndexError, r"^%sArray, index -?\d+ out of bounds "
                                                        r"\(valid range: 0 -> 4\)$" % word):
                    a[bad]
            self.raises(IndexError, "%sArray, index -1 out of bounds (valid range: 0 -> 4)" % word,
                        a.__setitem__, -1, values[0])
            for key in ("x", 1.0, None, numpy.int64(1)):
                name = type(key).__name__ if not isinstance(key, numpy.int64) else "numpy.int64"
                self.raises(TypeError, "core::Array, expected 'int' but got '%s'" % name, a.__getitem__, key)
                self.raises(TypeError, "%sArray, expected 'int' but got '%s'" % (word, name),
                            a.__setitem__, key, values[0])
            self.raises(TypeError, "%sArray, expected type '%s' when assigning value, but got 'str'" % (word, element),
                        a.__setitem__, 0, "x")
            with self.assertRaises(TypeError):
                del a[0]
            for method in (a.append, a.index, a.rindex, a.__contains__):
                self.assertRaises(TypeError, method, "x")
            self.assertEqual(len(a), 5)

    def test_slices_are_lists_and_test_every_position(self):
        a = IntArray()
        a.extend(range(10, 16))
        items = list(a)
        for key in (slice(None), slice(1, 4), slice(0, 6, 2), slice(4, 1), slice(5, None), slice(6, None),
                    slice(None, None, -1), slice(4, 1, -2), slice(None, 2, -3), slice(1, 2, 2**62)):
            self.assertEqual(a[key], items[key], key)
        self.assertEqual(a[3:-1:-1], items[3::-1])
        self.assertEqual(a[0:-1], [])
        for key, position in ((slice(0, 7), 6), (slice(-2, None), -2), (slice(1, 2**70, 4), 9),
                              (slice(6, None, -1), 6), (slice(2, -2**70, -2), -2)):
            self.raises(IndexError, "index %d out of range (0, 6)" % position, a.__getitem__, key)
        self.assertRaises(ValueError, a.__getitem__, slice(0, 3, 0))
        self.assertRaises(TypeError, a.__getitem__, slice("a", None))

        class Clearing:
            def __index__(self):
                a.clear()
                return 0
        self.assertRaises(RuntimeError, a.__getitem__, slice(Clearing(), 6))

    def test_search_and_quirks(self):
        for cls, word, element, dtype, values, a in self.each():
            self.assertEqual([a.index(v) for v in values], list(range(5)))
            self.assertTrue(values[4] in a)
            absent = vec3(9, 9, 9) if element == "vec3" else 99
            self.assertFalse(absent in a)
            self.raises(ValueError, "%sArray.index(), element not found in %sArray" % (word, word), a.index, absent)
            self.raises(IndexError, "index 5 out of range (0, 5)", a.rindex, values[0])
            self.raises(IndexError, "index 0 out of range (0, 0)", cls().rindex, values[0])
            self.raises(NotImplementedError, "", a.sort)
            b = copy.copy(a)
            self.assertTrue(a == b and a.__neq__(b) and not a != b and cls() == cls())
            b.reverse()
            self.assertEqual(plain(b), plain(a)[::-1])
            self.assertTrue(a != b and not a.__neq__(b) and not cls(2) == cls(3))
            self.assertFalse(a == None or a == list(a))  # noqa: E711
            self.raises(RuntimeError, "core::Array, expected type 'core::Array' but got 'NoneType' instead",
                        a.__neq__, None)
            self.assertRaises(TypeError, a.__neq__, [1])
        self.assertFalse(IntArray(2) == FloatArray(2))

    def test_conversion_of_elements(self):
        a, f, d = IntArray(1), FloatArray(1), DoubleArray(1)
        for value in (True, numpy.int16(-5), 2**31 - 1):
            a[0] = value
            self.assertEqual(a[0], int(value))
        for value in (1.0, numpy.float32(1), None, 1j):
            self.assertRaises(TypeError, a.append, value)
        for value in (2**31, -2**31 - 1, 2**80):
            self.assertRaises(OverflowError, a.append, value)
        for value in (True, 7, numpy.float32(0.25), numpy.int64(3), 0.1):
            d[0] = f[0] = value
            self.assertEqual((d[0], f[0]), (float(value), float(numpy.float32(value))))
        f.extend([1e300, float("nan")])
        self.assertEqual((f[1], f == copy.copy(f)), (float("inf"), False))
        self.assertRaises(OverflowError, f.append, 10**400)
        self.assertRaises(TypeError, f.append, numpy.complex64(1))
        self.assertEqual((len(a), len(f)), (1, 3))
        points = Vec3Array(1)
        point = points[0]
        point.x = 5.0
        self.assertEqual(points[0].x, 0.0)  # reading gives a copy
        self.assertRaises(TypeError, points.append, (1.0, 2.0, 3.0))


class Memory(Family):
    def test_views_share_the_memory_and_hold_the_size(self):
        for cls, word, element, dtype, values, a in self.each():
            view = numpy.asarray(a)
            shape = (5, 3) if element == "vec3" else (5,)
            self.assertEqual((view.dtype, view.shape, view.flags.c_contiguous, view.flags.writeable),
                             (dtype, shape, True, True))
            a[0] = values[4]
            self.assertTrue((view[0] == view[4]).all())
            view[1] = view[2]
            self.assertEqual(*plain(a[1:3]))
            before = plain(a)
            for change in (lambda: a.resize(5), lambda: a.resize(9), lambda: a.append(values[0]),
                           lambda: a.extend(values), lambda: a.extend(a), lambda: a.extend([]), a.clear,
                           lambda: a.__init__(3), lambda: a.extend(memoryview(a)),
                           lambda: a.__setstate__(cls().__reduce__()[2])):
                self.assertRaisesRegex(BufferError, "Array, the size can not change while a view uses the memory$", change)
            self.assertEqual(plain(a), before)
            a.reverse()
            self.assertEqual(plain(a), before[::-1])
            del view
            self.assertRaises(BufferError, a.extend, memoryview(a))
            a.append(values[0])
            view = numpy.asarray(a)
            del a
            gc.collect()
            self.assertTrue((view[5] == numpy.asarray(copy.copy(view))[5]).all())
            self.assertEqual(memoryview(cls()).nbytes, 0)
            self.assertEqual(bytes(cls(2)), bytes(memoryview(cls(2)).nbytes))

    def test_extend_from_numbers_of_every_kind(self):
        numbers = numpy.array([0, 1, 5, 100, 127])
        for cls, word, element, dtype, values, a in self.each():
            if element == "vec3":
                continue
            kinds = "bBhHiIlLqQ" + ("" if element == "int" else "efd")
            for kind in kinds:
                for order in "<>":
                    for source in (numbers.astype(order + kind), numpy.repeat(numbers, 2).astype(order + kind)[::2],
                                   numbers[::-1].astype(order + kind)[::-1]):
                        b = cls()
                        b.extend(source)
                        self.assertEqual(list(b), numbers.tolist(), source.dtype)
            a = cls(1)
            for source in (array.array("i", [1, 2]), memoryview(array.array("b", [3])), b"\x04", bytearray([5]),
                           IntArray(1), [True, 6], (7,), range(8, 10), numpy.array([], float),
                           numpy.array([10, 11], object)):
                a.extend(source)
            self.assertEqual(list(a), [0, 1, 2, 3, 4, 5, 0, 1, 6, 7, 8, 9, 10, 11])
            a.extend(a)
            self.assertEqual(len(a), 28)
            for wrong in (numpy.zeros((2, 1), dtype), numpy.zeros((2, 3))):
                self.assertRaises((ValueError, TypeError), a.extend, wrong)
            self.assertEqual(len(a), 28)
        a = IntArray(1)
        for source in (numpy.array([1, 2**31]), numpy.array([2**32 - 1], "u4"), numpy.array([-2**31 - 1], ">i8"),
                       [1, 2**31]):
            self.assertRaises(OverflowError, a.extend, source)
        self.raises(TypeError, "IntArray.extend(), expected type 'int' at index 0 but got 'numpy.float32' instead",
                    a.extend, numpy.ones(2, numpy.float32))
        self.assertEqual(list(a), [0])
        points = Vec3Array()
        points.extend(numpy.arange(12, dtype=">f4").reshape(2, 6)[:, ::2])
        self.assertEqual(plain(points), [(0, 2, 4), (6, 8, 10)])
        self.assertRaises(ValueError, points.extend, numpy.zeros((3, 2)))
        self.assertRaises(TypeError, points.extend, numpy.zeros(3))

    def test_extend_that_fails_changes_nothing(self):
        for cls, word, element, dtype, values, a in self.each():
            before = plain(a)
            self.raises(TypeError, "%sArray.extend(), expected type '%s' at index 2 but got 'str' instead"
                        % (word, element), a.extend, values[:2] + ["x"])
            for wrong in (5, None, iter(values), {1, 2}):
                self.raises(TypeError, "%sArray.extend(), expected iterable but got '%s' instead"
                            % (word, type(wrong).__name__), a.extend, wrong)

            class Liar(list):
                length = 2**61

                def __len__(self):
                    return self.length
            self.raises(MemoryError, "%sArray.extend(), unable to allocate memory for extended array" % word,
                        a.extend, Liar(values))
            Liar.length = 7
            self.assertRaises(IndexError, a.extend, Liar(values))

            class Odd(list):
                def __getitem__(self, index):
                    raise KeyError("odd")
            self.assertRaises(KeyError, a.extend, Odd(values))
            self.assertEqual(plain(a), before)

    def test_items_with_code_of_their_own(self):
        a, source = FloatArray(2), [1.0]
        views = []

        class Meddler:
            def __float__(self):
                a.append(9.0)
                source.clear()
                return 5.0
        source += [Meddler(), 2.0]
        self.assertRaises(IndexError, a.extend, source)
        self.assertEqual(list(a), [0.0, 0.0, 9.0])

        class Viewer:
            def __float__(self):
                views.append(memoryview(a))
                return 5.0
        self.assertRaises(BufferError, a.extend, [Viewer()])
        views.clear()

        class Clearer:
            def __float__(self):
                a.clear()
                return 5.0
        self.assertRaises(IndexError, a.__setitem__, 2, Clearer())
        a.append(Clearer())
        self.assertEqual(list(a), [5.0])
        for _ in iter(a):
            a.clear()


class Objects(Family):
    def test_pickle_and_copy(self):
        for cls, word, element, dtype, values, a in self.each():
            before = plain(a)
            for other in [pickle.loads(pickle.dumps(a, protocol)) for protocol in range(6)] + \
                    [copy.copy(a), copy.deepcopy(a), pickle.loads(pickle.dumps(a)).__class__()]:
                self.assertEqual((type(other), len(other) in (0, 5)), (cls, True))
                self.assertTrue(other == a or len(other) == 0)
            self.assertEqual(len(pickle.loads(pickle.dumps(cls()))), 0)
            good = a.__reduce__()[2]
            for bad in (("<x",) + good[1:], good[:3] + (b"123",) + good[4:], good[:1] + (4,) + good[2:],
                        good[:4] + (5,)):
                self.assertRaises(ValueError, a.__setstate__, bad)
            for bad in (None, (), good[:3] + ("text", None)):
                self.assertRaises(TypeError, a.__setstate__, bad)
            self.assertEqual(plain(a), before)
        sized = SizedArray("here", 3)
        FloatArray.__setitem__(sized, 1, 4.0)
        for other in (pickle.loads(pickle.dumps(sized)), copy.deepcopy(sized)):
            self.assertEqual((type(other), other.first, list(other)), (SizedArray, "here", [0.0, 4.0, 0.0]))

    def test_subclasses(self):
        sized = SizedArray("x", 2)
        self.assertEqual((sized[0], FloatArray.__getitem__(sized, 0), numpy.asarray(sized).size), (-1.0, 0.0, 2))
        self.assertTrue(sized == FloatArray(2))
        never = Uninitialised()
        for call in (lambda: never[0], lambda: never.append(1.0), lambda: len(never), lambda: memoryview(never),
                     lambda: FloatArray().extend(never), lambda: never == FloatArray(), lambda: FloatArray() == never,
                     lambda: iter(never), lambda: repr(never), lambda: 1.0 in never, never.clear, never.reverse,
                     lambda: never[0:1], lambda: never.__reduce__(), lambda: never.rindex(1.0)):
            self.assertRaises((RuntimeError, BufferError), call)
        FloatArray.__init__(never, 4)
        self.assertEqual(len(never), 4)

        class Both(IntArray, FloatArray):
            pass
        both = Both(3)
        self.assertEqual(IntArray.size(both), 3)
        self.assertRaises(RuntimeError, FloatArray.size, both)
        self.assertRaises(TypeError, FloatArray.append, IntArray(), 1)

    def test_no_memory_is_lost(self):
        def round_trip():
            for cls, word, element, dtype, values in FAMILY:
                a = cls(200)
                a.extend(values)
                for call in (lambda: a[99999], lambda: a.append("x"), lambda: a.extend([values[0], "x"])):
                    try:
                        call()
                    except (IndexError, TypeError):
                        pass
                view = numpy.asarray(a)
                a == pickle.loads(pickle.dumps(a))
                a[1:9:2], list(a), a.index(values[0]), repr(a), view.sum()
        def work(rounds):
            for _ in range(rounds):
                round_trip()

        if leaks.under_address_sanitizer():
            work(300)
        else:
            self.assertLess(leaks.growth(work, 300, 4000), 2000)

    def test_long_arrays_let_other_threads_run(self):
        a, b = FloatArray(3_000_000), FloatArray(3_000_000)
        stop = threading.Event()
        refused = []

        def meddle():
            while not stop.is_set():
                try:
                    a.append(1.0)
                    a.resize(3_000_000)
                except BufferError:
                    refused.append(1)
        thread = threading.Thread(target=meddle)
        thread.start()
        for _ in range(100):
            a == b, a.reverse(), 5.0 in a
        stop.set()
        thread.join()
        a.resize(3_000_000)
        self.assertTrue(a == b)


if __name__ == "__main__":
    unittest.main()
