"""The scripting module's frame: what is importable, and that every public name explains itself."""
import importlib
import inspect
import unittest

import strativo_python


class ModuleFrame(unittest.TestCase):
    def test_submodules(self):
        for name in ("utils", "segy"):
            submodule = importlib.import_module("strativo_python." + name)
            self.assertIs(submodule, getattr(strativo_python, name))
            self.assertEqual(submodule.__name__, "strativo_python." + name)
        self.assertFalse(hasattr(strativo_python, "Exporter"))
        with self.assertRaises(ModuleNotFoundError):
            importlib.import_module("strativo_python.absent")

    def test_every_public_name_has_a_docstring(self):
        missing = []
        for module in (strativo_python, strativo_python.utils, strativo_python.segy):
            for name, value in vars(module).items():
                if name.startswith("__") or inspect.ismodule(value) or not (callable(value) or inspect.isclass(value)):
                    continue
                if not (value.__doc__ or "").strip():
                    missing.append(name)
                if not inspect.isclass(value):
                    continue
                for member, descriptor in vars(value).items():
                    if not member.startswith("_") and not isinstance(descriptor, value):
                        if not (getattr(descriptor, "__doc__", "") or "").strip():
                            missing.append("%s.%s" % (name, member))
        self.assertEqual(missing, [])
