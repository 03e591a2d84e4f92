"""Processes and threads of scripts, and what becomes of them at the end, in the runner and in the workbench."""
import ast
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PROGRAM = sys.argv.pop(1)
JOBLIB = Path("/usr/lib/python3/dist-packages/joblib")

WORK = """
import multiprocessing, os, sys
def square(x): return x * x
def level(_): return sys.flags.optimize
def report(path):
    with open(path, 'w') as file: file.write('process')
"""

ALL_KINDS = """
import sys
sys.path.insert(0, {folder!r})
import work
import multiprocessing
from concurrent.futures import ProcessPoolExecutor

if __name__ == '__main__':
    results = [multiprocessing.get_start_method()]
    process = multiprocessing.Process(target=work.report, args=({folder!r} + '/process.txt',))
    process.start(); process.join()
    results.append((process.exitcode, open({folder!r} + '/process.txt').read()))
    with multiprocessing.Pool(2) as pool:
        results.append(pool.map(work.square, range(4)))
        results.append(pool.map(work.level, [0]))
    with ProcessPoolExecutor(2) as executor:
        results.append(list(executor.map(work.square, range(3))))
    import joblib
    with joblib.parallel_backend('loky'):
        results.append(joblib.Parallel(n_jobs=2)(joblib.delayed(work.square)(i) for i in range(3)))
    left_open = multiprocessing.Pool(2)
    results.append(left_open.map(work.square, [9]))
    open({folder!r} + '/results.txt', 'w').write(repr(results))
"""
RESULTS = "['spawn', (0, 'process'), [0, 1, 4, 9], [1], [0, 1, 4], [0, 1, 4], [81]]"


