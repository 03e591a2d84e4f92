"""The staged Python tree and its launcher, driven as the package manager drives them: as child processes."""

import functools
import http.server
import io
import json
import os
import shutil
import subprocess
import tarfile
import tempfile
import threading
import unittest
import zipfile
from pathlib import Path

TREE = Path(os.environ["STRATIVO_PYTHON_TREE"])
LAUNCHER = TREE / "python3"


def write_wheel(folder: Path, name: str, version: str) -> None:
    folder.mkdir(parents=True, exist_ok=True)
    info = f"{name}-{version}.dist-info"
    with zipfile.ZipFile(folder / f"{name}-{version}-py3-none-any.whl", "w") as wheel:
        wheel.writestr(f"{name}/__init__.py", f"version = '{version}'\n")
        wheel.writestr(f"{info}/METADATA", f"Metadata-Version: 2.1\nName: {name}\nVersion: {version}\n")
        wheel.writestr(f"{info}/WHEEL", "Wheel-Version: 1.0\nGenerator: test\nRoot-Is-Purelib: true\nTag: py3-none-any\n")
        wheel.writestr(f"{info}/RECORD", f"{name}/__init__.py,,\n{info}/METADATA,,\n{info}/WHEEL,,\n{info}/RECORD,,\n")


def write_source_archive(path: Path, requirement: str) -> None:
    """A source package whose back end packs a wheel only when pip has installed `requirement` for the build."""
    backend = f"""
import {requirement}, zipfile
def build_wheel(folder, config_settings=None, metadata_directory=None):
    name = 'built-3.0-py3-none-any.whl'
    with zipfile.ZipFile(folder + '/' + name, 'w') as wheel:
        wheel.writestr('built.py', 'made_with = ' + repr({requirement}.version))
        wheel.writestr('built-3.0.dist-info/METADATA', 'Metadata-Version: 2.1\\nName: built\\nVersion: 3.0\\n')
        wheel.writestr('built-3.0.dist-info/WHEEL', 'Wheel-Version: 1.0\\nRoot-Is-Purelib: true\\nTag: py3-none-any\\n')
        wheel.writestr('built-3.0.dist-info/RECORD', '')
    return name
"""
    project = f'[build-system]\nrequires = ["{requirement}"]\nbuild-backend = "backend"\nbackend-path = ["."]\n'
    with tarfile.open(path, "w:gz") as archive:
        for name, text in (("backend.py", backend), ("pyproject.toml", project), ("PKG-INFO", "Name: built\n")):
            entry = tarfile.TarInfo(f"built-3.0/{name}")
            entry.size = len(text)
            archive.addfile(entry, io.BytesIO(text.encode()))


class TreeTestCase(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))

    def launch(self, *arguments, status=0, launcher=LAUNCHER, **variables):
        kept = {name: value for name, value in os.environ.items() if not name.lower().endswith("_proxy")}
        done = subprocess.run([launcher, *arguments], cwd=self.folder, capture_output=True, text=True, timeout=120,
                              env={**kept, "HOME": str(self.folder), "PIP_DISABLE_PIP_VERSION_CHECK": "1", **variables})
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done.stdout + done.stderr

    def evaluate(self, expression, **variables):
        return json.loads(self.launch("-c", f"import sys, json; print(json.dumps({expression}))", **variables))


class LauncherTest(TreeTestCase):
    def test_search_path_is_the_tree_or_what_the_application_hands_over(self):
        own = [str(TREE / "python36.zip"), str(TREE), str(TREE / "site-packages")]
        self.assertEqual(self.evaluate("sys.path[1:]", PYTHONPATH="/elsewhere", PYTHONHOME="/nowhere"), own)
        joined = f"{TREE}/python36.zip;{TREE}/;{TREE}/site-packages/;{self.folder}/;"
        self.assertEqual(self.evaluate("sys.path[1:]", PYTHONHOME=joined), own + [str(self.folder)])

    def test_interpreter_settings_match_the_embedded_one(self):
        (self.folder / "helper.py").write_text("value = 7")
        script = self.folder / "script.py"
        script.write_text("import sys, helper\nassert False\nprint(helper.value, sys.executable, sys.argv[1:], 'é')")
        self.assertEqual(self.launch(str(script), "a b", LC_ALL="C"), f"7 {LAUNCHER} ['a b'] é\n")
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["helper.py", "script.py"])
        self.assertEqual(self.evaluate("sys.stdout.encoding", PYTHONIOENCODING="latin-1"), "iso8859-1")

    def test_failures_reach_the_caller(self):
        (self.folder / "broken.py").write_text("values = (1,\n")
        self.assertIn("broken.py\", line 1", self.launch("broken.py", status=1))
        self.launch("-c", "raise SystemExit(5)", status=5)
        stray = shutil.copy(LAUNCHER, self.folder)
        self.assertIn("python36.zip is missing", self.launch("-V", launcher=stray, status=2))

    def test_a_module_in_the_current_folder_is_not_taken_for_pip(self):
        (self.folder / "pip.py").write_text("raise SystemExit('the wrong pip')")
        self.assertIn(str(TREE), self.launch("-m", "pip", "--version"))


