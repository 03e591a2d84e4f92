"""The switch and the widgets that choose files and objects of the project. Needs an open project."""
import gc
import os
import pathlib
import unittest

from strativo_python import (Color, Colors, ComboBox, FileDialogType, FilePathLineEdit, InputSelectionLineEdit,
                             InputSelectionPreview, MouseMode, ObjectComboBox, ObjectId, Switch, Widget, getProject)

CHOOSERS = (ObjectComboBox, InputSelectionLineEdit, InputSelectionPreview)


class Case(unittest.TestCase):
    def refuses(self, exception, message, work, *arguments, **named):
        with self.assertRaises(exception) as caught:
            work(*arguments, **named)
        self.assertEqual(str(caught.exception), message)


class Switches(Case):
    def test_tells_each_change_once(self):
        switch, told = Switch("&Log"), []
        switch.toggled(told.append)
        for on in (True, True, False):
            switch.switched = on
            self.assertEqual((switch.switched, switch.checked), (on, on))
        switch.checked = True
        self.assertEqual([repr(value) for value in told], ["True", "False", "True"])
        self.assertEqual(Switch("x", None, switched=True, animationDuration=-5).animationDuration, 0)
        self.refuses(TypeError, "Switch.toggled(), expected callable object, but got 'int' instead", switch.toggled, 5)

    def test_colours_of_all_kinds_and_the_themes(self):
        switch = Switch()
        theme = switch.onColor, switch.offColor
        for given in ("#102030", (16, 32, 48), Color(16, 32, 48)):
            switch.onColor = switch.offColor = given
            self.assertEqual([switch.onColor, switch.offColor], [Color(16, 32, 48)] * 2)
            switch.onColor = switch.offColor = Colors.Red
        self.refuses(TypeError, "Switch.onColor, expected 'Color' but got 'int' instead", setattr, switch, "onColor", 5)
        self.assertRaises(ValueError, setattr, switch, "offColor", "no colour")
        self.assertEqual([switch.onColor, switch.offColor], [Color(255, 0, 0)] * 2)
        switch.onColor = switch.offColor = None
        self.assertEqual((switch.onColor, switch.offColor), theme)


class FilePaths(Case):
    def test_paths_arrive_whole_and_settled(self):
        field, told = FilePathLineEdit(), []
        field.pathChanged(told.append)
        path = "/data/Sørøya 漢 \U0001d11e.sgy"
        for given in (path, ' "%s" ' % path, pathlib.Path(path), pathlib.Path(path).as_uri(), "~/a.sgy", ""):
            field.path = given
        self.assertEqual(told, [path, os.path.expanduser("~/a.sgy"), ""])
        self.assertEqual([FilePathLineEdit(given).path for given in (path, pathlib.Path(path))], [path] * 2)
        self.refuses(TypeError, "FilePathLineEdit.path, expected 'str' but got 'NoneType' instead", setattr, field,
                     "path", None)
        self.refuses(TypeError, "FilePathLineEdit.pathChanged(), expected callable object, but got 'str' instead",
                     field.pathChanged, "x")

    def test_objects_that_are_no_paths(self):
        class Given(os.PathLike):
            def __init__(self, path):
                self.path = path

            def __fspath__(self):
                windows.clear()
                gc.collect()
                return self.path if isinstance(self.path, (str, bytes)) else 1 / 0

        for given, error in ((b"/a", TypeError), (Given(b"/a"), TypeError), (Given(None), ZeroDivisionError),
                             (Given("/b"), None), (Given, TypeError)):
            windows = [Widget()]
            field = FilePathLineEdit("/a", windows[0])
            if error:
                self.assertRaises(error, setattr, field, "path", given)
            else:
                field.path = given  # its window goes meanwhile
        self.refuses(TypeError, "FilePathLineEdit.path, expected 'str' but got 'bytes' instead", FilePathLineEdit,
                     Given(b"/a"))

    def test_the_chooser_is_as_it_was_set(self):
        given = dict(placeholderText="Île", fileFilter="SEG-Y (*.sgy)", dialogTitle="Tørr", dialogType=FileDialogType.Save)
        field = FilePathLineEdit(**given)
        self.assertEqual({name: getattr(field, name) for name in given}, given)
        self.refuses(TypeError, "FilePathLineEdit.dialogType, expected 'FileDialogType' but got 'int' instead",
                     setattr, field, "dialogType", 1)
        self.assertEqual(field.dialogType, FileDialogType.Save)


