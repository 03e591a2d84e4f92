"""Block spaces, point conversion, reference systems and the enumerations that go with them."""
import copy
import gc
import pickle
import unittest

import numpy as np
import strativo_python
from strativo_python import BlockSpace, Crs, Domain, Image3d, ScaleType, ScanOrientation, Unit, utils, vec3, Vec3Array

UTM31 = """PROJCS["WGS 84 / UTM zone 31N",GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563]],
PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],
PARAMETER["latitude_of_origin",0],PARAMETER["central_meridian",3],PARAMETER["scale_factor",0.9996],
PARAMETER["false_easting",500000],PARAMETER["false_northing",0],UNIT["metre",1]]"""


def coordinates(point):
    return [point.x, point.y, point.z]


def rows(matrix):
    return np.array([[matrix[r][c] for c in range(4)] for r in range(4)])


class BlockSpaceCase(unittest.TestCase):
    def setUp(self):
        """A rotated map, crosslines from 1000 in steps of 2, inlines from 500 down in steps of 4, 4 ms samples."""
        self.space = BlockSpace(11, 21, 6)
        self.space.setSurveySpace(1000, 1020, 500, 420, 0, 20)
        self.space.setWorldSpace(vec3(4e5, 6e6, 0), vec3(4e5 + 80, 6e6 + 60, 0), vec3(4e5 - 120, 6e6 + 160, 0),
                                 vec3(4e5, 6e6, 20))

    def assertRaisesText(self, error, text, function, *arguments):
        with self.assertRaises(error) as caught:
            function(*arguments)
        self.assertEqual(str(caught.exception), text)


class Extents(BlockSpaceCase):
    def test_extents(self):
        self.assertEqual([BlockSpace(1, 1, 1).width, self.space.height, self.space.length], [1, 21, 6])
        for size in ((0, 5, 5), (5, -1, 5), (5, 5, 0)):
            text = "dimensions can not be less than 1 (%d, %d, %d)" % size
            self.assertRaisesText(ValueError, "BlockSpace(), " + text, BlockSpace, *size)
            self.assertRaisesText(ValueError, "BlockSpace.setBlockSpace(), " + text, self.space.setBlockSpace, *size)
        self.space.setBlockSpace(7, 8, 9)
        self.assertEqual((self.space.width, self.space.height, self.space.length), (7, 8, 9))
        other = BlockSpace(1, 2, 3)
        other.setBlockSpace(self.space)
        np.testing.assert_array_equal(rows(other.fromBlockToWorld), rows(self.space.fromBlockToWorld))
        self.assertEqual(other.length, 9)
        for name in ("width", "height", "length", "crosslineResolution", "inlineResolution", "verticalResolution"):
            self.assertRaises(AttributeError, setattr, other, name, 4)

    def test_current_frame(self):
        self.space.scanOrientation = ScanOrientation.Timeslice
        self.space.frameIndex = -5
        self.assertEqual((self.space.scanOrientation, self.space.frameIndex), (ScanOrientation.Timeslice, -5))
        self.assertRaises(OverflowError, setattr, self.space, "frameIndex", 2**31)

    def test_cube_takes_only_a_space_of_its_extents(self):
        cube = Image3d(11, 21, 6)
        cube.setBlockSpace(self.space)
        self.assertEqual(cube.blockSpace.crosslineResolution, 2)
        text = "Image3d.setBlockSpace(), the dimensions (%d, %d, %d) are not those of the image (11, 21, 6)"
        self.assertRaisesText(ValueError, text % (1, 2, 3), cube.setBlockSpace, BlockSpace(1, 2, 3))
        self.assertRaisesText(ValueError, text % (0, 21, 6), cube.setBlockSpace, 0, 21, 6)
        again = pickle.loads(pickle.dumps(cube)).blockSpace
        np.testing.assert_array_equal(rows(again.fromBlockToSurvey), rows(self.space.fromBlockToSurvey))
        cube.setBlockSpace(11, 21, 6)
        self.assertEqual(cube.blockSpace.crosslineResolution, 1)


