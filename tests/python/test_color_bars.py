"""Colour bars, contour settings, pens and the enumerations that go with them."""
import copy
import os
import pathlib
import pickle
import tempfile
import unittest
import warnings

import numpy as np
from strativo_python import (NO_VALUE, Color, ColorBar, ColorBarType, ColorSpace, Contouring, ContouringMode,
                             Font, InterpolationMethod, Pen, PenStyle, ScanOrientation, SmoothingMethod)

NAMES = ("GreyScale RedWhiteBlack RedWhiteBlack_2 RedWhiteBlue Seismic Seismic_2 Seismic_3 - Rainbow GeoModel Red Green "
         "Blue Horizon Thinning AI Curvature Envelope Energy Gradient Velocity Density Azimuth Porosity Sand Shale Dip "
         "Throw Phase Frequency GreyBlue Cyan Magenta Yellow BlueWhiteRed DipBrown GeoModelRainbow GeoModelCold "
         "GeoModelDark GeoModelWarm SandProbability AvoContrast - BluePurpleYellow - CoarseExtraction Surface DipAzimuth "
         "Elevation ReflectionStrength Rotary Spectrum Structural Tropic Variance Velocity2 WhiteBlueGreen Channels "
         "Colors256").split()
PALETTES = ("GREY_SCALE RED_WHITE_BLACK RED_WHITE_BLACK_2 RED_WHITE_BLUE SEISMIC SEISMIC_2 SEISMIC_3 RAINBOW RANDOM GEOMODEL "
            "RED GREEN BLUE HORIZON THINNING CURVATURE ENVELOPE ENERGY GRADIENT VELOCITY DENSITY AZIMUTH POROSITY SAND SHALE "
            "DIP THROW PHASE FREQUENCY GREY_BLUE CYAN MAGENTA YELLOW BLUE_WHITE_RED DIP_BROWN GEOMODEL_RAINBOW GEOMODEL_COLD "
            "GEOMODEL_DARK GEOMODEL_WARM SAND_PROBABILITY AVO_CONTRAST GREEN_YELLOW_RED BLUE_PURPLE_YELLOW "
            "BLUE_WHITE_PURPLE COARSE_EXTRACTION SURFACE DIP_AZIMUTH ELEVATION REFLECTION_STRENGTH ROTARY SPECTRUM STRUCTURAL "
            "TROPIC VARIANCE VELOCITY_2 WHITE_BLUE_GREEN CHANNELS 256_COLORS GREEN_TO_RED VIRIDIS").split()


class Enumerations(unittest.TestCase):
    def test_values(self):
        expected = {name: number for number, name in enumerate(NAMES) if name != "-"}
        expected["GreenYellowRed"] = 11
        self.assertEqual({name: int(value) for name, value in ColorBarType.names.items()}, expected)
        self.assertEqual({n: int(v) for n, v in SmoothingMethod.names.items()},
                         {"NoSmoothing": 0, "Median": 1, "Gaussian": 2, "StructureOriented": 4})
        self.assertEqual({n: int(v) for n, v in InterpolationMethod.names.items()},
                         {"NoInterpolation": 0, "Bilinear": 1, "Bicubic": 2})
        self.assertEqual({n: int(v) for n, v in ContouringMode.names.items()}, {"Data": 0, "ZValue": 1})

    def test_shared_number(self):
        self.assertTrue(ColorBarType.Green == ColorBarType.GreenYellowRed)
        self.assertEqual(ColorBarType(11).name, "GreenYellowRed")
        self.assertEqual(ColorBarType.Green.name, "Green")
        self.assertEqual(repr(ColorBarType(11)), "strativo_python.ColorBarType.GreenYellowRed")

    def test_numbers_and_names(self):
        self.assertFalse(hasattr(ColorBarType(7), "name"))
        self.assertNotIn(7, ColorBarType.values)
        self.assertIs(ScanOrientation(2), ScanOrientation.Timeslice)
        self.assertIs(pickle.loads(pickle.dumps(ColorBarType.Sand)), ColorBarType.Sand)
        self.assertIsInstance(ColorBarType(7), ColorBarType)
        self.assertRaises(ValueError, ColorBarType, "x y")
        self.assertRaises(TypeError, ColorBarType.__new__)
        self.assertRaises(TypeError, ColorBarType.__new__, dict, 3)


