"""strativo run -m beside python -m: what the module finds, and how it fails."""
import os
import subprocess

from runner_case import RunnerCase, main, strativo

PYTHON = "/usr/bin/python3"
# All that the option decides; the search path's first folder alone, since the rest is this program's own.
REPORT = ("import sys\nprint(sys.argv, sys.path[0], __name__, __file__, __package__, __spec__.name,\n"
          "      sys.modules['__main__'].__dict__ is globals(), sorted(n for n in globals() if n in ('runpy', 'sys')))\n")


class Modules(RunnerCase):
    def setUp(self):
        super().setUp()
        for name, text in {"report.py": REPORT, "package/__init__.py": "print('the package first')",
                           "package/__main__.py": REPORT, "package/inner.py": "from . import sibling\n" + REPORT,
                           "package/sibling.py": "", "bare/__init__.py": "", "wrong.py": "def f():\n    1/0\n\nf()\n",
                           "torn.py": "a b", "status.py": "import sys; sys.exit(int(sys.argv[1]))"}.items():
            path = self.folder / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(text)

    def both(self, *words):
        """The runner's result and that of plain Python, which names itself by its path."""
        theirs = subprocess.run([PYTHON, "-B", "-m", *words], capture_output=True, text=True, cwd=self.folder, timeout=60,
                                env={name: value for name, value in os.environ.items() if name != "PYTHONPATH"})
        return strativo("-m", *words, cwd=self.folder), theirs

    def test_modules_find_what_they_find_in_plain_python(self):
        for words in (["report", "-m", "a b"], ["package", "--verbose"], ["package.__main__"], ["package.inner", "-c"]):
            ours, theirs = self.both(*words)
            self.assertEqual((theirs.returncode, theirs.stderr), (0, ""))
            self.expect(ours, 0, theirs.stdout)
        self.assertIn(str(self.folder / "report.py"), self.both("report")[0].stdout)

    def test_missing_modules_are_told_as_in_plain_python(self):
        for name in ("no_such_module", "bare", "report.inner", "package.no_such", ".report", ""):
            ours, theirs = self.both(name)
            self.assertEqual((ours.returncode, theirs.returncode), (1, 1), name)
            told = theirs.stderr.replace(PYTHON + ":", "python3:")
            self.assertEqual(ours.stderr[ours.stderr.rindex("/python3:") + 1:] if "/python3:" in ours.stderr else ours.stderr,
                             told, name)

    def test_errors_and_statuses_are_the_modules_own(self):
        ours, theirs = self.both("wrong")
        self.assertEqual((ours.returncode, theirs.returncode), (1, 1))
        frames = 'File "%s", line ' % (self.folder / "wrong.py")
        self.assertEqual(ours.stderr[ours.stderr.index(frames):], theirs.stderr[theirs.stderr.index(frames):])
        self.expect(self.both("torn")[0], 1, "", "SyntaxError: invalid syntax")
        self.expect(strativo("-m", "status", "7", cwd=self.folder), 7, "", "")

    def test_the_rest_of_the_command_line_goes_before(self):
        result = strativo("--project", str(self.folder / "project"), "-m", "report", "--project", cwd=self.folder)
        self.expect(result, 0)
        self.assertIn("'--project'", result.stdout)


if __name__ == "__main__":
    main()
