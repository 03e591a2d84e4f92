"""One rule each for the numbers, indices, texts and paths that functions take, in tables of all that take them."""
import fractions
import os
import pathlib
import tempfile
import unittest

import numpy as np
from strativo_python import (BlockSpace, CheckBox, ColorBar, ComboBox, Contouring, Crs, DoubleArray, FilePathLineEdit, FloatArray,
                             HBoxLayout, Image2d, Image3d, IntArray, Label, LineEdit, MimeData, Pen, Point, PointF, Size, Splitter,
                             StackedWidget, TabWidget, Vec3Array, Widget, getMainWindowMenu, mat3, mat4, vec2, vec3, vec4)


def property_of(thing, name):
    return lambda value: setattr(thing, name, value)


def box():
    made = ComboBox()
    made.addItem("one")
    return made


def tabs():
    made = TabWidget()
    made.addTab(Widget(), "one")
    return made


def stack():
    made = StackedWidget()
    made.addWidget(Widget())
    return made


def row():
    made = HBoxLayout()
    made.addWidget(Widget())
    return made


def splitter():
    made = Splitter()
    made.addWidget(Widget())
    return made


# Arrays and images are fast and take an int or a subclass of it only.
STRICT = ("IntArray", "FloatArray", "DoubleArray", "Vec3Array", "array set", "Image2d", "Image3d", "Image2d set")
# How an index is used, and how many there are.
INDICES = {
    "vec2": (lambda i: vec2()[i], 2), "vec3": (lambda i: vec3()[i], 3), "vec4": (lambda i: vec4()[i], 4),
    "mat3": (lambda i: mat3()[i], 3), "mat4": (lambda i: mat4()[i], 4), "mat row": (lambda i: mat4()[0][i], 4),
    "IntArray": (lambda i: IntArray(1)[i], 1), "FloatArray": (lambda i: FloatArray(1)[i], 1),
    "DoubleArray": (lambda i: DoubleArray(1)[i], 1), "Vec3Array": (lambda i: Vec3Array(1)[i], 1),
    "array set": (lambda i: IntArray(1).__setitem__(i, 0), 1), "vec set": (lambda i: vec2().__setitem__(i, 0), 2),
    "Point": (lambda i: Point()[i], 2), "PointF": (lambda i: PointF()[i], 2), "Size": (lambda i: Size()[i], 2),
    "ColorBar": (lambda i: ColorBar()[i], 256), "ColorBar set": (lambda i: ColorBar().__setitem__(i, (1, 2, 3)), 256),
    "Image2d": (lambda i: Image2d(1, 1).getValue(i, 0), 1), "Image3d": (lambda i: Image3d(1, 1, 1).getValue(0, 0, i), 1),
    "Image2d set": (lambda i: Image2d(1, 1).setValue(0, i, 0), 1),
    "ComboBox.itemText": (lambda i: box().itemText(i), 1), "ComboBox.removeItem": (lambda i: box().removeItem(i), 1),
    "TabWidget": (lambda i: property_of(tabs(), "currentIndex")(i), 1),
    "StackedWidget": (lambda i: property_of(stack(), "currentIndex")(i), 1),
    "StackedWidget.widget": (lambda i: stack().widget(i), 1), "BoxLayout": (lambda i: row().stretch(i), 1),
    "BoxLayout.setStretch": (lambda i: row().setStretch(i, 1), 1), "Splitter": (lambda i: splitter().widget(i), 1),
}
FLOATS = {
    "vec2": lambda x: vec2(x, 0), "vec3": lambda x: vec3(0, 0, x), "vec4": lambda x: vec4(x, 0, 0, 0), "mat3": mat3,
    "vec2.x": property_of(vec2(), "x"), "DoubleArray": lambda x: DoubleArray().append(x), "FloatArray": lambda x: FloatArray().append(x),
    "Image2d": lambda x: Image2d(1, 1).setValue(0, 0, x),
    "ColorBar.setRange": lambda x: ColorBar().setRange(-1000, x), "ColorBar.colorOf": ColorBar().colorOf,
    "Contouring.step": property_of(Contouring(), "step"), "Contouring.min": property_of(Contouring(), "min"),
    "Pen.width": property_of(Pen(), "width"), "PointF": lambda x: PointF(x, 0),
    "BlockSpace": lambda x: BlockSpace(1, 1, 1).setSurveySpace(0, x, 0, x, 0, x),
}
INTS = {
    "BlockSpace": lambda n: BlockSpace(n, n, n), "BlockSpace.setBlockSpace": lambda n: BlockSpace(1, 1, 1).setBlockSpace(n, 1, 1),
    "BlockSpace.frameIndex": property_of(BlockSpace(1, 1, 1), "frameIndex"), "Image2d": lambda n: Image2d(n, 1),
    "Image3d": lambda n: Image3d(1, n, 1), "Image2d.resize": lambda n: Image2d(2, 2).resize(n, 1),
    "ColorBar.stretch": lambda n: ColorBar().stretch(0, n), "Point": lambda n: Point(n, n), "Size": lambda n: Size(n, n),
}
TEXTS = {
    "Label.text": property_of(Label(), "text"), "LineEdit.text": property_of(LineEdit(), "text"),
    "CheckBox.text": property_of(CheckBox(), "text"), "ColorBar.name": property_of(ColorBar(), "name"),
    "Image2d.name": property_of(Image2d(1, 1), "name"), "Image2d": lambda text: Image2d(1, 1, text),
    "ComboBox.addItem": lambda text: ComboBox().addItem(text), "ComboBox.index": ComboBox().index,
    "TabWidget": lambda text: TabWidget().addTab(Widget(), text), "MimeData": property_of(MimeData(), "text"),
    "getMainWindowMenu": getMainWindowMenu,
}