class ColorBars(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def assertRaisesText(self, error, text, function, *arguments):
        with self.assertRaises(error) as caught:
            function(*arguments)
        self.assertEqual(str(caught.exception), text)

    def path(self, name):
        return os.path.join(self.folder, name)

    def test_palettes(self):
        self.assertEqual(ColorBar.paletteNames(), PALETTES)
        self.assertEqual(ColorBar.named("VIRIDIS")[255], (253, 231, 37, 255))
        self.assertEqual(ColorBar.named(ColorBarType.Seismic).name, "SEISMIC")
        self.assertEqual(ColorBar.named(ColorBarType.GreenYellowRed).name, "GREEN")
        ColorBar.named("VIRIDIS")[255] = (0, 0, 0)
        self.assertEqual(ColorBar.named("VIRIDIS")[255], (253, 231, 37, 255))
        self.assertRaisesText(ValueError, "ColorBar.named(), there is no palette 'NONE'", ColorBar.named, "NONE")
        self.assertRaisesText(ValueError, "ColorBar.named(), there is no palette with the number 7", ColorBar.named,
                              ColorBarType(7))

    def test_entries(self):
        bar = ColorBar()
        self.assertEqual((len(bar), bar[0], bar[255], bar.minimum, bar.maximum), (256, (0, 0, 0, 255),
                                                                                  (255, 255, 255, 255), 0, 1))
        bar[np.int64(3)] = np.array([1, 2, 3], np.uint8)
        self.assertEqual(bar[3], (1, 2, 3, 255))
        for index in (-1, 256, 2**70):
            self.assertRaisesText(IndexError, "ColorBar, index %d is not in [0, 256)" % index, bar.__getitem__, index)
        self.assertRaisesText(TypeError, "ColorBar, expected 'int' but got 'slice'", bar.__getitem__, slice(2))
        for bad, error in (((1, 2), TypeError), ("abc", TypeError), (5, TypeError), ((1, 2, 2.5), TypeError),
                           ((1, 2, 256), ValueError), ((1, 2, -1), ValueError), ((1, 2, 2**80), ValueError)):
            self.assertRaises(error, bar.__setitem__, 3, bad)
        before = bar.colors
        for bad, error in (([], ValueError), ([(0, 0, 0)] * 257, ValueError), ([(1, 2, 3), None], TypeError),
                           (7, TypeError)):
            self.assertRaises(error, setattr, bar, "colors", bad)
        self.assertEqual(bar.colors, before)
        bar.colors = np.array([[255, 0, 0], [0, 0, 255]])
        self.assertEqual((bar[127], bar[128], len(bar.colors)), ((255, 0, 0, 255), (0, 0, 255, 255), 256))
        bar.colors = before
        self.assertEqual(bar.colors, before)

    def test_values(self):
        bar = ColorBar()
        bar.setRange(-2, 2)
        self.assertEqual((bar.belowColor, bar.aboveColor, bar.noValueColor), (None, None, (0, 0, 0, 0)))
        bar.belowColor, bar.noValueColor = (1, 2, 3), (4, 5, 6, 7)
        self.assertEqual((bar.colorOf(-3), bar.colorOf(3), bar.colorOf(NO_VALUE), bar.colorOf(float("nan"))),
                         ((1, 2, 3, 255), (255, 255, 255, 255), (4, 5, 6, 7), (4, 5, 6, 7)))
        self.assertRaises(ValueError, bar.setRange, 1, 1)
        for again in (copy.copy(bar), copy.deepcopy(bar), pickle.loads(pickle.dumps(bar))):
            self.assertEqual((again.colors, again.maximum, again.belowColor, again.aboveColor, again.bounds),
                             (bar.colors, 2, (1, 2, 3, 255), None, (0, 255)))
            again[0] = (9, 9, 9)
            self.assertEqual(bar[0], (0, 0, 0, 255))
        self.assertRaises(ValueError, bar.__setstate__, (b"{}", (0, 255)))

    def test_interpolate_and_stretch(self):
        bar = ColorBar()
        bar[0], bar[255], bar[100] = (255, 0, 0), (0, 0, 255), (0, 0, 0)
        bar.interpolate()
        self.assertEqual((bar[0], bar[51], bar[255]), ((255, 0, 0, 255), (204, 0, 51, 255), (0, 0, 255, 255)))
        bar.interpolate(0, 255, ColorSpace.HSV)
        self.assertEqual(bar[51], (255, 0, 102, 255))
        bar.interpolate(first=0, last=2)
        bar.bounds = (0, 1)
        bar.stretch()
        self.assertEqual(len(set(bar.colors)), 2)
        before = bar.colors
        for first, last in ((5, 5), (-1, 5), (5, 256)):
            self.assertRaises(ValueError, bar.interpolate, first, last)
            self.assertRaises(ValueError, bar.stretch, first, last)
            self.assertRaises(ValueError, setattr, bar, "bounds", (first, last))
        self.assertRaises(ValueError, bar.interpolate, 0, 9, ColorSpace(99))
        self.assertRaises(TypeError, setattr, bar, "bounds", (1.5, 3))
        self.assertEqual((bar.colors, bar.bounds), (before, (0, 1)))

    def test_save_renames_with_a_warning(self):
        bar = ColorBar.named("SEISMIC")
        with warnings.catch_warnings(record=True) as caught:
            warnings.simplefilter("always")
            bar.save(self.path("first.version.json"))
            bar.save(self.path("first.version.cpt"))
        self.assertEqual([(w.category, str(w.message)) for w in caught], [
            (RuntimeWarning, "ColorBar, filename and ColorBar.name do not match, overwriting ColorBar.name")])
        self.assertEqual(os.path.basename(caught[0].filename), os.path.basename(__file__))
        self.assertEqual(bar.name, "first.version")
        for suffix in ("json", "cpt"):
            again = ColorBar.fromFile(self.path("first.version." + suffix))
            self.assertEqual((again.colors, again.name), (bar.colors, "first.version"))

    def test_failed_saves_change_nothing(self):
        bar = ColorBar()
        bar.name = "A"
        with warnings.catch_warnings():
            warnings.simplefilter("error")
            self.assertRaises(RuntimeWarning, bar.save, self.path("B.json"))
            self.assertEqual((bar.name, os.listdir(self.folder)), ("A", []))
            bar.save(self.path("A.json"))
            with open(self.path("B.json"), "w", encoding="ascii") as other:
                other.write("other")
            path = self.path("B.json")
            self.assertRaisesText(FileExistsError, "ColorBar, file '%s' already exists" % path, bar.save, path)
        self.assertEqual((bar.name, pathlib.Path(path).read_text(encoding="ascii")), ("A", "other"))
        path = os.path.join(self.folder, "gr\u00fcn", "A.json")
        self.assertRaisesText(IOError, "ColorBar, unable to create file '%s'" % path, bar.save, path)
        with self.assertRaises(IOError) as failed:
            bar.save(path)
        self.assertIn("No such file or directory", str(failed.exception.__cause__), "save says why")
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            self.assertRaises(IOError, bar.save, os.path.join(self.folder, "none", "B.json"))
            self.assertRaises(IOError, bar.save, "")
        self.assertEqual((bar.name, sorted(os.listdir(self.folder))), ("A", ["A.json", "B.json"]))

    def test_reading_foreign_and_bad_files(self):
        path = self.path("topo.cpt")
        with open(path, "w", encoding="ascii") as table:
            table.write("# COLOR_MODEL = RGB\n-8000 0/0/128 0 white\n0 darkgreen 4000 139 69 19\n")
        self.assertRaisesText(IOError, "ColorBar.fromFile(), unable to read file '%s': line 3: a slice of two values with "
                              "a colour each was expected" % path, ColorBar.fromFile, path)
        with open(path, "w", encoding="ascii") as table:
            table.write("# COLOR_MODEL = RGB\n-8000 0/0/128 0 white\n0 darkgreen 4000 139/69/19\n")
        bar = ColorBar.fromFile(path)
        self.assertEqual((bar.name, bar.minimum, bar.maximum, bar.colorOf(4000)), ("topo", -8000, 4000, (139, 69, 19, 255)))
        self.assertRaisesText(FileNotFoundError, "ColorBar.fromFile(), file 'none.json' does not exist",
                              ColorBar.fromFile, "none.json")


class ContourSettings(unittest.TestCase):
    def test_wrong_types_name_class_and_member(self):
        for made, members in (
                (Contouring(), "visible:bool withLimits:bool min:float max:float contouringMode:ContouringMode step:float "
                               "pen:Pen"),
                (ColorBar(), "name:str"), (Pen(), "style:PenStyle width:float"), (Font(), "family:str bold:bool weight:int"),
                (Color(), "red:int alphaF:float")):
            for member, expected in (each.split(":") for each in members.split()):
                before = getattr(made, member)
                with self.assertRaises(TypeError) as caught:
                    setattr(made, member, [])
                self.assertEqual(str(caught.exception), "%s.%s, expected '%s' but got 'list' instead" % (
                    type(made).__name__, member, expected))
                self.assertEqual(getattr(made, member), before)

    def test_step(self):
        contouring = Contouring()
        for bad in (0.0, 0, -1, float("nan"), float("-inf")):
            with self.assertRaises(ValueError) as caught:
                contouring.step = bad
            self.assertEqual(str(caught.exception), "Contouring, step value must be greater than 0")
            self.assertEqual(contouring.step, 1)
        contouring.step = 1e-9
        self.assertEqual(contouring.step, 1e-9)
        self.assertRaises(TypeError, setattr, contouring, "step", "5")

    def test_members(self):
        contouring = Contouring()
        self.assertEqual((contouring.visible, contouring.withLimits, contouring.minValue, contouring.maxValue),
                         (False, False, 0, 0))
        contouring.visible = contouring.withLimits = True
        contouring.min, contouring.max, contouring.contouringMode = 5, -5.5, ContouringMode.ZValue
        self.assertEqual((contouring.visible, contouring.withLimits, contouring.min, contouring.max,
                          contouring.contouringMode), (True, True, 5, -5.5, ContouringMode.ZValue))
        self.assertRaises(AttributeError, setattr, contouring, "minValue", 1)
        self.assertRaises(AttributeError, setattr, contouring, "maxValue", 1)

    def test_pen(self):
        contouring = Contouring()
        pen = contouring.pen
        pen.style, pen.color, pen.width = PenStyle.DashDotLine, Color(255, 128, 0, 64), 2.5
        self.assertFalse(contouring.pen == pen)
        contouring.pen = pen
        self.assertTrue(contouring.pen == pen)
        color = contouring.pen.color
        self.assertEqual((color.red, color.green, color.blue, color.alpha, color.redF), (255, 128, 0, 64, 1))
        color.blueF = 1
        self.assertEqual(color.blue, 255)
        self.assertEqual([int(value) for value in PenStyle.values], list(range(6)))
        for owner, name, bad in ((color, "red", 256), (color, "alphaF", -0.1), (color, "greenF", float("nan")),
                                 (pen, "width", -1), (pen, "style", PenStyle(9))):
            self.assertRaises(ValueError, setattr, owner, name, bad)
        self.assertRaises(ValueError, Color, 0, 0, -1)
        self.assertEqual(contouring.pen.style, PenStyle.DashDotLine)
