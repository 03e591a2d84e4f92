"""Rules of the sources, seen to fail on small trees, then held against the tree itself.
Usage: test_sources.py TREE"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import source_rules as rules

TREE = pathlib.Path(sys.argv.pop()).resolve()


class RulesCase(unittest.TestCase):
    """Each rule finds its fault in a small tree, and nothing where there is none."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, path, *lines):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("\n".join(lines) + "\n")

    def test_wrong_arrows(self):
        self.write("host/core/A.h", "#include <QString>", '#include "host/core/B.h"')
        self.write("host/geom/G.cpp", '#include "host/core/A.h"', '// #include "host/widgets/W.h"')
        self.assertEqual(rules.wrong_includes(self.root), [])
        self.write("host/core/A.cpp", '  # include "host/services/S.h"', '/* because */ #include "host/core/A.h"')
        self.write("module/core/V.cpp", '#include "module/gui/W.h"')
        self.write("runtime/R.cpp", '#include "R.h"')
        self.assertEqual(rules.wrong_includes(self.root), [
            "host/core/A.cpp includes host/services/S.h: host/core may not include host/services",
            "runtime/R.cpp includes R.h: runtime may not include by a bare name",
            "module/core/V.cpp includes module/gui/W.h: module/core may not include module/gui"])

    def test_a_folder_without_row(self):
        self.write("host/novelty/N.h")
        self.assertEqual(rules.wrong_includes(self.root),
                         ["host/novelty/N.h: the folder host/novelty has no row in the table of includes"])

    def test_rows_of_files_and_of_patterns(self):
        self.write("host/kinds/Kinds.cpp", '#include "host/kinds/well/WellKind.h"')
        self.write("host/kinds/well/WellKind.h", '#include "host/kinds/IObjectKind.h"')
        self.assertEqual(rules.wrong_includes(self.root) + rules.circles(self.root), [])
        self.write("host/kinds/IObjectKind.h", '#include "host/kinds/well/WellKind.h"')
        self.assertEqual(rules.wrong_includes(self.root),
                         ["host/kinds/IObjectKind.h includes host/kinds/well/WellKind.h: host/kinds may not include "
                          "host/kinds/well"])

    def test_circles(self):
        self.write("host/core/A.h", '#include "host/geom/G.h"')
        self.write("host/geom/G.h", '#include "host/img/I.h"')
        self.assertEqual(rules.circles(self.root), [])
        self.write("host/img/I.h", '#include "host/core/A.h"')
        self.assertEqual(rules.circles(self.root), ["host/core and host/geom include each other",
                                                    "host/core and host/img include each other",
                                                    "host/geom and host/img include each other"])

    def test_python_in_the_host(self):
        self.write("host/data/D.cpp", "#include <vector>")
        self.write("runtime/R.cpp", "#include <Python.h>")
        self.assertEqual(rules.python_in_host(self.root), [])
        self.write("host/data/D.cpp", "#include <Python.h>", "#include <boost/python/object.hpp>")
        self.assertEqual(len(rules.python_in_host(self.root)), 2)

    def test_windows_in_the_data_half(self):
        headers = rules.widget_headers()
        self.assertTrue({"QWidget", "QApplication", "qdialog.h"} <= headers)
        self.write("host/widgets/W.h", "#include <QWidget>")
        self.write("host/data/D.h", "#include <QImage>", "#include <QIcon>")
        self.assertEqual(rules.windows_in_data(self.root, headers), [])
        self.write("host/data/demo/D.h", "#include <QtWidgets/QWidget>")
        self.write("host/kinds/well/K.h", "#include <QApplication>")
        self.write("host/jobs/J.h", "#include <QtWidgets>")
        self.assertEqual(len(rules.windows_in_data(self.root, headers)), 3)

    def test_the_lock(self):
        self.write("runtime/GilLock.h", "PyGILState_Ensure(); PyGILState_Release(s); PyEval_SaveThread();")
        self.write("runtime/HVPythonExecutionContext.cpp", "PyEval_SaveThread();", "PyGILState_Ensure();")
        self.write("module/gui/W.cpp", "// not PyGILState_Ensure()", "PyGILState_Check();")
        self.assertEqual(rules.lock_by_hand(self.root), [])
        self.write("runtime/HVPythonExecutionContext.cpp", "PyEval_SaveThread(); PyGILState_Ensure();", "PyGILState_Ensure();")
        self.write("editor/E.cpp", "Py_BEGIN_ALLOW_THREADS")
        self.assertEqual([fault.split()[0] for fault in rules.lock_by_hand(self.root)],
                         ["runtime/HVPythonExecutionContext.cpp", "editor/E.cpp"])

    def test_counts_by_hand(self):
        self.write("runtime/Ref.h", "Py_XINCREF(object); Py_XDECREF(object); Py_CLEAR(object);")
        self.write("runtime/R.cpp", "const Ref name = Ref::steal(PyObject_Str(o)); // no Py_DECREF(name)", "Py_NewRef(o);")
        self.assertEqual(rules.counts_by_hand(self.root), [])
        self.write("runtime/R.cpp", "Py_XDECREF(o);", "PyErr_Fetch(&type, &value, &traceback);")
        self.assertEqual(rules.counts_by_hand(self.root),
                         ["runtime/R.cpp counts references or keeps an exception by hand: 2, allowed 0"])

    def test_errors_to_fill(self):
        self.write("host/data/D.h", "Result<void> save(const QString& path);", "void tell(const QString& what);")
        self.write("editor/E.h", "void complain(const QString& reason);")
        self.assertEqual(rules.errors_to_fill(self.root), [])
        self.write("host/data/D.h", "bool save(QString* error);", "bool read(const QString& path, QString& reason);")
        self.assertEqual(rules.errors_to_fill(self.root), ["host/data/D.h has an error to fill where a Result is due: 2, allowed 0"])

    def test_waiting_for_the_gui_thread(self):
        self.write("host/jobs/J.cpp", "Qt::QueuedConnection")
        self.assertEqual(rules.waiting_for_the_gui_thread(self.root), [])
        self.write("host/jobs/J.cpp", "Qt::BlockingQueuedConnection")
        self.assertEqual(len(rules.waiting_for_the_gui_thread(self.root)), 1)

    @unittest.skipUnless(shutil.which("clang-format"), "clang-format is not installed")
    def test_formatting(self):
        shutil.copy(TREE / ".clang-format", self.root)
        self.write("host/core/A.h", "#pragma once", "", "int f(int a);")
        self.assertEqual(unformatted(self.root), [])
        self.write("host/core/B.h", "#pragma once", "", "int  f( int a );")
        self.assertEqual(unformatted(self.root), ["host/core/B.h"])


