"""The examples and the pages of the documentation: what they show must run, and be readable without a network."""

import os
import re
import subprocess
import textwrap
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
TREE = Path(os.environ["STRATIVO_PYTHON_TREE"])
PAGES = TREE.parent / "doc" / "python"


class ExampleTest(unittest.TestCase):
    def run_example(self, name, *arguments):
        return subprocess.run([TREE / "python3", f"examples/scripts/{name}", *arguments], cwd=PROJECT,
                              capture_output=True, text=True, timeout=60)

    def test_first_script(self):
        done = self.run_example("first_script.py", "40")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("Ricker wavelet of 40 Hz, 5 interfaces", done.stdout)
        coefficient = (1.95 * 2150 - 2.30 * 2450) / (1.95 * 2150 + 2.30 * 2450)
        self.assertRegex(done.stdout, rf"73\.5 ms  {coefficient:.3f}  Shale / Gas sand")
        peak = max(done.stdout.splitlines(), key=lambda line: line.count("#"))
        self.assertEqual(peak.split()[0], "196", "the strongest reflector is the top of the limestone at 197.4 ms")

    def test_traceback_in_the_documentation_is_the_real_one(self):
        done = self.run_example("error_example.py")
        self.assertEqual(done.returncode, 1)
        shown = (PROJECT / "docs" / "first_script.rst").read_text()
        for line in re.findall(r'File "[^"]+", line \d+, in .*|ValueError.*', done.stderr.replace(f"{PROJECT}/", "")):
            self.assertIn(line, shown)

    def test_code_in_the_pages_compiles(self):
        blocks = []
        for page in (PROJECT / "docs").glob("*.rst"):
            found = re.findall(r"^( *)\.\. code-block:: python\n\n((?:\1   .*\n|\n)+)", page.read_text(), re.MULTILINE)
            blocks += [(page.name, textwrap.dedent(code)) for _, code in found]
        self.assertGreater(len(blocks), 3)
        for name, code in blocks:
            compile(code, name, "exec")


@unittest.skipUnless(os.environ.get("STRATIVO_PAGES_BUILT"), "configured without the documentation")
class PagesTest(unittest.TestCase):
    def test_the_pages_that_the_application_opens_exist(self):
        for name in ("index", "search", "strativo_python_attribute", "strativo_python_package_manager"):
            self.assertIn("</html>", (PAGES / f"{name}.html").read_text())
        # A page opened from disk may not fetch its index; it is loaded as a script.
        self.assertIn('src="searchindex.js"', (PAGES / "search.html").read_text())
        self.assertIn("ricker", (PAGES / "searchindex.js").read_text())

    def test_nothing_is_loaded_from_the_network(self):
        for page in PAGES.glob("*.html"):
            self.assert_lacks(page, r"<(script|img|iframe)[^>]+src=\"(https?:|/)")
            self.assert_lacks(page, r"<link[^>]+href=\"(https?:|/)")
        for sheet in PAGES.rglob("*.css"):
            self.assert_lacks(sheet, r"url\([\"']?(https?:|/)|@import")

    def assert_lacks(self, file, pattern):
        found = re.search(pattern, file.read_text())
        self.assertIsNone(found, file)


if __name__ == "__main__":
    unittest.main()
