"""The geometry values: arithmetic, texts, errors, references into matrices, subclasses, copies, memory."""
import copy
import gc
import math
import operator
import pickle
import sys
import tracemalloc
import unittest
import weakref

import leaks
import numpy
import strativo_python as sp
from strativo_python import Rect2D, Rect3D, mat3, mat4, vec2, vec3, vec4

VECTORS = {vec2: 2, vec3: 3, vec4: 4}
MATRICES = {mat3: (3, vec3), mat4: (4, vec4)}


class Named(vec3):
    """A subclass whose __init__ asks for something else, with an operator of its own."""

    def __init__(self, name):
        super().__init__(1, 2, 3)
        self.name = name

    def __rmul__(self, other):
        return "overridden"


class Uninitialised(vec3):
    def __init__(self):
        pass


class UninitialisedMatrix(mat4):
    def __init__(self):
        pass


class UninitialisedBox(Rect2D):
    def __init__(self):
        pass


def samples():
    return [vec2(1, -2.5), vec3(1, 2, math.inf), vec4(1, 2, 3, 1e-300), mat3(vec3(1, 2, 3), vec3(), vec3(7, 8, 10)),
            mat4(2.5), Rect2D(vec2(1, 2), vec2(3, 4)), Rect3D(vec3(1, 2, 3), vec3(4, 5, 6))]


def rows(matrix):
    return [list(row) for row in matrix]


def transform(matrix, point):
    """The homogeneous rule by numpy."""
    result = numpy.array(rows(matrix)) @ numpy.array(list(point) + [1.0])
    return result[:-1] / result[-1]


