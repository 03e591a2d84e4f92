"""What a script changes is its own until it saves: one handle, the project and another handle."""
import copy
import pathlib
import unittest

from strativo_python import ColorBar, ObjectId, getProject


class DataHandles(unittest.TestCase):
    def setUp(self):
        self.project = getProject()
        self.path = self.project.getNewFilename(ObjectId.ColorBar, "Handle")
        bar = ColorBar()
        bar.setRange(0, 10)
        bar.name = pathlib.Path(self.path).stem
        bar.save(self.path)

    def test_two_handles_of_one_file_know_nothing_of_each_other(self):
        one, other = ColorBar.fromFile(self.path), ColorBar.fromFile(self.path)
        before = pathlib.Path(self.path).read_bytes()
        one.setRange(-5, 5)
        one[0] = (1, 2, 3)
        self.assertEqual((one.minimum, other.minimum, ColorBar.fromFile(self.path).minimum), (-5, 0, 0))
        self.assertEqual(other[0], (0, 0, 0, 255))
        self.assertEqual(pathlib.Path(self.path).read_bytes(), before)

    def test_a_copy_is_another_handle(self):
        bar = ColorBar.fromFile(self.path)
        bar.setRange(1, 2)
        other = copy.copy(bar)
        other.setRange(3, 4)
        bar.setRange(5, 6)
        self.assertEqual((bar.maximum, other.maximum), (6, 4))

    def test_what_was_saved_stays_as_it_was_while_the_script_goes_on(self):
        bar = ColorBar()
        path = self.project.getNewFilename(ObjectId.ColorBar, "Kept")
        bar.name = pathlib.Path(path).stem
        self.assertEqual(bar.filename, "")
        bar.save(path)
        bar.setRange(7, 8)
        self.assertEqual((bar.filename, ColorBar.fromFile(path).filename), (path, path))
        self.assertEqual(ColorBar.fromFile(path).maximum, 1, "the project has what was saved")
        self.assertIn(path, self.project.objects(ObjectId.ColorBar))

    def test_a_failed_save_leaves_the_handle_as_it_was(self):
        bar = ColorBar.fromFile(self.path)
        self.assertRaises(IOError, bar.save, self.path + "/none/Other.json")
        self.assertRaises(FileExistsError, bar.save, self.path)
        self.assertEqual((bar.filename, bar.name), (self.path, pathlib.Path(self.path).stem))

    def test_a_file_changed_by_others_is_read_again(self):
        other = self.project.getNewFilename(ObjectId.ColorBar, "Elsewhere")
        bar = ColorBar()
        bar.setRange(20, 30)
        bar.name = pathlib.Path(other).stem
        bar.save(other)
        held = ColorBar.fromFile(self.path)
        pathlib.Path(self.path).write_bytes(pathlib.Path(other).read_bytes())
        self.assertEqual((held.maximum, ColorBar.fromFile(self.path).maximum), (10, 30))


if __name__ == "__main__":
    unittest.main()
