"""What is particular to the standard library that Strativo ships; the interpreter imports this first.

Code from the archive bears the names of the source files beside it, so that tracebacks show its lines wherever the
tree lies. Modules that the tree leaves out say so.
"""
import _imp
import gc
import sys
import zipimport
from _frozen_importlib import ModuleSpec
from types import FunctionType

_ARCHIVE = __loader__.archive
_HOME, _, _ARCHIVE_NAME = _ARCHIVE.rpartition("/")
_SOURCES = _HOME + "/source/"

_WINDOWS = "windows are made with strativo_python"
_PACKAGES = "packages go into the user's own folder, see the documentation on the package manager"
_LICENCE = "its licence does not allow to ship it"
LEFT_OUT = {
    "_tkinter": _WINDOWS, "idlelib": _WINDOWS, "tkinter": _WINDOWS, "turtle": _WINDOWS, "turtledemo": _WINDOWS,
    "ensurepip": "pip is there already", "venv": _PACKAGES,
    "_dbm": _LICENCE, "_gdbm": _LICENCE, "readline": _LICENCE,
    "lib2to3": "it is deprecated and cannot read its grammar here",
    "test": "it tests the interpreter itself",
}


class _LeftOut:
    """The last finder, so that a package of the user's with the same name comes first; and the loader."""

    @classmethod
    def find_spec(cls, name, path=None, target=None):
        return ModuleSpec(name, cls, origin="left out") if name in LEFT_OUT else None

    @staticmethod
    def _refuse(name):
        reason = f"No module named {name!r}: Strativo's Python leaves it out; {LEFT_OUT[name]}"
        raise ModuleNotFoundError(reason, name=name)

    @classmethod
    def create_module(cls, spec):
        cls._refuse(spec.name)

    exec_module = get_code = _refuse


def _name_loaded_code():
    """The functions that the interpreter needed before this module. The import system knows its own by their names."""
    for function in gc.get_objects():
        if type(function) is not FunctionType:
            continue
        code = function.__code__
        name = code.co_filename
        if name.startswith(_ARCHIVE_NAME + "/"):
            _imp._fix_co_filename(code, _SOURCES + name.removeprefix(_ARCHIVE_NAME + "/"))
        elif name.startswith("<frozen ") and not name.startswith(("<frozen importlib", "<frozen zipimport")):
            _imp._fix_co_filename(code, _SOURCES + name[len("<frozen "):-1].replace(".", "/") + ".py")


def _name_code_to_come():
    unmarshal = zipimport._unmarshal_code

    def named(importer, path, path_inside, module, data):
        code = unmarshal(importer, path, path_inside, module, data)
        if code is not None and importer.archive == _ARCHIVE:
            _imp._fix_co_filename(code, _SOURCES + path_inside.removesuffix("c"))
        return code

    zipimport._unmarshal_code = named


_name_loaded_code()
_name_code_to_come()
sys.meta_path.append(_LeftOut)
