"""What is a float has one answer, wherever a script hands one over."""
import decimal
import fractions
import unittest

import numpy as np
from strativo_python import (ColorBar, Contouring, DoubleArray, FloatArray, Image2d, Image3d, PointF, Rect2D, mat3, vec2,
                             vec3)


def places():
    """Functions that take a number and give back what arrived."""
    vector, contouring, rect = vec3(), Contouring(), Rect2D()

    def through(read, write):
        def place(number):
            write(number)
            return read()
        return place

    def of(made, key, *setter):
        return through(lambda: made[key], lambda n: setter[0](n) if setter else made.__setitem__(key, n))

    image, cube, floats, doubles = Image2d(1, 1), Image3d(1, 1, 1), FloatArray(1), DoubleArray(1)
    growing = DoubleArray()
    yield through(lambda: vector.x, lambda n: setattr(vector, "x", n))
    yield through(lambda: vector[1], lambda n: vector.__setitem__(1, n))
    yield lambda n: vec2(n, 0).x
    yield lambda n: (vec2(1, 0) * n).x
    yield lambda n: mat3(n)[2].z
    yield through(lambda: rect.left, lambda n: setattr(rect, "left", n))
    yield of(image, (0, 0))
    yield of(image, (0, 0), lambda n: image.setValue(0, 0, n))
    yield of(image, (0, 0), image.fill)
    yield of(cube, (0, 0, 0))
    yield of(floats, 0)
    yield of(doubles, 0)
    yield through(lambda: growing[len(growing) - 1], growing.append)
    yield through(lambda: growing[len(growing) - 1], lambda n: growing.extend([n]))
    yield lambda n: PointF(n, 0).x
    yield through(lambda: contouring.min, lambda n: setattr(contouring, "min", n))
    yield lambda n: ColorBar().setRange(0, n) or n


class Floats(unittest.TestCase):
    def test_real_numbers_arrive_everywhere(self):
        numbers = [2.5, 2, True, fractions.Fraction(1, 2), decimal.Decimal(4), np.array(2.5), np.array(3), np.array(True)]
        numbers += [np.dtype(code).type(1) for code in "?bBhHiIlLqQefdg"]
        for index, place in enumerate(places()):
            for number in numbers:
                with self.subTest(place=index, number=repr(number)):
                    self.assertEqual(place(number), float(number))

    def test_complex_numbers_and_arrays_with_a_length_never_do(self):
        others = [1j, np.complex64(1 + 2j), np.complex128(1), np.clongdouble(1), np.array(1j), np.array([2.0]),
                  np.array([[2.0]]), np.datetime64(1, "s"), np.timedelta64(1, "s"), np.array("1"), np.str_("1"),
                  np.bytes_(b"1"), np.array(None), "1", b"1", None, [1.0], np.zeros((), "f4,f4")]
        for index, place in enumerate(places()):
            for other in others:
                # An image takes an array for its only pixel, and NumPy multiplies by itself what a vector refuses.
                if index == 8 and (isinstance(other, bytes) or np.shape(other)) or index == 3 and np.shape(other):
                    continue
                with self.subTest(place=index, other=repr(other)), self.assertRaises((TypeError, RuntimeError)):
                    place(other)
