"""How the program ends: the status and the last words of scripts, streams that fail, command lines that mean nothing."""
import os
import subprocess

from runner_case import PROGRAM, RunnerCase, main, strativo

PYTHON = "/usr/bin/python3"


class Statuses(RunnerCase):
    def test_leaving_by_sys_exit_is_as_in_plain_python(self):
        for argument in ("", "None", "0", "3", "True", "-1", "256 + 7", "2**70", "'no data \u00e9'", "''", "(1, 2)", "1.5"):
            code = "import sys; print('out'); sys.exit(%s)" % argument
            plain = subprocess.run([PYTHON, "-I", "-X", "utf8", "-c", code], capture_output=True, text=True)
            ours = strativo("-c", code)
            self.assertEqual((ours.returncode, ours.stdout, ours.stderr), (plain.returncode, plain.stdout, plain.stderr), code)

    def test_odd_exits(self):
        self.expect(strativo("-c", "class E(SystemExit): pass\nraise E(4)"), 4, "", "")
        self.expect(strativo("-c", "import sys\nsys.stderr = None\nsys.exit('text')"), 1, "", "text\n")
        self.expect(strativo("-c", "import sys\nclass T:\n def __str__(self): 1/0\nsys.exit(T())"), 1, "", "\n")

    def test_tracebacks_name_the_whole_path_wherever_the_script_goes(self):
        self.script("import os; os.chdir('/'); print(os.path.isfile(__file__)); 1/0")
        result = strativo("script.py", cwd=self.folder)
        self.expect(result, 1, "True\n", 'File "%s/script.py", line 1' % self.folder)


class Threads(RunnerCase):
    def test_a_thread_that_is_waited_for_still_finds_what_lies_beside_the_script(self):
        self.script("print('beside')", "lying_beside.py")
        self.expect(strativo(self.script("import threading, time\n"
                                         "threading.Thread(target=lambda: (time.sleep(0.5), __import__('lying_beside'))).start()\n")),
                    0, "beside\n", "")


class Streams(RunnerCase):
    def test_a_full_disk_raises_and_the_status_tells(self):
        for stream, code in (("stdout", "print('lost'); print('not reached')"),
                             ("stderr", "import sys; sys.stderr.write('lost'); print('not reached')")):
            with open("/dev/full", "w") as full:
                streams = dict(stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                streams[stream] = full
                result = subprocess.run([PROGRAM, "run", "-c", code], text=True, timeout=60, **streams)
            self.assertEqual(result.returncode, 1)
            self.assertNotIn("not reached", result.stdout or "")
            if stream == "stdout":
                self.assertIn("OSError: [Errno 28] No space left on device", result.stderr)
        with open("/dev/full", "w") as full:
            handled = "import sys\ntry: print('lost')\nexcept OSError as e: sys.stderr.write(str(e.errno))"
            result = subprocess.run([PROGRAM, "run", "-c", handled], stdout=full, stderr=subprocess.PIPE, text=True)
        self.assertEqual((result.returncode, result.stderr), (0, "28"))

    def test_a_reader_that_goes_away_raises_a_broken_pipe_error(self):
        reader, writer = os.pipe()
        os.close(reader)
        # Ignoring the signal is the process's business; here it is what is inherited.
        result = subprocess.run([PROGRAM, "run", "-c", "print('lost'); raise SystemExit(7)"], stdout=writer,
                                stderr=subprocess.PIPE, text=True, timeout=60, restore_signals=False)
        os.close(writer)
        self.assertEqual(result.returncode, 1)
        self.assertIn("BrokenPipeError: [Errno 32]", result.stderr)

    def test_closed_streams_lead_nowhere(self):
        path = self.script("import sys; print('nowhere'); sys.stderr.write('nowhere'); open(sys.argv[1], 'w').write('ran')")
        result = subprocess.run(["sh", "-c", '"$0" run "$1" "$2" <&- >&- 2>&-', PROGRAM, path, str(self.folder / "seen")],
                                timeout=60)
        self.assertEqual(result.returncode, 0)
        self.assertEqual((self.folder / "seen").read_text(), "ran")


class CommandLines(RunnerCase):
    def program(self, *words, **environment):
        kept = {name: value for name, value in os.environ.items()
                if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        return subprocess.run([PROGRAM, *words], capture_output=True, text=True, timeout=60, cwd=self.folder,
                              env={**kept, **environment})

    def test_a_mistyped_command_is_an_error(self):
        script = self.script("print('ran')")
        self.expect(self.program("runn", script), 2, "", 'unknown command "runn"')
        self.expect(self.program("--executee", script), 2, "", "Unknown option 'executee'")

    def test_a_missing_display_is_an_error(self):
        script = self.script("print('ran')")
        for environment in ({}, {"DISPLAY": ":4711"}, {"QT_QPA_PLATFORM": "xcb", "DISPLAY": ":4711"}):
            self.expect(self.program(script, **environment), 2, "", "there is no display")
            self.expect(self.program("run", script, **environment), 0, "ran\n")
        picture = self.folder / "picture.png"
        self.expect(self.program("--screenshot", str(picture)), 0)
        self.assertEqual(picture.read_bytes()[1:4], b"PNG")
        self.expect(self.program("--help"), 0)

    def test_every_command_explains_itself(self):
        for words in (("run", "--help"), ("plugin", "--help"), ("plugin", "check", "--help"), ("demo", "--help"), ("info", "--help")):
            self.assertRegex(self.program(*words).stdout, "^usage: strativo " + words[0])
            self.expect(self.program(*words), 0, err="")


class CurrentFolder(RunnerCase):
    def test_a_file_that_lies_around_does_not_replace_the_library(self):
        self.script("word = 'mine'", "json.py")
        code = "import json; print(getattr(json, 'word', 'the library')); assert True"
        self.expect(strativo("-c", code, cwd=self.folder), 0, "the library\n")
        self.expect(strativo("-", stdin=code, cwd=self.folder), 0, "the library\n")
        self.expect(strativo("--current-folder", "-c", code, cwd=self.folder), 0, "mine\n")
        self.expect(strativo("--current-folder", "-", stdin=code, cwd=self.folder), 0, "mine\n")


if __name__ == "__main__":
    main()