class ProcessCase(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        packages = self.folder / "home" / ".strativo" / "site-packages"
        packages.mkdir(parents=True)
        if JOBLIB.is_dir():
            (packages / "joblib").symlink_to(JOBLIB)
        self.environment = dict(os.environ, STRATIVO_HOMEPATH=str(self.folder / "home"))
        (self.folder / "work.py").write_text(WORK)

    def script(self, source):
        path = self.folder / "script.py"
        path.write_text(source)
        return str(path)

    def program(self, *words, status=0):
        done = subprocess.run([PROGRAM, *words], capture_output=True, text=True, timeout=120, env=self.environment)
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return done

    def run_script(self, source, status=0):
        return self.program("run", self.script(source), status=status)

    def run_in_workbench(self, source):
        """The window leaves by itself once the script has ended and the picture is taken."""
        return self.program("--execute", "--screenshot", str(self.folder / "window.png"), self.script(source))


class ChildProcesses(ProcessCase):
    def check_all_kinds(self, run):
        if not JOBLIB.is_dir():
            self.skipTest("python3-joblib is not installed")
        done = run(ALL_KINDS.format(folder=str(self.folder)))
        self.assertTrue((self.folder / "results.txt").exists(), done.stderr)
        self.assertEqual((self.folder / "results.txt").read_text(), RESULTS)

    def test_every_kind_of_pool_works_in_the_runner(self):
        self.check_all_kinds(self.run_script)

    def test_every_kind_of_pool_works_in_the_workbench(self):
        self.check_all_kinds(self.run_in_workbench)

    def test_the_start_method_remains_the_scripts_choice(self):
        done = self.run_script(
            "import multiprocessing as m, importlib.util, inspect\nm.set_start_method('fork')\n"
            "def f(q): q.put(__name__)\nq = m.Queue(); p = m.Process(target=f, args=(q,)); p.start()\n"
            "print(q.get()); p.join(); print(p.exitcode, 'DefaultContext' in inspect.getsource(m.context))\n")
        self.assertEqual(done.stdout, "__main__\n0 True\n")


class ValuesInChildren(ProcessCase):
    """Child processes import strativo_python as the script does, and have its values."""
    SCRIPT = """
import multiprocessing, os, sys
from concurrent.futures import ProcessPoolExecutor
import strativo_python as s
from strativo_python import Dialog, Align, Image2d, getProject

class View(Dialog):
    where = Align.Left

def change(value):
    if isinstance(value, s.vec3): return value * 2
    if isinstance(value, s.FloatArray): value[0] = 9
    if isinstance(value, Image2d): value[1, 1] = 9
    if isinstance(value, s.BlockSpace): return s.utils.blockToSurvey(s.vec3(0, 0, 0), value)
    return value

def use_windows(_):
    texts = []
    for use in (View, getProject, lambda: s.Icon('x'), lambda: s.Absent):
        try: use()
        except (RuntimeError, AttributeError) as error: texts.append(f'{{type(error).__name__}}: {{error}}')
    libraries = open('/proc/self/maps').read()
    return texts, 'Qt5Widgets' in libraries, 'strativo_python' in sys.builtin_module_names, 'DISPLAY' in os.environ

if __name__ == '__main__':
    os.environ.pop('DISPLAY', None)
    image = Image2d(2, 2)
    array = s.FloatArray(0)
    array.extend([1, 2])
    values = [s.vec3(1, 2, 3), array, image, s.BlockSpace(4, 5, 6), s.Color(1, 2, 3), s.Rectangle(1, 2, 3, 4)]
    expected = [s.vec3(2, 4, 6), [9.0, 2.0], 9.0, s.utils.blockToSurvey(s.vec3(0, 0, 0), values[3]), values[4], values[5]]
    report = []
    for pool in (multiprocessing.Pool(2), ProcessPoolExecutor(2)):
        with pool:
            found = list(pool.map(change, values))
            found[1], found[2] = list(found[1]), found[2][1, 1]
            report.append(repr(found) == repr(expected) and values[1][0] == 1 and image[1, 1] != 9)
            report.extend(pool.map(use_windows, [0]))
    open({folder!r} + '/results.txt', 'w').write(repr(report))
"""
    NEEDED = "needs the application, which child processes of scripts do without"
    WITHOUT_WINDOWS = ([f"RuntimeError: View {NEEDED}", f"RuntimeError: getProject {NEEDED}", f"RuntimeError: Icon {NEEDED}",
                        "AttributeError: module 'strativo_python' has no attribute 'Absent'"], False, True, False)

    def check_values(self, run):
        done = run(self.SCRIPT.format(folder=str(self.folder)))
        self.assertTrue((self.folder / "results.txt").exists(), done.stderr)
        self.assertEqual(ast.literal_eval((self.folder / "results.txt").read_text()),
                         [True, self.WITHOUT_WINDOWS, True, self.WITHOUT_WINDOWS])

    def test_values_go_to_children_and_back_in_the_runner(self):
        self.check_values(self.run_script)

    def test_values_go_to_children_and_back_in_the_workbench(self):
        self.check_values(self.run_in_workbench)

    def test_children_know_every_name_of_the_application(self):
        """Else a script whose file also makes windows fails in them."""
        done = self.program("run", "-c", """
import strativo_python as s, subprocess, sys
child = subprocess.run([sys.executable, '-c', 'from strativo_python import *; print(*dir())'], text=True, capture_output=True)
print(child.stderr, sorted({name for name in dir(s) if name[0] != '_'} ^ {*filter(lambda n: n[0] != '_', child.stdout.split())}))
""")
        self.assertEqual(done.stdout, " []\n")

    def test_texts_are_as_whole_in_children_as_in_their_parent(self):
        code = ("import subprocess, sys\ncode = \"import strativo_python as s; i = s.Image2d(1, 1); i.name = chr(233); i.name\"\n"
                "print(subprocess.run([sys.executable, '-c', code], stderr=subprocess.PIPE).returncode)")
        self.assertEqual(self.program("run", "-c", code).stdout, "1\n")
        self.assertEqual(self.program("run", "--unicode-text", "-c", code).stdout, "0\n")

    def test_no_other_python_imports_the_module(self):
        tree = Path(PROGRAM).parent / "python"
        done = subprocess.run(["/usr/bin/python3", "-c", "import strativo_python"], capture_output=True, text=True,
                              env=dict(self.environment, PYTHONPATH=f"{tree}:{tree}/site-packages"))
        self.assertIn("ModuleNotFoundError: No module named 'strativo_python'", done.stderr)


class Forks(ProcessCase):
    SCRIPT = """
import atexit, os, sys, threading
atexit.register(print, 'exit function')
def fork(end):
    pid = os.fork()
    if pid == 0:
        print('child of', end, hasattr(os, '_exit'))
        if end == 'raise': 1 / 0
        if end == 'exit': sys.exit(5)
        if end == 'text': sys.exit('the reason')
        if end == '_exit': os._exit(6)
        return False
    with open({folder!r} + '/results.txt', 'a') as file:
        print(end, os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), hasattr(os, '_exit'), file=file)
    return True
for end in ('return', 'raise', 'exit', 'text', '_exit'):
    if not fork(end): break
else:
    thread = threading.Thread(target=fork, args=('thread',)); thread.start(); thread.join()
    print('the parent ends')
"""
    RESULTS = "return 0 False\nraise 1 False\nexit 5 False\ntext 1 False\n_exit 6 False\nthread 0 False\n"

    def check_forks(self, run):
        done = run(self.SCRIPT.format(folder=str(self.folder)))
        self.assertEqual((self.folder / "results.txt").read_text(), self.RESULTS, done.stderr)
        for line in ("child of return True", "child of thread True"):
            self.assertEqual(done.stdout.count(line), 1, done.stdout)
        self.assertIn("ZeroDivisionError", done.stderr)
        self.assertIn("the reason\n", done.stderr)
        return done

    def test_a_forked_child_never_comes_back_into_the_runner(self):
        done = self.check_forks(self.run_script)
        self.assertEqual(done.stdout.count("the parent ends\n"), 1)
        self.assertEqual(done.stdout.count("exit function\n"), 1)

    def test_a_forked_child_never_comes_back_into_the_workbench(self):
        self.check_forks(self.run_in_workbench)

    def test_a_child_forked_in_a_handler_or_a_plugin_ends_there_and_leaves_the_windows_alone(self):
        plugin = self.folder / "plugin"
        plugin.mkdir()
        (plugin / "plugin.info").write_text("[PluginInfo]\ninit=main.py\nversion=1\n")
        (plugin / "main.py").write_text(
            "import os\ndef register():\n    if os.fork(): os.wait(); print('registered')\n    return True\n"
            "def unregister():\n    return True\n")
        code = ("import os, strativo_python as s\nd = s.Dialog('d'); c = s.Slider(parent=d)\ndef changed(on):\n"
                "    if os.fork(): print(os.waitstatus_to_exitcode(os.wait()[1])); return\n"
                "    try: c.value = 8\n    except RuntimeError as e: print(e)\n"
                "c.valueChanged(changed)\nc.value = 7\nprint('end')\n")
        done = self.program("run", "--plugin", str(plugin), "-c", code)
        self.assertEqual(done.stdout, "registered\nwindows can not be used in a forked process\n0\nend\n")


class Ending(ProcessCase):
    THREADS = """
import atexit, sys, threading, time
from concurrent.futures import ThreadPoolExecutor
def work(): time.sleep({seconds}); sys.stdout.write('thread done\\n')
threading.Thread(target=work).start()
ThreadPoolExecutor(1).submit(work)
atexit.register(print, 'exit function')
print('script done', flush=True)
"""

    def test_the_runner_waits_for_threads_and_jobs(self):
        done = self.run_script(self.THREADS.format(seconds=1.5))
        self.assertEqual(done.stdout, "script done\nthread done\nthread done\nexit function\n")

    def test_control_c_ends_the_wait(self):
        process = subprocess.Popen([PROGRAM, "run", self.script(self.THREADS.format(seconds=1000))], text=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.environment)
        self.assertEqual(process.stdout.readline(), "script done\n")
        time.sleep(0.5)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=30)
        self.assertEqual((process.returncode, output), (0, "exit function\n"))
        self.assertIn("KeyboardInterrupt", errors)

    def test_the_workbench_does_not_wait_for_what_a_script_left_running(self):
        path = self.script(self.THREADS.format(seconds=1000) + f"""
import sys
sys.path.insert(0, {str(self.folder)!r})
import multiprocessing, work
if __name__ == '__main__':
    pool = multiprocessing.Pool(2)
    pool.apply_async(time.sleep, (1000,))
    multiprocessing.Process(target=time.sleep, args=(30,)).start()
""")
        # The process goes on and keeps the streams open.
        status = subprocess.run([PROGRAM, "--execute", "--screenshot", str(self.folder / "window.png"), path], timeout=20,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env=self.environment)
        self.assertEqual(status.returncode, 0)

    def test_writing_to_what_is_gone_raises_and_ends_nothing(self):
        done = self.run_script("""
import resource, socket
here, there = socket.socketpair()
there.close()
try: here.send(b'x')
except BrokenPipeError: print('nobody reads')
resource.setrlimit(resource.RLIMIT_FSIZE, (4, resource.RLIM_INFINITY))
try:
    with open(%r, 'wb', 0) as file: file.write(b'1234'); file.write(b'5')
except OSError as error: print(error.strerror)
""" % str(self.folder / "short"))
        self.assertEqual(done.stdout, "nobody reads\nFile too large\n")


if __name__ == "__main__":
    unittest.main(verbosity=1)
