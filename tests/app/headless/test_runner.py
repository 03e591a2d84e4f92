"""strativo run from outside: streams, exit status, hostile scripts, leaving."""
import os
import re
import shutil
import signal
import subprocess
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from runner_case import PROGRAM, RunnerCase, main, strativo

PYTHON = "/usr/bin/python3"


class CommandLine(RunnerCase):
    def test_sources_arguments_and_imports(self):
        self.script("def twice(x): return 2 * x", "helper_beside.py")
        path = self.script("import sys, helper_beside\nprint(sys.argv[1:], __file__ == sys.argv[0], helper_beside.twice(4))")
        self.expect(strativo(path, "--verbose", "-x", "a b"), 0, "['--verbose', '-x', 'a b'] True 8\n", "")
        self.expect(strativo("-c", "import sys; print(sys.argv)", "1"), 0, "['-c', '1']\n")
        self.expect(strativo("-", "q", stdin="import sys; print(sys.argv)"), 0, "['-', 'q']\n")
        self.assertFalse((self.folder / "__pycache__").exists())

    def test_status_two_means_not_started(self):
        for words, text in (
            ([], "no script given"),
            (["--no-such", "x.py"], "unknown option --no-such"),
            (["-c"], "-c needs"),
            (["-m"], "-m needs"),
            ([str(self.folder / "absent.py")], "no such file"),
            ([str(self.folder)], "it is a directory"),
        ):
            result = strativo(*words)
            self.expect(result, 2, "", text)

    def test_notices_only_when_verbose(self):
        self.expect(strativo("-c", "pass"), 0, "", "")
        self.assertEqual(strativo("-c", "pass").stderr, "")
        self.expect(strativo("--verbose", "-c", "pass"), 0, "", "Python Path: ")

    def test_missing_tree_is_one_sentence(self):
        libraries = Path(PROGRAM).parent.parent / "lib"
        shutil.copy(PROGRAM, self.folder / "strativo")
        result = subprocess.run(
            [self.folder / "strativo", "run", "-c", "pass"], capture_output=True, text=True,
            env=dict(os.environ, LD_LIBRARY_PATH=str(libraries)), timeout=60)
        self.expect(result, 2, "", "the Python tree is incomplete")
        self.assertEqual(result.stderr.count("\n"), 1)


