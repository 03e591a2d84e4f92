"""Wrong arguments are refused in Python's terms: no function of the module lets the C++ below it show."""
import inspect
import re
import unittest

import strativo_python
from strativo_python import BlockSpace, ColorBar, vec2


class Absurd:
    """What no function can use."""


# Nothing in here is right for anything, so that no call does something.
NONSENSE = (Absurd(), 2**40, -2**70, [Absurd()], (), {}, b"\xff", 1j, Absurd)
SAMPLES = {"Image2d": (2, 2), "Image3d": (2, 2, 2), "BlockSpace": (1, 1, 1)}


def modules():
    return strativo_python, strativo_python.utils, strativo_python.segy


def classes():
    return [value for module in modules() for value in vars(module).values()
            if inspect.isclass(value) and not issubclass(value, int) and value.__module__ == "strativo_python"]


def speaks_of_cpp(text):
    text = text.replace("core::Array", "")  # scripts compare these two texts
    return bool(re.search(r"C\+\+|::|[lr]value|[Bb]oost|\bQ[A-Z][a-z]|bad numeric|\(unnamed", text))


def sample(cls):
    """An object of the class; None when scripts cannot make one."""
    try:
        return cls(*SAMPLES.get(cls.__name__, ()))
    except (TypeError, RuntimeError, FileNotFoundError):
        return None


class ArgumentErrors(unittest.TestCase):
    def setUp(self):
        self.refusals = 0
        self.bad = []

    def refuse(self, what, function, *arguments, **keywords):
        try:
            function(*arguments, **keywords)
        except Exception as error:  # pylint: disable=broad-except
            self.refusals += 1
            text = str(error)
            if speaks_of_cpp(text):
                self.bad.append("%s: %s" % (what, text))
            if type(error).__name__ == "ArgumentError" and not what.partition(".")[2].startswith("__"):
                if not isinstance(error, TypeError) or not re.match(r"[\w.]+(\(\), expected \(|, expected ')", text):
                    self.bad.append("%s says not what it takes: %s" % (what, text))

    def refuse_all(self, what, function):
        for count in range(1, 8):
            for value in NONSENSE:
                self.refuse(what, function, *[value] * count)
        self.refuse(what, function, absurd=Absurd())

    def test_no_function_answers_in_cpp(self):
        for module in modules():
            for name, value in vars(module).items():
                if callable(value) and not inspect.isclass(value) and not name.startswith("__"):
                    self.refuse_all(name, value)
        for cls in classes():
            self.refuse_all(cls.__name__, cls)
            found = sample(cls)
            for name in dir(cls):
                if name in ("__class__", "__init_subclass__", "__subclasshook__", "__new__", "__getattribute__"):
                    continue
                what = "%s.%s" % (cls.__name__, name)
                member = inspect.getattr_static(cls, name)
                if isinstance(member, property) or inspect.isdatadescriptor(member):
                    for value in NONSENSE if found is not None and not name.startswith("__") else ():
                        self.refuse(what, setattr, found, name, value)
                elif callable(getattr(cls, name)):
                    self.refuse(what, getattr(cls, name), Absurd())
                    if found is not None and name not in ("__setattr__", "__delattr__"):
                        self.refuse_all(what, getattr(found, name))
        self.assertEqual(self.bad, [])
        self.assertGreater(self.refusals, 5000)

    def test_no_docstring_speaks_of_cpp(self):
        bad = []
        for thing in (value for module in modules() for name, value in vars(module).items() if not name.startswith("__")):
            members = [getattr(thing, name) for name in dir(thing)] if inspect.isclass(thing) else []
            for each in (thing, *members):
                text = getattr(each, "__doc__", None)
                if isinstance(text, str) and speaks_of_cpp(text):
                    bad.append(text)
        self.assertEqual(bad, [])

    def refused(self, kind, text, function, *arguments, **keywords):
        with self.assertRaises(kind) as caught:
            function(*arguments, **keywords)
        self.assertEqual(str(caught.exception), text)

    def test_the_error_says_what_the_function_takes(self):
        bar, space = ColorBar(), BlockSpace(1, 1, 1)
        self.refused(TypeError, "ColorBar.setRange(), expected (minimum: float, maximum: float) but got (str, int)",
                     bar.setRange, "x", 1)
        self.refused(TypeError, "ColorBar.setRange(), expected (minimum: float, maximum: float) but got (minimum=int)",
                     bar.setRange, minimum=1)
        self.refused(TypeError, "ColorBar.setRange(), expected (self: ColorBar, minimum: float, maximum: float) but got "
                     "(str, int, int)", ColorBar.setRange, "x", 1, 2)
        self.refused(TypeError, "ColorBar.named(), expected (palette: str) or (palette: ColorBarType) but got (float)",
                     ColorBar.named, 1.5)
        self.refused(TypeError, "BlockSpace.scanOrientation, expected 'ScanOrientation' but got 'str' instead",
                     setattr, space, "scanOrientation", "x")
        self.refused(TypeError, "BlockSpace(), expected (width: int, height: int, length: int) but got (str)",
                     BlockSpace, "x")
        self.refused(OverflowError, "BlockSpace(), the value must fit 32 bits", BlockSpace, 2**40, 1, 1)

    def test_classes_of_scripts_have_the_names_of_the_module(self):
        class Mine(ColorBar):
            def setRange(self, *values):
                super().setRange(*values)
        self.refused(TypeError, "ColorBar.setRange(), expected (minimum: float, maximum: float) but got ()", Mine().setRange)

    def test_a_constructor_leaves_objects_of_other_classes_alone(self):
        for cls in classes():
            for foreign in (Absurd(), object(), 3.5, [1, 2, 3]):
                self.assertRaises((TypeError, RuntimeError), cls.__init__, foreign)
        self.refused(TypeError, "vec2(), an object of type 'Absurd' is not one of the class", vec2.__init__, Absurd())

    def test_an_error_that_a_called_function_has_let_through_stays_as_it_is(self):
        class Row(list):
            def __getitem__(self, index):
                ColorBar().setRange("x")
        self.refused(TypeError, "ColorBar.setRange(), expected (minimum: float, maximum: float) but got (str)",
                     setattr, ColorBar(), "colors", Row([1]))


if __name__ == "__main__":
    unittest.main()