class Vectors(unittest.TestCase):
    def test_components_and_operators(self):
        for Vector, size in VECTORS.items():
            numbers, others = [1.5, -2.0, 4.0, 8.0][:size], [3.0, 5.0, -7.0, 0.5][:size]
            v, w = Vector(*numbers), Vector(*others)
            self.assertEqual(list(Vector()), [0.0] * size)
            self.assertEqual([getattr(v, name) for name in "xyzw"[:size]], numbers)
            self.assertEqual(list(v + w), [a + b for a, b in zip(numbers, others)])
            self.assertEqual(list(v - w), [a - b for a, b in zip(numbers, others)])
            self.assertEqual(list(-v), [-a for a in numbers])
            self.assertEqual(v * w, sum(a * b for a, b in zip(numbers, others)))
            for two in (2, 2.0, numpy.float32(2), numpy.int64(2)):
                self.assertEqual(list(v * two), [a * 2 for a in numbers])
                self.assertEqual(list(v / two), [a / 2 for a in numbers])
            self.assertEqual(list(v * True), numbers)
            self.assertEqual(v.lengthSquared, v * v)
            self.assertEqual(v.length, math.sqrt(v * v))
            u = v
            u += w
            u -= Vector(*[1.0] * size)
            u *= 4
            u /= 2
            self.assertIs(u, v)
            self.assertEqual(list(v), [(a + b - 1) * 2 for a, b in zip(numbers, others)])
            self.assertIs(v.normalize(), v)
            self.assertAlmostEqual(v.length, 1.0)
            self.assertTrue(all(math.isnan(c) for c in Vector().normalize()))
            v[size - 1] = 7
            self.assertEqual(getattr(v, "xyzw"[size - 1]), 7.0)
            v.x = 1
            self.assertEqual(v[0], 1.0)
            self.assertNotEqual(Vector(), Vector())
            self.assertEqual(len({v: 1, v: 2}), 1)
        self.assertEqual(list(vec3(x=1, z=3, y=2)), [1, 2, 3])
        self.assertEqual(list(vec3(1, 2, 3) ^ vec3(-2, 5, 7)), [-1, -13, 9])
        self.assertEqual(list(vec2(1, 0) ^ vec2(0, 1)), [0, 0, 1])
        self.assertIsInstance(vec2() ^ vec2(), vec3)

    def test_refusals_leave_the_vector_alone(self):
        for Vector, size in VECTORS.items():
            name = Vector.__name__
            v = Vector(*range(1, size + 1))
            foreign = vec2() if size > 2 else vec4()
            wrong_types = [
                lambda: v + 1, lambda: 1 + v, lambda: v - foreign, lambda: 2.0 * v, lambda: numpy.float64(2) * v,
                lambda: v * None, lambda: v * "2", lambda: v * 1j, lambda: v * [1.0], lambda: v / v, lambda: v / "1",
                lambda: v.__iadd__(1), lambda: v.__isub__(foreign), lambda: v.__imul__(v), lambda: v.__itruediv__(v),
                lambda: v["0"], lambda: v[0.0], lambda: v[0:1], lambda: v.__setitem__(0, "a"),
                lambda: setattr(v, "x", None), lambda: delattr(v, "x"), lambda: operator.delitem(v, 0),
                lambda: Vector("a", *range(1, size)), lambda: Vector(1), lambda: Vector(*range(size + 1)),
                lambda: Vector(q=1), lambda: v.__setstate__(None), lambda: v.__setstate__((["a"], None)),
                lambda: v.__setstate__((tuple("a" * size), None))]
            if size == 4:
                wrong_types.append(lambda: v ^ v)
            for number, action in enumerate(wrong_types):
                with self.subTest(name, number=number), self.assertRaises(TypeError):
                    action()
            for divisor in (0, 0.0, -0.0):
                for divide in (lambda: v / divisor, lambda: v.__itruediv__(divisor)):
                    with self.assertRaisesRegex(ZeroDivisionError, "^division by zero$"):
                        divide()
            getting = "setting" if size == 4 else "getting"
            for index in (size, 70000):
                with self.assertRaisesRegex(IndexError, r"^%s\(\), invalid index %d when %s element of %s$" % (
                        name, index, getting, name)):
                    v[index]
                with self.assertRaisesRegex(IndexError, r"^%s\(\), invalid index %d when setting element of %s$" % (
                        name, index, name)):
                    v[index] = 1.0
            for index in (-1, 1 << 80):
                with self.assertRaises(OverflowError):
                    v[index]
            for overflow in (lambda: Vector(*[10 ** 400] * size), lambda: v * 10 ** 400,
                             lambda: setattr(v, "y", 10 ** 400)):
                with self.assertRaises(OverflowError):
                    overflow()
            with self.assertRaises(AttributeError):
                v.length = 1
            with self.assertRaises(ValueError):
                v.__setstate__(((1.0,), None))
            self.assertEqual(list(v), list(range(1, size + 1)))

    def test_texts(self):
        self.assertEqual(str(vec2(1, 2.5)), "1.000000 , 2.500000")
        self.assertEqual(str(vec3(1, 2, -0.0000004)), "1.000000 , 2.000000 , -0.000000")
        self.assertEqual(str(vec4(1, 2, 3, 4)), "1.000 , 2.000 , 3.000 , 4.000")
        self.assertEqual(str(mat3(vec3(1, 0, 0), vec3(0, 1, 0), vec3(0, 0, 1))),
                         "|1.0000||0.0000||0.0000|\n|0.0000||1.0000||0.0000|\n|0.0000||0.0000||1.0000|\n")
        self.assertEqual(str(mat4(1)), "|1.0000||1.0000||1.0000||1.0000|\n" * 4)
        self.assertEqual(str(Rect2D(vec2(1, 2), vec2(3, 4))),
                         "------------- HVRect2D dump<br>Top Left: 1.000000 , 2.000000<br>"
                         "Bottom Right: 3.000000 , 4.000000<br>------------- END HVRect2D dump")
        self.assertEqual(str(Rect3D(vec3(1, 2, 3), vec3(4, 5, 6))),
                         "------------- HVRect3D dump<br>Top Left Front: 1.000000 , 2.000000 , 3.000000<br>"
                         "Bottom Right Back: 4.000000 , 5.000000 , 6.000000<br>------------- END HVRect3D dump")
        self.assertEqual(repr(vec3(1, 2.5, math.nan)), "vec3(1, 2.5, nan)")
        for value in samples()[3:]:
            self.assertEqual(str(eval(repr(value), vars(sp))), str(value))


