"""A saved script runs in the window as it does under strativo run."""
import json
import os
import subprocess

from runner_case import PROGRAM, RunnerCase, main, strativo


class WindowRuns(RunnerCase):
    def in_window(self, path):
        result = subprocess.run([PROGRAM, "--execute", "--screenshot", str(self.folder / "window.png"), path], cwd="/",
                                capture_output=True, text=True, timeout=120,
                                env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))
        self.assertEqual(result.returncode, 0, result.stderr)

    def both(self, source):
        """What the script writes into sys.argv[0] + '.seen', in the window and without it."""
        path = self.script(source)
        answers = []
        for run in (self.in_window, strativo):
            run(path)
            answers.append(json.loads((self.folder / "script.py.seen").read_text()))
            (self.folder / "script.py.seen").unlink()
        return answers

    def test_a_script_finds_itself_and_what_lies_beside_it(self):
        self.script("word = 'beside'", "lying_beside.py")
        window, runner = self.both(
            "import json, lying_beside, sys\n"
            "def depth(n=0):\n"
            "    try: return depth(n + 1)\n"
            "    except RecursionError: return n\n"
            "seen = [__file__, sys.argv, sys.path, lying_beside.word, depth(), sys.getrecursionlimit(), __name__]\n"
            "open(sys.argv[0] + '.seen', 'w').write(json.dumps(seen))\n")
        self.assertEqual(window[:4], runner[:4])
        self.assertEqual(window[2][0], str(self.folder))
        self.assertEqual(window[5:], runner[5:])
        self.assertLess(abs(window[4] - runner[4]), 20)

    def test_the_folder_is_taken_off_the_search_path_after_the_run(self):
        window, _ = self.both(
            "import atexit, json, sys\n"
            "folder, seen = sys.path[0], sys.argv[0] + '.seen'\n"
            "sys.path.append(folder)\n"
            "atexit.register(lambda: open(seen, 'w').write(json.dumps([folder, sys.path])))\n")
        self.assertEqual(window[1].count(window[0]), 1, "what the script has put there itself stays")
        self.assertEqual(window[1][-1], window[0])

    def test_spawned_children_find_the_functions_of_the_script(self):
        window, runner = self.both(
            "import json, multiprocessing, sys\n"
            "def square(x): return x * x\n"
            "if __name__ == '__main__':\n"
            "    with multiprocessing.get_context('spawn').Pool(1) as pool: found = pool.map(square, [2, 3])\n"
            "    open(sys.argv[0] + '.seen', 'w').write(json.dumps(found))\n")
        self.assertEqual(window, [4, 9])
        self.assertEqual(runner, [4, 9])


if __name__ == "__main__":
    main()