class Transforms(BlockSpaceCase):
    def test_resolutions(self):
        self.assertEqual([self.space.crosslineResolution, self.space.inlineResolution, self.space.verticalResolution],
                         [2, 4, 4])
        for name in ("crosslineResolution", "inlineResolution", "verticalResolution"):
            self.assertRaisesText(RuntimeError, "BlockSpace cannot be None",
                                  getattr(BlockSpace, name).fget, None)

    def test_reference_points(self):
        corner = vec3(10, 20, 5)
        self.assertEqual(coordinates(utils.blockToSurvey(corner, self.space)), [420, 1020, 20])
        np.testing.assert_allclose(coordinates(utils.blockToWorld(corner, self.space)), [4e5 - 40, 6e6 + 220, 20])
        same = BlockSpace(11, 21, 6)
        same.setSurveySpace(vec3(500, 1000, 0), vec3(500, 1020, 0), vec3(420, 1000, 0), vec3(500, 1000, 20))
        np.testing.assert_array_equal(rows(same.fromBlockToSurvey), rows(self.space.fromBlockToSurvey))
        before = rows(self.space.fromBlockToWorld)
        flat = (vec3(0, 0, 0), vec3(1, 0, 0), vec3(0, 1, 0), vec3(1, 1, 0))
        why = ", the four reference points must not lie on one plane"
        self.assertRaisesText(ValueError, "BlockSpace.setWorldSpace()" + why, self.space.setWorldSpace, *flat)
        self.assertRaisesText(ValueError, "BlockSpace.setSurveySpace()" + why, self.space.setSurveySpace, *flat)
        self.assertRaises(ValueError, self.space.setWorldSpace, *flat[:3], vec3(0, 0, float("nan")))
        self.assertRaises(ValueError, self.space.setSurveySpace, 1, 1, 2, 3, 4, 5)
        self.assertRaises(TypeError, self.space.setWorldSpace, *flat[:3], None)
        np.testing.assert_array_equal(rows(self.space.fromBlockToWorld), before)

    def test_matrices_are_inverse_in_both_directions(self):
        for there, back in (("fromBlockToSurvey", "fromSurveyToBlock"), ("fromBlockToWorld", "fromWorldToBlock")):
            forward = rows(getattr(self.space, there))
            np.testing.assert_allclose(forward @ rows(getattr(self.space, back)), np.eye(4), atol=1e-9)
            turned = copy.copy(self.space)
            setattr(turned, back, getattr(self.space, there))
            np.testing.assert_allclose(rows(getattr(turned, there)) @ forward, np.eye(4), atol=1e-9)
            singular = strativo_python.mat4()
            singular *= 0.0
            self.assertRaises(ValueError, setattr, turned, there, singular)

    def test_values_and_the_garbage_collector(self):
        matrix = self.space.fromBlockToWorld
        for _ in range(300):
            kept = [matrix[0], matrix[3], vec3(1, 2, 3)]
            gc.collect()
        self.assertEqual((coordinates(kept[2]), kept[1][3]), ([1, 2, 3], 1))

    def test_copies_and_pickles(self):
        self.space.frameIndex = 4
        self.space.scanOrientation = ScanOrientation.Crossline
        for made in (copy.deepcopy(self.space), pickle.loads(pickle.dumps(self.space))):
            for name in ("fromBlockToSurvey", "fromSurveyToBlock", "fromBlockToWorld", "fromWorldToBlock"):
                np.testing.assert_array_equal(rows(getattr(made, name)), rows(getattr(self.space, name)))
            self.assertEqual((made.width, made.frameIndex, made.scanOrientation), (11, 4, ScanOrientation.Crossline))
        for state in (None, ((1, 2, 3, (), (), 0, 0), {}), ((0, 2, 3, (1.0,) * 16, (), 0, 0), {})):
            with self.assertRaises((TypeError, ValueError, IndexError)):
                BlockSpace.__new__(BlockSpace).__setstate__(state)