class LibraryTest(TreeTestCase):
    def test_library_is_complete_compiled_and_has_its_sources(self):
        with zipfile.ZipFile(TREE / "python36.zip") as archive:
            names = set(archive.namelist())
            for name in names:
                if name.endswith(".py"):
                    self.assertEqual(archive.read(name + "c")[4:8], b"\1\0\0\0", f"{name}: not an unchecked bytecode file")
        self.assertFalse([name for name in names if "/test" in name or name.startswith("lib2to3")])
        self.launch("-c", "import asyncio, ctypes, decimal, lzma, multiprocessing, pydoc_data.topics, runpy, sqlite3, ssl,"
                          " this, timeit, unittest, zoneinfo, inspect, os; inspect.getsource(os.walk)")
        self.assertFalse(list(TREE.glob("readline.*")), "readline is GPL")

    def test_code_of_the_library_names_files_that_have_its_source(self):
        program = self.folder / "program.py"
        program.write_text("import json, linecache, os\nfor f in (os.walk, json.loads, json.JSONDecoder.decode):\n"
                           "    print(linecache.getline(f.__code__.co_filename, f.__code__.co_firstlineno).split()[1])\n"
                           "json.loads('{')\n")
        moved = self.folder / "a tree"
        moved.mkdir()
        for part in TREE.iterdir():
            (moved / part.name).symlink_to(part) if part.name != "python3" else shutil.copy(part, moved)
        report = self.launch(str(program), launcher=moved / "python3", status=1)
        self.assertTrue(report.startswith("walk(top,\nloads(s,\ndecode(self,\n"), report)
        self.assertIn('File "%s/source/json/decoder.py", line' % moved, report)
        self.assertIn("    obj, end = self.scan_once(s, idx)\n", report)

    def test_what_is_left_out_says_so(self):
        for name in ("tkinter", "turtle", "venv", "ensurepip", "readline", "idlelib", "lib2to3"):
            self.assertIn(f"ModuleNotFoundError: No module named '{name}': Strativo's Python leaves it out; ",
                          self.launch("-c", "import " + name, status=1))
        self.assertIn("leaves it out; packages go into", self.launch("-m", "venv", "x", status=1))
        (self.folder / "turtle.py").write_text("print('the user has one')")
        self.assertIn("the user has one", self.launch("-c", "import turtle"))
        absent = self.evaluate("[n for n in sys.stdlib_module_names if n != 'idlelib' and "
                               "not __import__('importlib.util').util.find_spec(n)]")
        foreign = {"_msi", "_overlapped", "_scproxy", "_winapi", "msilib", "msvcrt", "nt", "ntpath", "winreg", "winsound"}
        self.assertEqual(set(absent) - foreign, set(), "absent without a word")

    def test_packages_are_compiled_and_work(self):
        for package in ("jedi", "parso", "pip"):
            cached = TREE / "site-packages" / package / "__pycache__" / "__init__.cpython-311.opt-1.pyc"
            self.assertEqual(cached.read_bytes()[4:8], b"\1\0\0\0")
        names = self.evaluate("[c.name for c in __import__('jedi').Script('import math\\nmath.sq').complete()]")
        self.assertEqual(names, ["sqrt"])

    def test_numpy_comes_along(self):
        if not Path("/usr/lib/python3/dist-packages/numpy").is_dir():
            self.skipTest("python3-numpy is not installed")
        self.assertEqual(self.evaluate("__import__('numpy').linalg.solve([[2.0]], [3.0]).tolist()"), [1.5])


class PackageTest(TreeTestCase):
    """pip against an index on this machine, with the search path that the application hands over."""

    def setUp(self):
        super().setUp()
        self.user = self.folder / "user" / "site-packages"
        for version in ("1.0", "1.9", "1.10"):
            write_wheel(self.folder / "index" / "layers", "layers", version)
        handler = functools.partial(QuietHandler, directory=self.folder / "index")
        server = self.enterContext(http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler))
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.shutdown)
        self.index = f"http://127.0.0.1:{server.server_port}/"

    def pip(self, *arguments, status=0):
        path = f"{TREE}/python36.zip;{TREE}/;{TREE}/site-packages/;{self.user}/;"
        return self.launch("-m", "pip", *arguments, status=status, PYTHONHOME=path, PYTHONIOENCODING="utf-8",
                           PIP_INDEX_URL=self.index, PIP_CONFIG_FILE=os.devnull)

    def test_install_list_and_uninstall_in_the_users_folder(self):
        shipped = self.pip("freeze").split()
        self.assertLessEqual({"jedi", "parso"}, {line.partition("==")[0] for line in shipped})
        self.assertIn("(from versions: 1.0, 1.9, 1.10)", self.pip("install", "layers==", status=1))
        self.pip("install", "layers==1.9", "-t", f"{self.user}/", "-i", self.index)
        self.assertEqual(sorted(self.pip("freeze").split()), sorted([*shipped, "layers==1.9"]))
        self.pip("uninstall", "--yes", "layers")
        self.assertEqual(self.pip("freeze").split(), shipped)
        self.assertFalse((self.user / "layers").exists())

    def test_source_archive_is_built_in_isolation(self):
        archive = self.folder / "built-3.0.tar.gz"
        write_source_archive(archive, "layers")
        self.pip("install", str(archive), "-t", f"{self.user}/", "-i", self.index)
        self.assertEqual((self.user / "built.py").read_text(), "made_with = '1.10'")
        self.assertNotIn("layers", self.pip("freeze"))


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *arguments):
        pass


if __name__ == "__main__":
    unittest.main()