class Matrices(unittest.TestCase):
    def test_arithmetic(self):
        random = numpy.random.default_rng(7)
        for Matrix, (size, Row) in MATRICES.items():
            a, b = random.normal(size=(2, size, size))
            m, n = (Matrix(*[Row(*row) for row in values]) for values in (a, b))
            self.assertEqual(rows(Matrix()), [[0.0] * size] * size)
            self.assertEqual(rows(Matrix(2)), [[2.0] * size] * size)
            for result, expected in ((m + n, a + b), (m - n, a - b), (m * n, a @ b), (m * 3, a * 3), (3.0 * m, a * 3),
                                     (numpy.float64(3) * m, a * 3), (m / 4, a / 4), (m.transpose(), a.T),
                                     (m.invert(), numpy.linalg.inv(a))):
                numpy.testing.assert_allclose(rows(result), expected, rtol=1e-12, atol=1e-14)
            self.assertAlmostEqual(m.determinant, numpy.linalg.det(a))
            self.assertTrue(m.isInvertible())
            same = m
            same += n
            same -= Matrix(1)
            same *= 2
            self.assertIs(same, m)
            self.assertIs(m.__idiv__(4), m)
            numpy.testing.assert_allclose(rows(m), (a + b - 1) / 2)
            same /= 2
            self.assertIsNot(same, m)
            self.assertTrue(all(math.isinf(c) for row in Matrix(1) / 0 for c in row))
            with self.assertRaisesRegex(RuntimeError, r"^%s\.invert\(\), matrix is not invertible$" % Matrix.__name__):
                Matrix(2).invert()
            self.assertFalse(Matrix(2).isInvertible())
            other = vec3() if size == 3 else vec2()
            for number, action in enumerate((
                    lambda: m * other, lambda: other * m, lambda: m * "a", lambda: m + 1, lambda: m.__iadd__(Row()),
                    lambda: m.__imul__(n), lambda: m.__idiv__(n), lambda: m / None, lambda: m["a"],
                    lambda: m.__setitem__(0, [1.0] * size), lambda: Matrix("a"), lambda: Matrix(Row()),
                    lambda: -m, lambda: Matrix(*[vec2()] * size))):
                with self.subTest(Matrix.__name__, number=number), self.assertRaises(TypeError):
                    action()
        self.assertTrue(mat3(1) == mat3(1) and mat3(1) != mat3(2) and not mat3(1) != mat3(1) and mat3(1) != 1)
        self.assertFalse(mat3(math.nan) == mat3(math.nan))
        self.assertFalse(mat4(1) == mat4(1))

    def test_vectors(self):
        m3 = mat3(vec3(1, 2, 3), vec3(4, 5, 6), vec3(0.5, 0.25, 2))
        m4 = mat4(vec4(1, 2, 3, 4), vec4(4, 5, 6, -7), vec4(2, 8, 9, 1), vec4(0.5, 0.25, 2, 3))
        for matrix, point in ((m3, vec2(3, 4)), (m4, vec3(3, 4, 5))):
            numpy.testing.assert_allclose(list(matrix * point), transform(matrix, point), rtol=1e-15)
            numpy.testing.assert_allclose(list(point * matrix), transform(matrix.transpose(), point), rtol=1e-15)
        v = vec4(1, 2, 3, 4)
        self.assertEqual(list(m4 * v), list(numpy.array(rows(m4)) @ list(v)))
        self.assertEqual(list(v * m4), list(numpy.array(rows(m4)).T @ list(v)))
        self.assertTrue(all(math.isnan(c) for c in mat3() * vec2(1, 1)))

    def test_rows_are_references(self):
        for Matrix, (size, Row) in MATRICES.items():
            name = Matrix.__name__
            m = Matrix()
            m[0][1] = 7.0
            m[1].y = 2
            m[2] += Row(*[1.0] * size)
            m[0].normalize()
            row = m[1]
            m[1] = Row(*[5.0] * size)
            self.assertEqual(list(row), [5.0] * size)
            self.assertEqual([m[0][1], m[1][1], m[2][0]], [1.0, 5.0, 1.0])
            self.assertEqual(list((row + row) * 2), [20.0] * size)
            died = weakref.ref(m)
            del m
            row.x = 6
            self.assertEqual(row[0], 6.0)
            self.assertIsNotNone(died())
            copied = copy.copy(row)
            del row
            self.assertIsNone(died())
            self.assertEqual(copied.x, 6.0)
            for index in (size, -1):
                with self.assertRaisesRegex(IndexError, r"^%s\(\), invalid index %d when getting" % (name, index)):
                    Matrix()[index]
                with self.assertRaisesRegex(IndexError, r"^%s\(\), invalid index %d when setting element of %s$" % (
                        name, index, name)):
                    Matrix()[index] = Row()