class Objects(Case):
    def setUp(self):
        for path in getProject().objects():
            os.remove(path)
        self.top, self.base = self.make("Tøp"), self.make("Base")
        self.well = self.make("W 1", ObjectId.Well)

    def make(self, name, kind=ObjectId.Horizon3d):
        path = pathlib.Path(getProject().getNewFilename(kind, name))
        path.touch()
        return str(path)

    def test_one_object_of_the_kinds(self):
        for cls in CHOOSERS:
            with self.subTest(cls.__name__):
                widget = cls((ObjectId.Well, ObjectId.Horizon3d))
                self.assertEqual(widget.kinds, [ObjectId.Horizon3d, ObjectId.Well])
                for path, kind in ((self.well, ObjectId.Well), (self.top, ObjectId.Horizon3d), (None, None)):
                    for given in (path, path and pathlib.Path(path)):
                        widget.objectFilename = None
                        widget.objectFilename = given
                        self.assertEqual((widget.objectFilename, widget.objectId), (path, kind))
                widget.objectFilename = self.well
                widget.kinds = ObjectId.Well
                self.assertEqual((widget.kinds, widget.objectFilename), ([ObjectId.Well], self.well))
                for path in (self.top, "/etc/passwd", self.well + "x"):
                    self.refuses(ValueError, f"{cls.__name__}.objectFilename, '{path}' is not among the objects to "
                                             "choose from", setattr, widget, "objectFilename", path)
                self.assertRaises(TypeError, setattr, widget, "objectFilename", 5)
                self.refuses(ValueError, f"{cls.__name__}.kinds, at least one 'ObjectId' is needed", setattr, widget,
                             "kinds", [])
                self.assertEqual((widget.kinds, widget.objectFilename), ([ObjectId.Well], self.well))
                self.assertEqual(len(cls().kinds), len(ObjectId.names))
                # The arguments may come in any order.
                made = cls(objectFilename=self.top, kinds=ObjectId.Horizon3d)
                self.assertEqual(made.objectFilename, self.top)
                made.kinds = {ObjectId.Fault3d}
                self.assertIsNone(made.objectFilename)

    def test_kinds_of_wrong_types(self):
        for value in (29, "Well", 2.5, object()):
            name = type(value).__name__
            quoted = "ObjectId" if name == "str" else "'ObjectId'"
            self.refuses(TypeError, f"ObjectComboBox, expected {quoted} but got '{name}'", ObjectComboBox, value)
        self.refuses(TypeError, "ObjectComboBox, expected ObjectId but got 'int'", ObjectComboBox, [ObjectId.Well, 29])

    def test_a_widget_destroyed_while_its_kinds_are_read(self):
        for cls in CHOOSERS:
            window = [Widget()]
            widget = cls(ObjectId.Fault3d, window[0])

            def kinds():
                window.clear()
                gc.collect()
                yield ObjectId.Well

            self.refuses(RuntimeError, f"{cls.__name__} has been deleted", setattr, widget, "kinds", kinds())
            self.assertTrue(widget.deleted)

    def test_box_is_a_combo_box_with_items_of_the_project(self):
        box, told, indices = ObjectComboBox(ObjectId.Horizon3d), [], []
        self.assertIsInstance(box, ComboBox.__mro__[1])
        self.assertEqual([box.itemText(row) for row in range(box.count)], ["Base", "Tøp"])
        self.assertEqual((box.objectFilename, box.itemData(1)), (self.base, self.top))
        box.objectChanged(told.append)
        box.selectionChanged(indices.append)
        box.currentIndex = 1
        box.optional = True
        self.assertEqual((box.currentIndex, box.itemText(0), box.itemData(0)), (2, "None", None))
        box.objectFilename = None
        self.assertEqual((box.currentIndex, box.objectId), (0, None))
        added = self.make("Added")
        box.objectFilename = added  # a moment before it is listed by itself
        os.remove(added)
        box.updateObjects()
        self.assertEqual((told, box.currentIndex), ([self.top, None, added, None], -1))
        self.assertEqual(indices, [1, 2, 0, 1, -1])
        for work, arguments in ((box.addItem, "x"), (box.addItems, ["x"]), (box.insertItem, (0, "x")),
                                (box.removeItem, 0), (box.clear, ())):
            arguments = arguments if isinstance(arguments, tuple) else (arguments,)
            self.refuses(RuntimeError, f"ComboBox.{work.__name__}(), the items of this box can not be changed", work,
                         *arguments)
        self.assertEqual(box.count, 3)

    def test_field_and_preview(self):
        preview, shown, told = InputSelectionPreview(ObjectId.Horizon3d), [], []
        field = preview.selection
        self.assertIs(type(field), InputSelectionLineEdit)
        self.assertIs(preview.selection, field)
        self.assertEqual((field.parentWidget, field.kinds), (preview, [ObjectId.Horizon3d]))
        preview.viewerChanged(lambda: shown.append(preview.objectFilename))
        field.selectionChanged(told.append)
        field.placeholderText = "Øverst"
        self.assertEqual(field.placeholderText, "Øverst")
        field.objectFilename = self.top
        preview.objectFilename = self.top
        preview.objectFilename = None
        self.assertEqual((told, shown), ([self.top, None],) * 2)
        self.assertRaises(AttributeError, setattr, preview, "selection", field)
        for mode in list(MouseMode.values.values())[1:]:
            preview.previewMouseMode = mode
            self.assertEqual(preview.previewMouseMode, mode)
        self.refuses(ValueError, "Unknown mouse mode requested", setattr, preview, "previewMouseMode",
                     MouseMode.Unknown)
        self.assertEqual(preview.previewMouseMode, MouseMode.Zoom)
        for connect, name in ((preview.viewerChanged, "InputSelectionPreview.viewerChanged()"),
                              (field.selectionChanged, "InputSelectionLineEdit.selectionChanged()"),
                              (ObjectComboBox().objectChanged, "ObjectComboBox.objectChanged()")):
            self.refuses(TypeError, name + ", expected callable object, but got 'NoneType' instead", connect, None)
        del preview, connect
        gc.collect()
        self.assertTrue(field.deleted)
