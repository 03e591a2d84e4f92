"""Points, sizes, rectangles, colours, pens, fonts, icons and dragged data as values."""
import copy
import pickle
import tempfile
import unittest

from strativo_python import Color, Colors, Font, Icon, MimeData, Pen, PenStyle, Point, PointF, Rectangle, Size

MAX = 2**31 - 1


class Pairs(unittest.TestCase):
    def test_construction_and_numbers(self):
        for kind, names in ((Point, ("x", "y")), (PointF, ("x", "y")), (Size, ("width", "height"))):
            value = kind(**{names[1]: 4})
            self.assertEqual((getattr(value, names[0]), getattr(value, names[1])), (0, 4))
            setattr(value, names[0], -3)
            first, second = value
            self.assertEqual((first, second, repr(value)), (-3, 4, "%s(-3, 4)" % kind.__name__))
            self.assertEqual(list(kind((1, 2))), list(kind(kind(1, 2))))
            for bad in (lambda: kind("1", 2), lambda: kind(1, 2, 3), lambda: kind(z=1), lambda: kind((1, 2, 3)),
                        lambda: kind(None), lambda: hash(value), lambda: delattr(value, names[0])):
                self.assertRaises(TypeError, bad)
            for index in (-1, 2):
                self.assertRaises(IndexError, value.__getitem__, index)
        self.assertEqual(PointF(Point(1, 2)) + Point(1, 1), PointF(2, 3))
        self.assertEqual(Point(1, 1) + PointF(0.5, 0), PointF(1.5, 1))

    def test_whole_numbers_are_32_bits_and_nothing_wraps(self):
        edge = Point(MAX, -MAX - 1)
        self.assertEqual((edge.x, edge.y), (MAX, -MAX - 1))
        for bad in (lambda: Point(MAX + 1, 0), lambda: Size(0, -MAX - 2), lambda: Point(2**70, 0),
                    lambda: Point(x=MAX + 1), lambda: setattr(edge, "y", 2**31), lambda: -edge,
                    lambda: edge + Point(1, 0), lambda: edge * 1.5, lambda: Size(1, 1) * float("nan")):
            self.assertRaises(OverflowError, bad)
        self.assertEqual(edge, Point(MAX, -MAX - 1))
        self.assertRaises(TypeError, Point, 1.0, 2)

    def test_arithmetic(self):
        self.assertEqual(Point(3, 4) + Point(1, 1) - Point(0, 5), Point(4, 0))
        self.assertEqual((Point(3, 5) / 2, Point(-3, -5) * 0.5, 2 * Size(3, 4)),
                         (Point(2, 3), Point(-1, -2), Size(6, 8)))
        self.assertEqual(PointF(3, 4) / 8, PointF(0.375, 0.5))
        self.assertNotEqual(PointF(1, 1), PointF(1 + 2**-50, 1))
        self.assertNotEqual(Point(1, 2), Size(1, 2))
        self.assertRaises(ZeroDivisionError, lambda: Point(1, 2) / 0)
        for bad in (lambda: Point(1, 2) + (1, 2), lambda: Point() + Size(), lambda: Point() * Point(),
                    lambda: 2 / Point()):
            self.assertRaises(TypeError, bad)
        numbers = [1, 2]
        numbers += Point(3, 4)
        self.assertEqual(numbers, [1, 2, 3, 4])

    def test_subclass(self):
        class Corner(Point):
            def __init__(self, label, *numbers):
                super().__init__(*numbers)
                self.label = label

        corner = pickle.loads(pickle.dumps(Point(1, 2)))
        self.assertEqual((Corner("a", 1, 2), type(Corner("a") + corner)), (corner, Point))
        again = copy.copy(Corner("b", 5, 6))
        self.assertEqual((again.label, again.x, repr(again)), ("b", 5, "Corner(5, 6)"))
        self.assertRaises(TypeError, lambda: Corner.__new__(Corner).x)


class Rectangles(unittest.TestCase):
    def test_corners_are_pixels_inside(self):
        r = Rectangle(10, 20, 30, 40)
        self.assertEqual((r.topLeft, r.topRight, r.bottomLeft, r.size), (Point(10, 20), Point(39, 20), Point(10, 59),
                                                                        Size(30, 40)))
        self.assertEqual(r, Rectangle(size=(30, 40), topLeft=Point(10, 20)))
        self.assertEqual([r.contains(p) for p in (r.topRight, (40, 20), Point(10, 59), (10, 60), (9, 20))],
                         [True, False, True, False, False])
        self.assertEqual([r.contains(p, proper=True) for p in ((10, 20), (39, 59), (11, 58), (38, 21), (38, 59))],
                         [False, False, True, True, False])
        self.assertTrue(r.contains(point=(10, 20), proper=False))
        r.topLeft = (0, 0)
        self.assertEqual((r.width, r.height), (40, 60))
        r.bottomLeft, r.topRight = (5, 9), Point(14, 5)
        self.assertEqual(repr(r), "Rectangle(5, 5, 10, 5)")
        r.size, r.width = (7, 8), 9
        self.assertEqual(r, Rectangle(5, 5, 9, 8))

    def test_errors(self):
        r = Rectangle(5, 5, 9, 8)
        for expected, arguments, name in (
                ("Point", (None,), "NoneType"), ("Point", (3,), "int"), ("Point", ((1, 2, 3), None), "tuple"),
                ("bool", ((6, 6), None), "NoneType"), ("bool", ((6, 6), 1), "int"), ("bool", ((6, 6), "x"), "str")):
            with self.assertRaises(TypeError) as caught:
                r.contains(*arguments)
            self.assertEqual(str(caught.exception),
                             "Rectangle.contains(), expected '%s' but got '%s' instead" % (expected, name))
        for bad in (lambda: Rectangle(MAX, 0, 2, 1), lambda: setattr(r, "width", MAX), lambda: r.contains((2**31, 0)),
                    lambda: setattr(r, "topLeft", (-MAX, 0)), lambda: setattr(r, "height", 2**31)):
            self.assertRaises(OverflowError, bad)
        for bad in (lambda: Rectangle((1, 2)), lambda: Rectangle(1, 2, 3, "4"), lambda: setattr(r, "size", 5),
                    lambda: Rectangle((1, 2), (3, 4), (5, 6)), lambda: hash(r)):
            self.assertRaises(TypeError, bad)
        self.assertEqual(r, Rectangle(5, 5, 9, 8))