class Projects(RunnerCase):
    def test_project_is_opened_or_made(self):
        folder = self.folder / "a \u00e9 \"project\""
        code = "import strativo_python as s; print(s.hasProject(), s.getProject().path)"
        for _ in range(2):
            self.expect(strativo("--unicode-text", "--project", str(folder), "-c", code), 0, "True %s\n" % folder, "")
        self.expect(strativo("--project", str(folder), "-c", code), 1, "", "strativo run --unicode-text")
        self.expect(strativo("-c", "import strativo_python as s; print(s.hasProject(), s.getProject())"), 0, "False None\n")
        (folder / "project.strativo").write_text('{"version": "9.0"}')
        self.expect(strativo("--project", str(folder), "-c", code), 2, "", "later version of Strativo")
        (folder / "project.strativo").unlink()
        self.expect(strativo("--project", str(folder), "-c", "pass"), 0, None, "")
        self.script("x = 1")
        self.expect(strativo("--project", str(self.folder), "-c", code), 2, "", "is not a project")
        self.expect(strativo("--project", str(self.folder / "script.py" / "x"), "-c", code), 2, "", "Unable to create")

    def test_info(self):
        def info(*words):
            environment = dict(os.environ, LC_ALL="C.UTF-8")
            return subprocess.run([PROGRAM, "info", *words], capture_output=True, text=True, timeout=60, env=environment)

        folder = self.folder / "Demo"
        subprocess.run([PROGRAM, "demo", str(folder)], capture_output=True, check=True, timeout=60)
        for part in (".strativo-part-0123456789abcdef", "wells/.strativo-part-0123456789abcdef"):
            (folder / part).touch()
        before = sorted((path, path.stat().st_mtime_ns) for path in folder.rglob("*"))
        result = info(str(folder))
        self.expect(result, 0, err="")
        self.assertEqual(result.stdout.splitlines()[0], str(folder))
        self.assertIn("\n  Reference system  WGS 84 / UTM zone 31N\n", result.stdout)
        self.assertIn("\n  Wells             2\n", result.stdout)
        self.assertEqual(info(str(folder / "project.strativo")).stdout.splitlines()[1:], result.stdout.splitlines()[1:])

        # Of every object there is something to say; several are told in turn.
        objects = [path for path in sorted(folder.glob("*/*.*")) if path.parent.name != "directories" and path.name[0] != "."]
        result = info(*map(str, objects))
        self.expect(result, 0, err="")
        told = result.stdout.split("\n\n")
        self.assertEqual(len(told), len(objects))
        for text in told:
            lines = text.splitlines()
            self.assertRegex(text, "(?m)^  Kind +[A-Z].*(\n  .*)+\n  Size +[0-9.]+ .*(\n  .*)*\n  Changed +[0-9]")
            self.assertEqual(len({len(re.match("  [^ ]+( [^ ]+)*  +", line)[0]) for line in lines[1:]}), 1, text)
        self.assertEqual(info(str(folder / "wells" / "S-1")).stdout.splitlines()[1:],
                         info(str(folder / "wells" / "S-1.las")).stdout.splitlines()[1:])
        self.assertEqual(sorted((path, path.stat().st_mtime_ns) for path in folder.rglob("*")), before)

        # Plain files, and texts that would command the terminal.
        (folder / "bare.wavelet").write_bytes(b"12345")
        self.assertRegex(info(str(folder / "bare.wavelet")).stdout, "  Kind     Wavelet\n  Size     5 bytes\n  Changed  .*\n$")
        (folder / "odd.las").write_bytes((folder / "wells/S-1.las").read_bytes().replace(b"Demo", b"De\x1b]mo"))
        self.assertIn("  De?]mo\n", info(str(folder / "odd.las")).stdout)

        for name, text, reason in (("none.las", None, "There is no file"), ("x.bin", "x", "is of no kind that Strativo knows"),
                                   ("broken.las", "x", "Unable to read"), ("empty", "", "is of no kind")):
            if text is not None:
                (self.folder / name).write_text(text)
            result = info(str(self.folder / name), str(folder))
            self.expect(result, 1, err=reason)
            self.assertIn("Wells", result.stdout)
        self.expect(info(str(self.folder)), 1, "", "is not a project")
        self.expect(info(), 2, "", "usage: strativo info")
        self.expect(info("--wrong", str(folder)), 2, "", "usage: strativo info")

    def test_demo(self):
        def demo(*words):
            return subprocess.run([PROGRAM, "demo", *words], capture_output=True, text=True, timeout=60)

        folder = str(self.folder / "demo")
        self.expect(demo(folder), 0, err="")
        self.expect(demo(folder), 1, err="exists already")
        self.expect(demo(), 2, "", "usage: strativo demo")
        code = "import strativo_python as s; p = s.getProject(); print(len(p.objects(s.ObjectId.Well)), p.crs.authorityCode)"
        self.expect(strativo("--project", folder, "-c", code), 0, "2 32631\n")