class Boxes(unittest.TestCase):
    def test_rect2d(self):
        box = Rect2D(vec2(1, 2), vec2(4, 8))
        self.assertEqual([box.left, box.top, box.right, box.bottom, box.width, box.height], [1, 2, 4, 8, 3, 6])
        self.assertEqual([list(c) for c in (box.topLeft, box.bottomLeft, box.topRight, box.bottomRight, box.center)],
                         [[1, 2], [1, 8], [4, 2], [4, 8], [2.5, 5]])
        box.topLeft = vec2(0, 1)
        box.bottomRight = vec2(10, 11)
        box.bottomLeft = vec2(-1, 12)
        box.topRight = vec2(9, 3)
        self.assertEqual([box.left, box.top, box.right, box.bottom], [-1, 3, 9, 12])
        box.width, box.height, box.left = 4, 5.5, 2
        self.assertEqual([box.right, box.bottom, box.width], [3, 8.5, 1])
        for action in (lambda: setattr(box, "topLeft", (1, 2)), lambda: setattr(box, "width", "1"),
                       lambda: box.intersects(None), lambda: box.intersects(), lambda: box.intersection(box, box),
                       lambda: box.intersection(b=box), lambda: Rect2D(vec2()), lambda: Rect2D(vec3(), vec3())):
            self.assertRaises(TypeError, action)
        self.assertRaises(AttributeError, setattr, box, "center", vec2())
        self.assertFalse(Rect2D() == Rect2D())
        self.assertTrue(Rect2D().isNull() and Rect2D().isValid() and not box.isNull())
        self.assertFalse(Rect2D(vec2(1, 0), vec2(0, 1)).isValid())
        a, b = Rect2D(vec2(0, 0), vec2(2, 2)), Rect2D(topLeft=vec2(2, 1), bottomRight=vec2(3, 5))
        self.assertTrue(a.intersects(b) and a.intersection(other=b).isValid())
        b.left = 2.5
        self.assertFalse(a.intersects(other=b))
        self.assertEqual(repr(a.intersection(b)), "Rect2D(vec2(2.5, 1), vec2(2, 2))")

    def test_rect3d(self):
        box = Rect3D(vec3(1, 2, 3), vec3(4, 8, 13))
        self.assertEqual([box.left, box.top, box.front, box.right, box.bottom, box.back], [1, 2, 3, 4, 8, 13])
        self.assertEqual([box.width, box.height, box.depth, list(box.center)], [3, 6, 10, [2.5, 5, 8]])
        box.width, box.height, box.depth, box.front = 1, 2, 3, 5
        self.assertEqual([box.right, box.bottom, box.back, box.depth], [2, 4, 6, 1])
        self.assertTrue(box == copy.copy(box) and not box != copy.copy(box) and box != Rect3D() and box != 1)
        self.assertFalse(hasattr(box, "topLeft"))
        other = Rect3D(vec3(2, 4, 6), vec3(9, 9, 9))
        self.assertTrue(box.intersects(other) and box.intersection(other).isNull())
        other.front = 6.5
        self.assertFalse(box.intersects(other) or box.intersection(other).isValid())
        self.assertRaises(TypeError, box.intersects, Rect2D())


