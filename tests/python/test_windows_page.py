"""The examples of the page about windows run as they stand; where they wait for the user, the user accepts."""
import contextlib
import io
import pathlib
import re
import textwrap
import unittest
from unittest import mock

import strativo_python as sp

PAGE = pathlib.Path(__file__).parents[2] / "docs" / "windows.rst"


def accepted(dialog):
    dialog.show()
    dialog.accept()
    return sp.DialogResponse.Accepted


class Page(unittest.TestCase):
    def test_examples(self):
        names, output, errors = {}, io.StringIO(), io.StringIO()
        blocks = re.findall(r"^\.\. code-block:: python\n\n((?:   .*\n|\n)+)", PAGE.read_text(), re.MULTILINE)
        with mock.patch.object(sp.Dialog, "execute", accepted), contextlib.redirect_stdout(output), \
                contextlib.redirect_stderr(errors):
            for block in blocks:
                exec(compile(textwrap.dedent(block), PAGE.name, "exec"), names)
            executed = []
            command = names["Command"](executed.append)
            command.text = "pick"
            for key in (sp.Key.Return, sp.Key.Up, sp.Key.Return):
                command.keyPressEvent(mock.Mock(key=key))
            label = names["HorizonLabel"]()
            event = mock.Mock()
            event.mimeData.objectIds = [sp.ObjectId.Well, sp.ObjectId.Horizon3d]
            event.mimeData.objectFilenames = ["a.las", "b.horizon"]
            label.dragEnterEvent(event)
            label.dropEvent(event)
        self.assertEqual((output.getvalue(), errors.getvalue()), ("2160 m\n", ""))
        self.assertEqual((executed, command.text, command.history), (["pick", "pick"], "", ["pick", "pick"]))
        event.accept.assert_called_once()
        self.assertEqual((label.filename, label.text, label.acceptDrops), ("b.horizon", "b.horizon", True))
