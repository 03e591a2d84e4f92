"""Texts of the host on their way to scripts: in ASCII only, or whole where the user has asked for that.

Run both ways; the word "whole" after the file's name says that `strativo run --unicode-text` does.
"""
import copy
import pickle
import sys
import traceback
import unittest
from pathlib import Path

from strativo_python import (Button, ColorBar, ComboBox, Crs, Dialog, FilePathLineEdit, Font, GroupBox, Image2d, Image3d,
                             Label, LineEdit, Menu, MimeData, ObjectComboBox, ObjectId, TextEdit, getProject)

WHOLE = "whole" in sys.argv[2:]
TEXT = "Überschiebung"
BEYOND = "a \u6c34 \U0001f30b"  # no Latin-1
WKT = ('GEOGCS["Réseau",DATUM["Datum",SPHEROID["WGS 84",6378137,298.257223563]],PRIMEM["Greenwich",0],'
       'UNIT["degree",0.0174532925199433]]')


def reads(text):
    """Functions that read a text back, in every way that the bindings have."""
    image, cube, bar, data, box, line = Image2d(1, 1, name=text), Image3d(1, 1, 1), ColorBar(), MimeData(), ComboBox(), LineEdit()
    cube.name = bar.name = data.text = data.html = line.text = text
    box.addItem(text, userData=text)
    path = FilePathLineEdit()
    path.path = "/" + text
    yield lambda: image.name
    yield lambda: str(image)
    yield lambda: cube.name
    yield lambda: bar.name
    yield lambda: data.text
    yield lambda: data.html
    yield lambda: box.currentText
    yield lambda: box.itemText(0)
    yield lambda: box.currentData
    yield lambda: box.itemData(0)
    yield lambda: line.text
    yield lambda: path.path
    yield lambda: Font(text).family
    yield lambda: repr(Font(text))
    for made, member in ((Label, "text"), (Button, "text"), (Menu, "title"), (GroupBox, "title"), (Dialog, "windowTitle"),
                         (Label, "toolTip"), (TextEdit, "text")):
        yield lambda made=made, member=member: getattr(made(**{member: text}), member)


class HostTexts(unittest.TestCase):
    def expect(self, read, text, shown=None):
        if WHOLE:
            self.assertIn(text, read())
        elif text.isascii() or shown:
            self.assertIn(shown or text, read())
        else:
            with self.assertRaises(UnicodeDecodeError) as caught:
                read()
            report = "".join(traceback.format_exception(caught.exception))
            for name in ("Settings > Python > Whole Unicode texts", "--unicode-text"):
                self.assertIn(name, report)

    def test_every_way(self):
        for text, shown in ((TEXT, None), ("plain", None), (BEYOND, "a ? ?")):
            for index, read in enumerate(reads(text)):
                with self.subTest(index=index, text=text):
                    # A character beyond 16 bits is two for Qt.
                    self.expect(read, text, "a ? " if shown else None)

    def test_the_project(self):
        project = getProject()
        plain = Path(project.getNewFilename(ObjectId.Horizon3d, "plain"))
        plain.touch()
        self.assertIn(str(plain), project.objects(ObjectId.Horizon3d))
        accented = plain.with_name(TEXT + plain.suffix)
        accented.touch()
        self.addCleanup(accented.unlink)
        project.addVirtualDirectory(ObjectId.Horizon3d, TEXT)
        self.addCleanup(project.removeVirtualDirectory, ObjectId.Horizon3d, TEXT)
        project.setObjectInVirtualDirectory(str(accented), ObjectId.Horizon3d, TEXT)
        box = ObjectComboBox(ObjectId.Horizon3d)
        box.objectFilename = str(accented)
        for read in (lambda: project.getFilename(ObjectId.Horizon3d, TEXT),
                     lambda: project.getNewFilename(ObjectId.Horizon3d, TEXT),
                     lambda: "".join(project.objects()), lambda: "".join(project.objects(ObjectId.Horizon3d)),
                     lambda: "".join(project.getVirtualDirectories()),
                     lambda: "".join(project.getObjectsInVirtualDirectory(ObjectId.Horizon3d, TEXT)),
                     lambda: box.objectFilename, lambda: box.currentText, lambda: box.currentData):
            self.expect(read, TEXT)

    def test_signals_call_with_what_can_be_read(self):
        line, told = LineEdit(), []
        line.textChanged(told.append)
        line.text = TEXT
        line.text = "plain"
        self.assertEqual(told, [TEXT, "plain"] if WHOLE else ["plain"])

    def test_copies_keep_the_text_either_way(self):
        image, cube = Image2d(1, 1, name=BEYOND + TEXT), Image3d(1, 1, 1)
        cube.name = TEXT
        for original, text in ((image, TEXT), (cube, TEXT), (Font(TEXT, bold=True), TEXT), (Crs.fromWtk(WKT), "Réseau")):
            pickled = pickle.dumps(original)
            self.assertIn(text.encode(), pickled)
            for copied in (copy.deepcopy(original), pickle.loads(pickled)):
                self.assertIn(text.encode(), pickle.dumps(copied))