class Objects(unittest.TestCase):
    def test_subclasses(self):
        named = Named("well")
        self.assertEqual([list(named + named), named.name, named.x], [[2, 4, 6], "well", 1])
        self.assertEqual(mat4(1) * named, "overridden")
        self.assertIs(type(named + named), vec3)
        self.assertRaises(TypeError, lambda: named + 1)
        with self.assertRaises(TypeError):
            named += 1
        for value, actions in ((Uninitialised(), ("x", "length", "normalize", "__reduce__")),
                               (UninitialisedMatrix(), ("determinant", "invert", "__str__")),
                               (UninitialisedBox(), ("center", "isValid", "__repr__"))):
            for action in actions:
                with self.subTest(action), self.assertRaises(TypeError):
                    getattr(value, action)()
        hollow = Uninitialised()
        for action in (lambda: hollow + vec3(), lambda: vec3() + hollow, lambda: mat4() * hollow, lambda: hollow[0],
                       lambda: -hollow, lambda: vec3().__iadd__(hollow), lambda: hollow.__setitem__(0, 1.0),
                       lambda: setattr(hollow, "x", 1.0), lambda: repr(hollow),
                       lambda: Rect3D(hollow, vec3()), lambda: mat4().__setitem__(0, hollow)):
            self.assertRaises(TypeError, action)
        self.assertRaises(TypeError, lambda: UninitialisedMatrix()[0])

    def test_copies_and_pickles(self):
        for value in samples() + [Named("kept")]:
            value.note = ["shared"]
            for make in (copy.copy, copy.deepcopy, *(lambda v, p=p: pickle.loads(pickle.dumps(v, p)) for p in range(6))):
                made = make(value)
                self.assertIs(type(made), type(value))
                self.assertEqual([repr(made), vars(made)], [repr(value), vars(value)])
                self.assertEqual(made.note is value.note, make is copy.copy)
        changed = copy.copy(samples()[3])
        changed[0].x = 99
        self.assertEqual(samples()[3][0].x, 1)

    def test_objects_are_used_again_without_traces(self):
        v = vec3(1, 2, 3)
        v.tag = "attribute"
        reference = weakref.ref(v)
        v.__init__(7, 8, 9)
        self.assertEqual(list(v), [7, 8, 9])
        del v
        self.assertIsNone(reference())
        kept = [mat4(1)[0] for _ in range(100)] + [vec4(1, 1, 1, 1) for _ in range(100)]
        del kept
        gc.collect()
        for fresh in [vec3() for _ in range(1000)] + [mat4(1)[0] for _ in range(1000)] + [vec4() for _ in range(1000)]:
            self.assertEqual(vars(fresh), {})
        self.assertEqual(list(vec3()), [0, 0, 0])

    def test_no_memory_is_kept(self):
        def work(rounds):
            v, w, m, box = vec3(1, 2, 3), vec3(4, 5, 6), mat4(1.5), Rect2D()
            for i in range(rounds):
                u = v + w
                u -= w
                u[0] = m[1][2]
                m * u, m[i & 3], vec3(1.0, 2.0, 3.0), mat4(2.0), m * m, box.topLeft, box.intersects(box), u.length
                if not i & 15:
                    Named("x"), str(u), repr(m), copy.copy(u), list(u), vec3(x=1, y=2, z=3), m[0].normalize()
                    try:
                        u + 1 if i & 16 else vec3("a")
                    except TypeError:
                        pass

        work(20000)
        classes = [sys.getrefcount(c) for c in (vec3, Named, mat4)]
        grown = leaks.growth(work, 20000, 1000000)
        if not leaks.under_address_sanitizer():
            self.assertLess(grown, 1024)
        for count, cls in zip(classes, (vec3, Named, mat4)):
            self.assertLess(abs(sys.getrefcount(cls) - count), 300)
        tracemalloc.start()
        work(1000)
        gc.collect()
        start = tracemalloc.get_traced_memory()[0]
        work(20000)
        gc.collect()
        self.assertLess(tracemalloc.get_traced_memory()[0] - start, 20000)
        tracemalloc.stop()