class Drawing(unittest.TestCase):
    def test_what_stands_for_a_colour(self):
        orange = Color(255, 128, 0)
        pen = Pen()
        for form in (orange, "#ff8000", (255, 128, 0), [255, 128, 0, 255]):
            pen.color = form
            self.assertEqual((pen.color, Color(form)), (orange, orange))
        self.assertEqual((Color(Colors.DarkCyan), Color("steelblue"), Color("#10203040"), Color(7).red),
                         (Color(0, 128, 128), Color(70, 130, 180), Color(32, 48, 64, 16), 7))
        self.assertEqual((repr(orange), repr(Color(1, 2, 3, 4)), orange.name, Color(Colors.Transparent).name),
                         ("Color(255, 128, 0)", "Color(1, 2, 3, 4)", "#ff8000", "#00000000"))
        for bad in ("nocolour", "", (1, 2, 256), Colors(99)):
            self.assertRaises(ValueError, Color, bad)
        for bad in (None, (1, 2), (1, 2, 3.5), 1.5):
            self.assertRaises(TypeError, setattr, pen, "color", bad)
        self.assertRaises(TypeError, hash, orange)
        self.assertEqual(pen.color, orange)

    def test_pens(self):
        pen = Pen("#ff8000", 2.5, PenStyle.DotLine)
        self.assertEqual(repr(pen), "Pen(Color(255, 128, 0), 2.5, PenStyle.DotLine)")
        self.assertEqual((Pen().width, Pen(style=PenStyle.NoPen).style), (1, PenStyle.NoPen))
        for bad in (lambda: Pen(width=-1), lambda: Pen(style=PenStyle(9))):
            self.assertRaises(ValueError, bad)

    def test_fonts(self):
        font = Font("Sérif 漢", 10.5, italic=True)
        self.assertEqual(repr(font), "Font('Sérif 漢', 10.5, italic=True)")
        font.weight, font.underline, font.pixelSize = 75, True, 20
        self.assertEqual((font.bold, font.pointSize, font.pixelSize, font == Font("Sérif 漢", 10.5, italic=True)),
                         (True, -1, 20, False))
        for name, bad in (("pointSize", 0), ("pointSizeF", float("nan")), ("pixelSize", -1), ("weight", 100)):
            self.assertRaises(ValueError, setattr, font, name, bad)
        self.assertRaises(ValueError, Font, "Sans", 0)
        self.assertEqual((font.pixelSize, font.weight), (20, 75))

    def test_copies_are_equal_and_apart(self):
        precise = Color()
        precise.redF = 0.123
        for value in (Point(1, 2), PointF(0.1, 1e300), Size(-1, 0), Rectangle(1, 2, 3, 4), precise,
                      Pen("red", 0.5, PenStyle.DashLine), Font("Sérif", 9, underline=True)):
            for again in (pickle.loads(pickle.dumps(value)), copy.copy(value), copy.deepcopy(value)):
                self.assertEqual(again, value)
                self.assertIsNot(again, value)


class Dragged(unittest.TestCase):
    def test_text_and_html(self):
        data = MimeData()
        self.assertEqual((data.hasText, data.hasHtml, data.hasObjects, data.text, data.html, data.objectIds,
                          data.objectFilenames), (False, False, False, "", "", [], []))
        data.text, data.html = "Größe 漢", "<b>ø</b>"
        self.assertEqual((data.hasText, data.hasHtml, data.text, data.html), (True, True, "Größe 漢", "<b>ø</b>"))
        with self.assertRaises(TypeError) as caught:
            data.text = 5
        self.assertEqual(str(caught.exception), "MimeData.text, expected 'str' but got 'int'")
        self.assertRaises(AttributeError, setattr, data, "hasText", True)


class Icons(unittest.TestCase):
    def test_what_is_no_icon(self):
        with tempfile.TemporaryDirectory() as folder:
            absent = folder + "/absent.png"
            for make, error, text in (
                    (lambda: Icon(5), TypeError, "Icon, expected 'str' but got 'int' instead"),
                    (lambda: Icon(absent), FileNotFoundError, "Icon, file '%s' does not exist" % absent),
                    (lambda: Icon(folder), PermissionError, "Icon, file '%s' is not readable" % folder),
                    (lambda: Icon.getBuiltinIcon(None), TypeError, "Icon, expected 'str' but got 'NoneType' instead"),
                    (lambda: Icon.getBuiltinIcon("x?"), RuntimeError,
                     "Icon.getBuiltinIcon(), requested icon 'x?' not found")):
                with self.assertRaises(error) as caught:
                    make()
                self.assertEqual(str(caught.exception), text)
        self.assertIsNone(Icon.getPluginIcon("icon.svg"))
