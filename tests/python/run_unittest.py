"""Runs one file of unittest cases inside the embedded interpreter: strativo run run_unittest.py FILE.

The interpreter compiles assertions out, so a bare assert checks nothing here: use the methods of unittest.
"""
import importlib.util
import pathlib
import sys
import unittest

path = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(path.parent))
spec = importlib.util.spec_from_file_location(path.stem, path)
module = importlib.util.module_from_spec(spec)
sys.modules[path.stem] = module
spec.loader.exec_module(module)
result = unittest.TextTestRunner(stream=sys.stdout, verbosity=1).run(
    unittest.defaultTestLoader.loadTestsFromModule(module))
if not result.wasSuccessful() or result.testsRun == 0:
    raise SystemExit(1)