class Points(BlockSpaceCase):
    FUNCTIONS = ("blockToSurvey", "blockToWorld", "surveyToWorld", "worldToBlock", "worldToSurvey", "surveyToBlock")

    def test_there_and_back(self):
        p = vec3(3.25, 17.5, 4)
        for there, back in (("blockToSurvey", "surveyToBlock"), ("blockToWorld", "worldToBlock"),
                            ("surveyToWorld", "worldToSurvey")):
            found = getattr(utils, back)(getattr(utils, there)(p, self.space), self.space)
            np.testing.assert_allclose(coordinates(found), coordinates(p), atol=1e-6)
        through = utils.blockToWorld(utils.surveyToBlock(p, self.space), self.space)
        self.assertEqual(coordinates(utils.surveyToWorld(p, self.space)), coordinates(through))

    def test_all_forms_agree(self):
        numbers = np.random.default_rng(2).uniform(-50, 5000, (1500, 3))
        points = Vec3Array()
        for row in numbers:
            points.append(vec3(*row))
        for name in self.FUNCTIONS:
            function = getattr(utils, name)
            converted = function(points, self.space)
            self.assertIsInstance(converted, Vec3Array)
            self.assertEqual(len(converted), 1500)
            for i in (0, 511, 512, 1499):
                one = coordinates(function(points[i], self.space))
                self.assertEqual(coordinates(converted[i]), one)
                self.assertEqual(coordinates(function(*numbers[i], self.space)), one)
                self.assertEqual(coordinates(function(blockSpace=self.space, point=points[i])), one)
            for plain in (numbers, list(points), tuple(points), np.asfortranarray(numbers)):
                np.testing.assert_array_equal(np.asarray(function(plain, self.space)), np.asarray(converted))
        self.assertEqual(coordinates(points[7]), list(numbers[7]))
        self.assertEqual(len(utils.blockToWorld(points=Vec3Array(), blockSpace=self.space)), 0)
        self.assertEqual(coordinates(utils.blockToSurvey(10, 20, 5, self.space)), [420, 1020, 20])

    def test_wrong_arguments(self):
        p = vec3(1, 2, 3)
        for arguments in ((), (p,), (p, None), (p, p), (None, self.space), (1, 2, self.space),
                          (1, 2, "3", self.space), (1, 2, 3, 4, self.space), (vec3.__new__(vec3), self.space),
                          (p, BlockSpace.__new__(BlockSpace))):
            for name in self.FUNCTIONS:
                with self.assertRaises(TypeError, msg=arguments) as caught:
                    getattr(utils, name)(*arguments)
                self.assertTrue(str(caught.exception).startswith(name + "(), "))
        self.assertRaises(TypeError, utils.blockToWorld, p, blocSpace=self.space)
        with self.assertRaisesRegex(TypeError, "^Vec3Array, invalid sequence element at index 1 of sequence$"):
            utils.blockToWorld([p, (1, 2, 3)], self.space)
        self.assertRaises(ValueError, utils.blockToWorld, np.zeros((4, 2)), self.space)


class ReferenceSystems(unittest.TestCase):
    def test_from_text(self):
        crs = Crs.fromWtk(UTM31)
        self.assertEqual((crs.authority, crs.authorityCode), ("EPSG", "32631"))
        self.assertEqual((crs.area.left, crs.area.right), (0.0, 6.0))
        for again in (copy.copy(crs), pickle.loads(pickle.dumps(crs))):
            self.assertEqual((again.authorityCode, again.area.left), ("32631", 0.0))
        self.assertRaises(AttributeError, setattr, crs, "authority", "x")

    def test_refusals(self):
        for text in ("", "nonsense", UTM31[:-1], 'ELLIPSOID["WGS 84",6378137,298.257223563]'):
            with self.assertRaises(ValueError) as caught:
                Crs.fromWtk(text)
            self.assertRegex(str(caught.exception), r"^Crs\.fromWtk\(\), .")
        self.assertRaises(TypeError, Crs.fromWtk, None)
        self.assertRaises(RuntimeError, Crs)


class Enumerations(unittest.TestCase):
    def test_numbers(self):
        for enumeration, names in (
                (ScanOrientation, "Inline Crossline Timeslice"), (ScaleType, "Pixel World Survey"),
                (Domain, "Unknown Time Depth All"),
                (Unit, "Meters Feet Milliseconds Seconds Kilometers - Miles FeetUS Decimeters Centimeters MilesUS "
                 "Yards YardsUS Inches InchesUS")):
            expected = {name: number for number, name in enumerate(names.split()) if name != "-"}
            self.assertEqual({name: int(value) for name, value in enumeration.names.items()}, expected)
        self.assertEqual((strativo_python.NO_VALUE, type(strativo_python.NO_VALUE)), (-9999.0, float))
        self.assertEqual(pickle.loads(pickle.dumps(Unit.Miles)), Unit.Miles)