class Outcomes(RunnerCase):
    def test_status_follows_the_script(self):
        self.expect(strativo("-c", "x = 1"), 0)
        self.expect(strativo("-c", "1/0"), 1, "", "ZeroDivisionError: division by zero")
        self.expect(strativo("-c", "a b"), 1, "", "SyntaxError")

    def test_traceback_shows_the_source_line(self):
        path = self.script("def f(x):\n    return x / 0\n\nf(1)\n")
        self.expect(strativo(path), 1, "", 'script.py", line 2, in f\n    return x / 0')

    def test_source_encodings(self):
        self.expect(strativo(self.script(b"\xef\xbb\xbfprint('\xc3\xa9')\r\n")), 0, "\u00e9\n")
        self.expect(strativo(self.script(b"# -*- coding: latin-1 -*-\nprint('\xe9')\n")), 0, "\u00e9\n")
        self.expect(strativo(self.script(b"print('\xe9')\n")), 1, "", "is not text")
        self.expect(strativo(self.script(b"# coding: nonsense\n")), 1, "", "unknown encoding")
        self.expect(strativo(self.script(b"\xef\xbb\xbf# coding: latin-1\n")), 1, "", "latin-1 with BOM")
        self.expect(strativo(self.script(b"print(1)\x00\nprint(2)\n")), 1, "", "null characters")
        self.expect(strativo(self.script(b"")), 0, "", "")

    def test_large_script_and_large_output(self):
        source = "x = '" + "s" * 1000 + "'  # filler\n"
        self.expect(strativo(self.script(source * (10_000_000 // len(source)) + "print(len(x))\n")), 0, "1000\n")
        result = strativo("-c", "for i in range(1000000): print(i)")
        self.expect(result, 0)
        self.assertEqual(result.stdout, "".join("%d\n" % i for i in range(1000000)))

    def test_streams_that_scripts_break(self):
        keeps = "print('earlier', flush=True)\n"
        self.expect(strativo("-c", keeps + "print('\\ud800')"), 0, "earlier\n\\ud800\n")
        self.expect(strativo("-c", keeps + "import sys\nwith sys.stdout as out: out.writelines(['a', 'b'])\n"
                             "sys.stdout.close(); print(sys.stdout.closed)"), 0, "earlier\nabFalse\n")
        self.expect(strativo("-c", keeps + "import sys; sys.stderr = None; 1/0"), 1, "earlier\n", "ZeroDivisionError")
        self.expect(strativo("-c", keeps + "def f(): f()\nf()"), 1, "earlier\n", "RecursionError")
        self.expect(strativo("-c", keeps + "class E(Exception):\n def __str__(s): 1/0\nraise E()"), 1, "earlier\n",
                    "<exception str() failed>")

    def test_ten_threads_write_whole_lines(self):
        result = strativo("-c", (
            "import sys, threading\n"
            "def work(n):\n"
            "    for i in range(2000): sys.stdout.write('%d-%d;\\n' % (n, i))\n"
            "threads = [threading.Thread(target=work, args=(n,)) for n in range(10)]\n"
            "[t.start() for t in threads]; [t.join() for t in threads]"))
        self.expect(result, 0)
        self.assertEqual(sorted(result.stdout.split()), sorted("%d-%d;" % (n, i) for n in range(10) for i in range(2000)))

    def test_input_reads_the_terminal(self):
        self.expect(strativo("-c", "print(input('Name? ') + '!')", stdin="Ann\u00e9\n"), 0, "Name? Ann\u00e9!\n")
        self.expect(strativo("-c", "input()"), 1, "", "EOFError")

    def test_control_c_interrupts(self):
        for code in ("while True: pass", "import time; time.sleep(60)",
                     "import strativo_python as sp; sp.Dialog('d').execute()"):
            process = subprocess.Popen([PROGRAM, "run", "-c", "print('ready')\n" + code],
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            self.assertEqual(process.stdout.readline(), "ready\n")
            sent = time.monotonic()
            process.send_signal(signal.SIGINT)
            _, errors = process.communicate(timeout=30)
            self.assertLess(time.monotonic() - sent, 10)
            self.assertEqual((process.returncode, errors.count("KeyboardInterrupt")), (1, 1))


class AsPlainPython(RunnerCase):
    def test_standard_library_programs(self):
        data = self.script('{"b": [1, 2.5, null], "a": "\\u00e9"}', "data.json")
        for module, arguments in (
            ("this", []),
            ("json.tool", ["--sort-keys", data]),
            ("calendar", ["2026", "11"]),
            ("base64", ["-t"]),
            ("tokenize", ["-e", data]),
        ):
            driver = "import runpy, sys\nsys.argv[1:] = %r\nrunpy.run_module(%r, run_name='__main__', alter_sys=True)" % (
                arguments, module)
            plain = subprocess.run([PYTHON, "-I", "-m", module, *arguments], capture_output=True, text=True)
            ours = strativo("-c", driver)
            self.expect(ours, 0)
            self.assertEqual(ours.stdout, plain.stdout, module)
            self.assertNotEqual(ours.stdout, "")
        timing = strativo("-c", "import runpy, sys\nsys.argv[1:] = ['-n', '10', 'pass']\n"
                                "runpy.run_module('timeit', run_name='__main__', alter_sys=True)")
        self.expect(timing, 0)
        self.assertRegex(timing.stdout, r"^10 loops, best of 5: \S+ [num]?sec per loop\n$")


    def test_interpreter_is_at_home_in_its_own_tree(self):
        result = strativo("-c", "import json, os, runpy, stat, sys\n"
                          "for m in (os, stat, runpy, json): print(m.__file__)\nprint(sys.executable)\nprint(*sys.path, sep='\\n')")
        home = os.path.join(os.path.dirname(os.path.abspath(PROGRAM)), "python")
        lines = result.stdout.split("\n")
        self.assertEqual([line.startswith(home + "/python36.zip/") for line in lines[:4]], [True] * 4, lines)
        self.assertEqual(lines[4], home + "/python3")
        self.assertEqual(lines[5:8], [home + "/python36.zip", home, home + "/site-packages"])


class Plugins(RunnerCase):
    def plugin(self, name, register="return True", unregister="return True", autoload=False, below=""):
        folder = self.folder / below / name
        folder.mkdir(parents=True)
        (folder / "plugin.info").write_text("[PluginInfo]\ninit=main.py\nversion=2\nautoload=%s\n" % str(autoload).lower())
        (folder / "main.py").write_text(
            "import sys, strativo_python as sp\ndef say(word): sys.stdout.write(word + %r + ' ')\n"
            "def register():\n say('+'); sp.addMainWindowMenu('M')\n %s\ndef unregister():\n say('-')\n %s\n"
            % (name, register, unregister))
        return str(folder)

    def check(self, *words):
        return subprocess.run([PROGRAM, "plugin", *words], capture_output=True, text=True, timeout=120)

    def test_loaded_before_the_script_and_unloaded_in_reverse(self):
        a, b = self.plugin("a"), self.plugin("b", "import threading; threading.Thread(target=say, args='t').start(); return True")
        result = strativo("--plugin", a, "--plugin", b, "-c", "import strativo_python as sp\n"
                          "print(sp.getMainWindowMenu('M').title, sp.showQuestionBox('Sure?'), end=' ')\n1 / 0")
        self.expect(result, 1, err="ZeroDivisionError")
        self.assertEqual(result.stdout.replace("tb ", ""), "+a +b M False -b -a ")
        self.assertIn("Sure? [No]", result.stderr)
        self.assertIn("Removed what the plug-in a left behind: menu M", result.stderr)

    def test_check_changes_nothing_in_the_authors_folder(self):
        folder = Path(self.plugin("stays", unregister="return False", autoload=True))
        with (folder / "main.py").open("a") as startup:
            startup.write("import helper\n")
        (folder / "helper.py").write_text("")
        before = {path: path.read_bytes() for path in folder.iterdir()}
        self.expect(self.check("check", str(folder)), 1)
        self.assertEqual({path: path.read_bytes() for path in folder.rglob("*")}, before)

    def test_check_refuses_a_startup_file_outside_the_folder(self):
        other = Path(self.plugin("other"))
        for init in ("../other/main.py", "a/../../other/main.py", str(other / "main.py")):
            folder = self.folder / "outside"
            folder.mkdir(exist_ok=True)
            (folder / "plugin.info").write_text("[PluginInfo]\ninit=%s\n" % init)
            result = self.check("check", str(folder))
            self.expect(result, 1)
            self.assertRegex(result.stdout, r"^plugin\.info +FAILED +init: the startup file .* lies outside the "
                                            r"plug-in's folder\n$", init)

    def test_opening_a_project_loads_the_automatic_plugins(self):
        mine = self.plugin("a", autoload=True)
        home = self.folder / "home"
        (home / ".strativo").mkdir(parents=True)
        self.plugin("a", register="1 / 0", autoload=True, below="home/.strativo/plugins")
        self.plugin("b", autoload=True, below="home/.strativo/plugins")
        self.plugin("by hand", below="home/.strativo/plugins")
        self.plugin("c", register="return False", autoload=True, below="home/.strativo/plugins")

        def run(*words):
            return strativo(*words, "-c", "print(end='ran ')", env=dict(os.environ, STRATIVO_HOMEPATH=str(home)))

        project = ["--project", str(self.folder / "project")]
        self.expect(run(*project), 0, "+a +b +c ran -b ", "ZeroDivisionError")
        self.expect(run(*project, "--no-autoload"), 0, "ran ", "")
        self.expect(run(), 0, "ran ", "")
        self.expect(run(*project, "--plugin", mine), 0, "+a +b +c ran -b -a ")

    def test_the_main_tool_bar_is_out_of_reach_of_plugins(self):
        plugin = self.plugin("t", "print(*map(sp.removeMainWindowToolBar, ('mainToolBar', 'Main Tool Bar', '')), end=' ')\n"
                             " return True")
        self.expect(strativo("--plugin", plugin, "-c", "1"), 0, "+t False False False -t ")

    def test_status_two_when_one_cannot_be_loaded(self):
        a, bad = self.plugin("a"), self.plugin("bad", "return False")
        self.expect(strativo("--plugin", a, "--plugin", bad, "-c", "print('ran')"), 2, "+a +bad -a ",
                    "Plugin signaled an error to Strativo during load process")
        self.expect(strativo("--plugin", str(self.folder), "-c", "1"), 2, "", "Unable to find plugin metadata file")

    def test_check_reports_each_step(self):
        result = self.check("check", self.plugin("good"))
        self.expect(result, 0)
        self.assertRegex(result.stdout, r"^plugin\.info +ok +good, version 2, .*/main\.py\n"
                                        r"\+good load +ok .*\n-good unload +ok .*\n$")
        self.expect(self.check("check", self.plugin("raises", "1 / 0")), 1, err="ZeroDivisionError")
        result = self.check("check", self.plugin("stays", unregister="return False"))
        self.expect(result, 1)
        self.assertNotIn("Restart", result.stderr)
        self.assertRegex(result.stdout, r"unload +FAILED  Plugin signaled an error to Strativo during unload process\n$")
        self.expect(self.check("check"), 2, "", "usage: strativo plugin check DIR")
        self.expect(self.check("check", str(self.folder)), 1)


class Leaving(RunnerCase):
    def test_a_hundred_starts_with_threads_and_numpy(self):
        code = (
            "import threading, time, sys\n"
            "try:\n    import numpy; held = numpy.arange(1000.0)\n"
            "except ImportError: pass\n"
            "def busy():\n    while True: pass\n"
            "def asleep(): time.sleep(1000)\n"
            "number = %d\n"
            "targets = [busy, lambda: [print('.', end='') for _ in iter(int, 1)]] + [asleep] * (number %% 10 == 0)\n"
            "for target in targets: threading.Thread(target=target, daemon=True).start()\n"
            "sys.modules['kept'] = sys.stdout\n"
        )
        self.leave_a_hundred_times(lambda number: ["-c", code % number])

    def test_a_hundred_starts_with_windows(self):
        widgets = (
            "import gc, strativo_python as sp, sys\n"
            "class Own(sp.Dialog):\n"
            "    def hideEvent(self, event): print(event.eventType, sp.version(), self.parts)\n"
            "    closeEvent = resizeEvent = hideEvent\n"
            "    def __del__(self): print(self.deleted, self.windowTitle)\n"
            "class Data(str):\n"
            "    def __del__(self): sp.Dialog(self).show()\n"
            "opened, kept, waiting = Own('open'), Own('kept'), sp.FormLayout()\n"
            "for window in (opened, kept):\n"
            "    window.parts = sp.Button('a', window), sp.ComboBox(window), sp.Slider(parent=window), window\n"
            "    window.parts[0].clicked(window.accept)\n"
            "    window.parts[0].clicked(lambda: (opened, kept, waiting))\n"
            "    window.parts[1].addItem('data', None, Data('x'))\n"
            "    window.parts[2].valueChanged(print)\n"
            "    window.finished = window.parts[0].menu = sp.Menu('menu')\n"
            "    window.finished.addAction('act', window.reject)\n"
            "waiting.addRow('label', sp.SpinBox())\n"
            "waiting.addRow(sp.TabWidget())\n"
            "waiting.mine = waiting\n"
            "sp.Button('child of what goes first', parent=sp.mainWindow() if sp.mainWindow() else opened)\n"
            "opened.show()\n"
            "sys.modules['windows'] = opened\n"
        )
        folder = self.folder / "windows"
        folder.mkdir()
        (folder / "plugin.info").write_text("[PluginInfo]\ninit=main.py\nversion=2\n")
        (folder / "main.py").write_text(
            widgets + "def register():\n    sp.addMainWindowMenu('M').addAction('open', opened.show)\n"
            "    kept.show()\n    return True\ndef unregister():\n    return True\n")

        def words(number):
            leaving = "" if number % 4 else "raise SystemExit\n"
            return ["--plugin", str(folder)] * (number % 3 == 0) + ["-c", "number = %d\n" % number + widgets + leaving]

        self.leave_a_hundred_times(words)

    def leave_a_hundred_times(self, words):
        with ThreadPoolExecutor(2) as pool:
            results = list(pool.map(lambda number: strativo(*words(number)), range(100)))
        self.assertEqual([r.returncode for r in results], [0] * 100, results[0].stderr)
        self.assertEqual({r.stderr for r in results if "Fatal" in r.stderr or "Traceback" in r.stderr}, set())


if __name__ == "__main__":
    main()