class ArgumentRules(unittest.TestCase):
    def accept(self, table, *values):
        for name, use in table.items():
            for value in values:
                with self.subTest(name, value=repr(value)):
                    use(value)

    def refuse(self, error, table, *values):
        for name, use in table.items():
            for value in values:
                with self.subTest(name, value=repr(value)):
                    self.assertRaises(error, use, value)

    def test_indices(self):
        for name, (use, count) in INDICES.items():
            self.accept({name: use}, 0, False, count - 1)
            # Negative ones are not counted from the end; those beyond all bits lie outside like any other.
            self.refuse(IndexError, {name: use}, count, 2**31, 2**40)
            self.refuse((IndexError, OverflowError) if name.startswith(("vec", "mat")) else IndexError, {name: use}, 2**70, -1,
                        -2**70)
            self.refuse(TypeError, {name: use}, "0", 0.0, None, [0], 1j)
            if name in STRICT:
                self.refuse(TypeError, {name: use}, np.int64(0))
            else:
                self.accept({name: use}, np.int64(0), np.uint8(count - 1))
                self.refuse(IndexError, {name: use}, np.int64(count))

    def test_floats(self):
        self.accept(FLOATS, 1, 1.5, True, np.float32(1), np.int16(1), np.array(1.0), fractions.Fraction(1, 2))
        self.refuse(TypeError, FLOATS, "1", None, 1j, np.array([1.0]), np.complex64(1), b"1", [1])
        self.refuse(OverflowError, FLOATS, 10**400)

    def test_ints(self):
        self.accept(INTS, 1, True, np.int64(1), np.uint8(1))
        self.refuse(TypeError, INTS, "1", 1.0, None, 1j, np.float64(1), [1])
        self.refuse(OverflowError, INTS, 2**31, -2**40, 2**70, np.int64(2**40))

    def test_texts(self):
        class Text(str):
            pass
        self.accept(TEXTS, "a", Text("a"))
        self.refuse(TypeError, TEXTS, b"a", 1, ["a"], pathlib.Path("a"))
        self.refuse((UnicodeEncodeError, TypeError), TEXTS, "\udc80")

    def test_paths(self):
        class Failing:
            def __fspath__(self):
                raise KeyError("mine")
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "New.json")
            bar = ColorBar()
            bar.name = "New"
            bar.save(path)
            self.assertEqual(ColorBar.fromFile(path).filename, str(path))
            paths = {"ColorBar.save": bar.save, "ColorBar.fromFile": ColorBar.fromFile,
                     "FilePathLineEdit": property_of(FilePathLineEdit(), "path")}
            self.refuse(TypeError, paths, os.fsencode(path), 1, None, ["x"])
            self.refuse(KeyError, paths, Failing())

    def test_a_reference_system_takes_a_text(self):
        self.assertRaises(TypeError, Crs.fromWtk, b"")


if __name__ == "__main__":
    unittest.main()
