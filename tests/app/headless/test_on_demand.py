"""strativo run makes windows, and what they need, when a script asks for them."""
import os

from runner_case import RunnerCase, main, strativo

# Qt loads its way to the screen with the application object.
LOADED = "import strativo_python as sp\nloaded = lambda: 'plugins/platforms' in open('/proc/self/maps').read()\n"


class OnDemand(RunnerCase):
    def test_a_script_that_shows_nothing_has_no_way_to_the_screen(self):
        self.expect(strativo("-c", LOADED + "sp.vec3(1, 2, 3), sp.FloatArray(3), sp.Color(1, 2, 3), sp.Point(1, 2)\n"
                             "with sp.ModalProgressBar('steps', 3) as bar:\n    for step in bar: pass\n"
                             "print(loaded(), sp.hasProject(), sp.getProject(), sp.version()[0] >= 0, loaded())"),
                    0, "False False None True False\n")

    def test_everything_that_needs_the_screen_gets_it(self):
        for use in ("sp.Label('text').text", "sp.Font('Sans', 9).family", "sp.Icon.getBuiltinIcon('horizon_24')",
                    "sp.mainWindow()", "sp.Dialog()", "sp.GridLayout()",
                    "sp.addSubWindow(sp.Label('text'))", "sp.getMainWindowMenu('No such')"):
            self.expect(strativo("-c", LOADED + "print(loaded()); %s; print(loaded())" % use), 0, "False\nTrue\n")

    def test_default_fonts_are_the_applications(self):
        for make in ("sp.Font()", "pickle.loads(pickle.dumps(sp.Font()))"):
            code = "import pickle, strativo_python as sp\n%sprint(" + make + ", sp.Label('').font)"
            first, after = strativo("-c", code % ""), strativo("-c", code % "sp.Label('')\n")
            self.expect(first, 0, after.stdout)

    def test_the_scripts_locale_stays(self):
        code = ("import locale, strativo_python as sp\nlocale.setlocale(locale.LC_ALL, 'C')\nbefore = locale.setlocale("
                "locale.LC_ALL)\nsp.Label('')\nprint(locale.setlocale(locale.LC_ALL) == before, before)")
        self.expect(strativo("-c", code, env=dict(os.environ, LC_ALL="C.UTF-8")), 0, "True C\n")

    def test_first_windows_of_other_threads_are_refused_and_later_ones_of_the_main_thread_are_not(self):
        code = (LOADED + "import threading\n"
                "def work():\n"
                "    for make in (sp.Label, sp.Dialog, sp.mainWindow, sp.Font):\n"
                "        try: make()\n"
                "        except RuntimeError as error: told.add(str(error))\n"
                "told = set(); worker = threading.Thread(target=work); worker.start(); worker.join()\n"
                "print(told, loaded(), sp.Label('on the main thread').text)")
        self.expect(strativo("-c", code), 0, "{'windows can only be used on the main thread'} False on the main thread\n")

    def test_forked_processes_make_none(self):
        code = ("import os, strativo_python as sp\n"
                "if os.fork() == 0:\n    sp.Label('')\nelse:\n    print(os.waitstatus_to_exitcode(os.wait()[1]))")
        self.expect(strativo("-c", code), 0, "1\n", "windows can not be used in a forked process")

    def test_a_project_is_watched_without_a_window(self):
        code = ("import pathlib, strativo_python as sp\nproject = sp.getProject()\n"
                "path = pathlib.Path(project.getNewFilename(sp.ObjectId.Well, 'A'))\n"
                "path.parent.mkdir(exist_ok=True); path.write_text('~V')\n"
                "print(len(project.objects(sp.ObjectId.Well)), sp.hasProject(), bool(sp.mainWindow()))")
        self.expect(strativo("--project", str(self.folder / "project"), "-c", code), 0, "1 True True\n", "")

    def test_the_archives_directory_is_what_the_interpreter_would_read(self):
        code = ("import sys, zipimport\narchive = sys.path[0]\n"
                "given = dict(zipimport._zip_directory_cache[archive])\n"
                "print(given == zipimport._read_directory(archive), len(given) > 500,\n"
                "      sys.modules['encodings'].__loader__._files is zipimport._zip_directory_cache[archive])")
        self.expect(strativo("-c", code), 0, "True True True\n")


if __name__ == "__main__":
    main()