def unformatted(root):
    """The sources that clang-format would change, tests and benchmarks too."""
    paths = [path.relative_to(root).as_posix() for top in rules.TOP_FOLDERS + ["tests", "benchmarks"]
             for path in sorted((root / top).rglob("*")) if path.suffix in (".cpp", ".h", ".c")]
    share = -(-len(paths) // (os.cpu_count() or 1)) or 1
    running = [subprocess.Popen(["clang-format", "--dry-run", "-ferror-limit=1", *paths[i:i + share]], cwd=root,
                                stderr=subprocess.PIPE, text=True) for i in range(0, len(paths), share)]
    complaints = "".join(process.communicate()[1] for process in running)
    return sorted({line.split(":")[0] for line in complaints.splitlines() if "-Wclang-format-violations" in line})

    def test_quotes(self):
        self.write("host/a.h", "int one;", "int two;")
        self.write("TEXT.md", "<!-- host/a.h -->", "```cpp", "int two;", "```")
        self.assertEqual(rules.wrong_quotes(self.root), [])
        self.write("TEXT.md", "<!-- host/a.h -->", "```cpp", "int three;", "```", "", "<!-- host/b.h -->", "```", "x", "```")
        self.assertEqual(rules.wrong_quotes(self.root), ["TEXT.md quotes host/a.h with what is not in it: int three;",
                                                         "TEXT.md quotes host/b.h, which is not there"])


class Tree(unittest.TestCase):
    def expect_none(self, faults):
        self.assertEqual(faults, [], "\n" + "\n".join(faults))

    def test_the_tree_is_there(self):
        self.assertGreater(len(list(rules.sources(TREE))), 300)

    def test_includes(self):
        self.expect_none(rules.wrong_includes(TREE))

    def test_no_circles(self):
        self.expect_none(rules.circles(TREE))

    def test_host_without_python(self):
        self.expect_none(rules.python_in_host(TREE))

    def test_data_without_windows(self):
        self.expect_none(rules.windows_in_data(TREE, rules.widget_headers()))

    def test_quotes_of_the_documentation(self):
        self.assertGreaterEqual(len(rules.QUOTE.findall((TREE / "ARCHITECTURE.md").read_text(encoding="utf-8"))), 4)
        self.expect_none(rules.wrong_quotes(TREE))

    def test_lock_by_guards(self):
        self.expect_none(rules.lock_by_hand(TREE))

    def test_counts_by_references(self):
        self.expect_none(rules.counts_by_hand(TREE))

    def test_failures_as_results(self):
        self.expect_none(rules.errors_to_fill(TREE))

    def test_nobody_waits_for_the_gui_thread(self):
        self.expect_none(rules.waiting_for_the_gui_thread(TREE))

    @unittest.skipUnless(shutil.which("clang-format"), "clang-format is not installed")
    def test_formatting(self):
        self.expect_none(unformatted(TREE))


if __name__ == "__main__":
    unittest.main()
