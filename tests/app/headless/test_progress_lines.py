"""The progress lines of strativo run, in a pipe and on a terminal."""
import fcntl
import os
import pty
import re
import signal
import struct
import subprocess
import termios
import unicodedata

from runner_case import PROGRAM, RunnerCase, main, strativo


class Progress(RunnerCase):
    LOOPS = ("import strativo_python as s, sys, time\n"
             "for i in s.ModalProgressBar('Lines\\n\\x1b[2J of \\u5730\\u9707 ' + sys.argv[1], 30):\n"
             "    for j in s.ModalProgressBar('Traces', 3): time.sleep(0.0125)\n"
             "    if int(i) == 15: print('half way'); sys.stdout.write('no end')\n"
             "    if int(i) == 20: print()\n")

    def on_terminal(self, script, *words, columns=60, interrupt=False):
        """What a terminal gets from the run; standard output goes there too."""
        try:
            master, slave = pty.openpty()
        except OSError as error:
            self.skipTest("there is no pseudo-terminal to be had (%s)" % error)
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = subprocess.Popen([PROGRAM, "run", script, *words], stdin=slave, stdout=slave, stderr=slave,
                                   env=dict(os.environ, TERM="xterm", LC_ALL="C.UTF-8"))
        os.close(slave)
        seen = b""
        while True:
            try:
                data = os.read(master, 65536)
            except OSError:
                break
            seen += data
            if not data:
                break
            if interrupt and re.search(rb"\d %", seen):
                process.send_signal(signal.SIGINT)
                interrupt = False
        os.close(master)
        return process.wait(60), seen.decode()

    @staticmethod
    def screen(text):
        """The lines as they stand on the screen in the end."""
        lines = [""]
        for part in re.split("(\r\n|\r|\x1b\\[K)", text):
            if part == "\r\n":
                lines.append("")
            elif part == "\r":
                lines[-1] = ""
            elif part != "\x1b[K":
                lines[-1] += part
        return lines

    def test_lines_in_a_pipe_are_few(self):
        result = strativo(self.script(self.LOOPS), "x")
        self.expect(result, 0, "half way\nno end\n")
        lines = result.stderr.splitlines()
        self.assertEqual(lines[0], "Lines ?[2J of \u5730\u9707 x 0 %")
        self.assertRegex(lines[1], "^Lines .* \\d\\d %( > Traces \\d+ %)?, about \\d s left$")
        self.assertRegex(lines[-1], "^Lines .* x: done in \\d.\\d s$")
        self.assertLess(len(lines), 6, lines)
        self.assertNotIn("\x1b", result.stderr)
        quick = strativo("-c", "import strativo_python as s\nfor n in range(500):\n"
                               "    for i in s.ModalProgressBar('x', 2): pass")
        self.assertLess(len(quick.stderr.splitlines()), 4, "loops that are over at once")

    def test_one_line_on_a_terminal(self):
        status, seen = self.on_terminal(self.script(self.LOOPS), "a name " * 20)
        self.assertEqual(status, 0)
        frames = re.findall("\r([^\r\n\x1b]+)\x1b\\[K", seen)
        self.assertGreater(len(frames), 8)
        self.assertLess(len(frames), 60)
        for frame in frames:
            self.assertLess(sum(1 + (unicodedata.east_asian_width(c) == "W") for c in frame), 60, frame)
        lines = self.screen(seen)
        self.assertEqual(lines[:2], ["half way", "no end"])
        self.assertRegex(lines[2], "^Lines .*done in")
        self.assertEqual(lines[3:], [""])
        status, seen = self.on_terminal(self.script(self.LOOPS), "x", columns=100)
        self.assertIn("..]  about 1 s left", seen)

    def test_endings(self):
        loop = "import strativo_python as s, time\nfor i in s.ModalProgressBar('Lines', 100):\n    time.sleep(0.02)\n"
        status, seen = self.on_terminal(self.script(loop), interrupt=True)
        self.assertEqual(status, 1)
        self.assertEqual(self.screen(seen)[-2:], ["KeyboardInterrupt", ""])
        result = strativo(self.script(loop + "    if int(i) == 80: 1/0\n"))
        self.expect(result, 1, "", "Lines: stopped at 81 % after 1.")
        self.assertLess(result.stderr.index("stopped"), result.stderr.index("ZeroDivisionError"))


if __name__ == "__main__":
    main()
