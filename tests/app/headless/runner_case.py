"""What the tests of the runner share: the program comes first on the command line."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = sys.argv.pop(1)


def strativo(*words, stdin="", **options):
    return subprocess.run([PROGRAM, "run", *words], input=stdin, capture_output=True, text=True, timeout=120, **options)


class RunnerCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def script(self, source, name="script.py"):
        path = self.folder / name
        path.write_bytes(source if isinstance(source, bytes) else source.encode())
        return str(path)

    def expect(self, result, status, out=None, err=None):
        self.assertEqual(result.returncode, status, result.stderr[-2000:])
        if out is not None:
            self.assertEqual(result.stdout, out)
        if err is not None:
            self.assertIn(err, result.stderr)


def main():
    """Runs the cases of the calling file; 77, which ctest shows as skipped, when some could not be tried here."""
    result = unittest.main(exit=False, verbosity=1).result
    for case, reason in result.skipped:
        print("not tried: %s: %s" % (case, reason))
    sys.exit(not result.wasSuccessful() or (77 if result.skipped else 0))
