"""What the sources must keep to so that the layers stay layers: which folder includes which, where the interpreter lock
is taken, what the data half knows of windows. Each check gives a list of sentences, one per fault."""

import collections
import fnmatch
import pathlib
import re

# For each folder those that it may include, besides itself. What is not in here is a wrong arrow; a circle in here is one
# too. A row for one file, or for a pattern of folders, counts before the folder's own.
VALUES = ["host/core", "host/geom", "host/georef", "host/img", "host/display"]
STORE = ["host/changes", "host/formats", "host/kinds", "host/objects", "host/data"]
MAY_INCLUDE = {
    "host": [],  # the precompiled header
    # Data: values, files, the project, services. No windows.
    "host/core": [],
    "host/geom": ["host/core"],
    "host/georef": ["host/core", "host/geom"],
    "host/img": ["host/core", "host/georef"],
    "host/display": ["host/core", "host/img"],
    "host/formats": VALUES,
    "host/kinds/Kinds.cpp": ["host/core", "host/kinds", "host/kinds/*"],  # one line of registration per kind
    "host/kinds/demo": [],
    "host/kinds/text": VALUES + ["host/formats", "host/kinds"],  # what kinds share whose files are texts
    "host/kinds/*": VALUES + ["host/formats", "host/kinds", "host/kinds/demo", "host/kinds/text"],
    "host/kinds": VALUES,
    "host/services": ["host/core"],
    "host/changes": ["host/core", "host/services"],
    "host/objects": ["host/changes", "host/core", "host/formats", "host/kinds", "host/services"],
    "host/jobs": ["host/core", "host/kinds", "host/objects", "host/services"],
    "host/segy": VALUES + ["host/formats", "host/jobs", "host/volume"],
    "host/arrays": VALUES + ["host/formats", "host/jobs", "host/segy", "host/volume"],
    "host/volume": VALUES + ["host/formats", "host/jobs"],
    "host/kinds/randomline": VALUES + ["host/kinds", "host/kinds/demo", "host/kinds/text", "host/volume"],
    "host/kinds/volume": VALUES + ["host/formats", "host/kinds", "host/kinds/demo", "host/volume"],
    "host/data": VALUES + STORE + ["host/services"],
    "host/blocs": VALUES + STORE + ["host/jobs", "host/kinds/randomline", "host/services", "host/volume"],
    "host/data/demo": VALUES + STORE + ["host/kinds/demo", "host/services"],
    # Windows.
    "host/icons": [],
    "host/exchange": VALUES + STORE + ["host/arrays", "host/icons", "host/jobs", "host/segy", "host/services",
                                       "host/volume"],
    "host/viewers": VALUES + STORE + ["host/icons", "host/jobs", "host/services"],
    "host/widgets": VALUES + STORE + ["host/icons", "host/jobs", "host/services", "host/viewers"],
    # The scripting layer: values and data.
    "runtime": ["host/changes", "host/core", "host/services"],
    "module": ["runtime"],
    "module/core": VALUES + ["host/services", "module", "runtime"],
    "module/data": VALUES + STORE + ["host/blocs", "host/kinds/randomline", "host/segy", "host/services", "host/volume", "module",
                                     "module/core", "runtime"],
    "module/drawing": ["module", "module/core", "module/data", "runtime"],
    "module/ValuesModule.cpp": ["host/services", "module", "runtime"],
    # The scripting layer: windows and the application.
    "plugins": ["host/changes", "host/core", "host/data", "host/services", "host/widgets", "runtime"],
    "editor/debugger": ["host/core", "host/icons", "host/services", "runtime"],
    "editor": STORE + ["editor/debugger", "host/core", "host/icons", "host/services", "host/widgets", "runtime"],
    "module/gui": STORE + ["host/core", "host/icons", "host/services", "host/viewers", "host/widgets", "module",
                           "module/core", "module/data", "module/drawing", "plugins", "runtime"],
    "module/app": STORE + ["host/core", "host/services", "host/widgets", "module", "module/core", "module/data",
                           "module/gui", "plugins", "runtime"],
    # The program.
    "app": ["host/services", "module", "runtime"],  # what the faces share; the program's main function below joins them
    "app/main.cpp": ["app/*", "host/services", "runtime"],
    "app/demo": ["app", "host/data/demo"],
    "app/workbench": VALUES + STORE + ["app", "editor", "editor/debugger", "host/exchange", "host/icons", "host/jobs", "host/services",
                                       "host/viewers", "host/widgets", "plugins", "runtime"],
    "app/headless": STORE + ["app", "app/workbench", "host/arrays", "host/core", "host/georef", "host/jobs", "host/segy",
                             "host/services", "host/volume", "plugins", "runtime"],
}

TOP_FOLDERS = ["host", "runtime", "module", "plugins", "editor", "app"]
# The folders that know windows. All others belong to the data half, where Qt's classes of windows are unknown.
WINDOWS_HALF = ["host/exchange", "host/icons", "host/viewers", "host/widgets", "plugins", "editor*", "module/app", "module/gui", "app*"]

LOCK_CALLS = re.compile(r"\b(PyGILState_(Ensure|Release|STATE)|PyEval_(SaveThread|RestoreThread|AcquireThread|ReleaseThread)"
                        r"|PyThreadState_Swap|Py_(BEGIN|END|BLOCK|UNBLOCK)(_ALLOW)?_THREADS)\b")
# Where guards cannot stand, and how often: the context's constructor gives the lock away, its destructor takes it last.
LOCK_PLACES = {"runtime/GilLock.h": None, "runtime/HVPythonExecutionContext.cpp": 2}

# Owned references are Ref, the pending exception is kept by PendingError. Counts by hand stand where a reference is
# neither.
COUNT_CALLS = re.compile(r"\b(Py_X?(INC|DEC)REF|Py_(CLEAR|X?SETREF)|PyErr_(Fetch|Restore|NormalizeException|GetRaisedException"
                         r"|SetRaisedException))\b")
COUNT_PLACES = {
    "runtime/Ref.h": None, "runtime/PendingError.h": None, "runtime/PendingError.cpp": None,  # the guards
    # Slots of types: the interpreter made the structure, no constructor or destructor of ours runs for it.
    "runtime/ValueInstance.h": 1, "module/core/ValueSlots.h": 1, "module/core/TypedArrayIterator.h": 3,
    "module/gui/Collection.cpp": 1,
    # Loops that are measured, and a result that is given up half made.
    "module/core/TypedArray.h": 2, "module/core/TypedArrayExtend.h": 1,
    # A reference that comes and goes with an object's parent, seen by the collector; one in a class without Python.
    "module/gui/ObjectPeer.cpp": 2, "module/app/ModalProgressBarClasses.cpp": 1,
    "runtime/ReferenceHolder.h": 2, "runtime/SharedReference.h": 2,  # members of one line
}
# Functions that fail give a Result, none has an error to fill.
ERROR_PARAMETER = re.compile(r"(?<!const )\bQString ?[*&] ?(error|reason)\b")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)


def sources(root):
    """Paths below `root` of all C++ sources, with forward slashes."""
    for top in TOP_FOLDERS:
        for path in sorted((root / top).rglob("*")):
            if path.suffix in (".cpp", ".h", ".c"):
                yield path.relative_to(root).as_posix()


def code(root, path):
    return COMMENT.sub("", (root / path).read_text(encoding="utf-8"))


def folder_of(path):
    return path.rpartition("/")[0]


def row(table, path):
    """The row of the table for a file, and its name; a folder that has none is a fault of its own."""
    folder = folder_of(path)
    for name in (path, folder):
        if name in table:
            return name, table[name]
    for name in table:
        if name.endswith("*") and fnmatch.fnmatch(folder, name):
            return name, table[name]
    return folder, None


def wrong_includes(root, table=None):
    table = MAY_INCLUDE if table is None else table
    faults = []
    for path in sources(root):
        name, allowed = row(table, path)
        if allowed is None:
            faults.append(f"{path}: the folder {name} has no row in the table of includes")
            continue
        for kind, included in INCLUDE.findall(code(root, path)):
            folder = folder_of(included)
            if kind == "<" or folder == folder_of(path):
                continue
            if not any(fnmatch.fnmatch(folder, each) for each in allowed):
                faults.append(f"{path} includes {included}: {name} may not include {folder or 'by a bare name'}")
    return faults


def circles(root):
    """Folders that include each other, directly or on a way, however the table came about. A file with a row of its own
    stands for itself."""
    arrows = collections.defaultdict(set)
    for path in sources(root):
        name = path if path in MAY_INCLUDE else folder_of(path)
        for kind, included in INCLUDE.findall(code(root, path)):
            if kind == '"' and folder_of(included) != folder_of(path):
                arrows[name].add(folder_of(included))
    reached = {start: reachable(arrows, start) for start in list(arrows)}
    return [f"{a} and {b} include each other" for a in sorted(reached) for b in sorted(reached)
            if a < b and b in reached[a] and a in reached[b]]


def reachable(arrows, start):
    found, waiting = set(), [start]
    while waiting:
        for target in arrows.get(waiting.pop(), ()):
            if target not in found:
                found.add(target)
                waiting.append(target)
    return found


def python_in_host(root):
    return [f"{path} includes {included}: the host knows no Python" for path in sources(root)
            if path.startswith("host/") for _, included in INCLUDE.findall(code(root, path))
            if included == "Python.h" or included.startswith("boost/python")]


def windows_in_data(root, widget_headers):
    """`widget_headers`: the names of the headers of QtWidgets."""
    return [f"{path} includes {included}: the data half knows no windows" for path in sources(root)
            if not any(fnmatch.fnmatch(folder_of(path), each) for each in WINDOWS_HALF)
            for _, included in INCLUDE.findall(code(root, path))
            if included.rpartition("/")[2] in widget_headers or included.startswith("QtWidgets")]


def lock_by_hand(root):
    faults = []
    for path in sources(root):
        calls = [match.group() for match in LOCK_CALLS.finditer(code(root, path))]
        allowed = LOCK_PLACES.get(path, 0)
        if allowed is not None and len(calls) > allowed:
            faults.append(f"{path} takes or gives away the interpreter lock by hand: {', '.join(calls)}")
    return faults


def beyond_places(root, pattern, places, what):
    """Sources in which `pattern` stands more often than `places` allows; None: as often as it likes."""
    faults = []
    for path in sources(root):
        count = len(pattern.findall(code(root, path)))
        allowed = places.get(path, 0)
        if allowed is not None and count > allowed:
            faults.append(f"{path} {what}: {count}, allowed {allowed}")
    return faults


def counts_by_hand(root):
    return beyond_places(root, COUNT_CALLS, COUNT_PLACES, "counts references or keeps an exception by hand")


def errors_to_fill(root):
    return beyond_places(root, ERROR_PARAMETER, {}, "has an error to fill where a Result is due")


def waiting_for_the_gui_thread(root):
    """Whoever waits for the GUI thread may hold what a script on it waits for."""
    return [f"{path} waits for another thread's event loop" for path in sources(root)
            if "BlockingQueuedConnection" in code(root, path)]


QUOTE = re.compile(r"<!-- (\S+) -->\n```\w*\n(.*?)```", re.DOTALL)


def wrong_quotes(root):
    """What the texts of the tree quote from a file, whose path stands above it in a comment, stands there."""
    faults = []
    for text in sorted(root.glob("*.md")):
        for path, quoted in QUOTE.findall(text.read_text(encoding="utf-8")):
            source = root / path
            if not source.is_file():
                faults.append(f"{text.name} quotes {path}, which is not there")
            elif quoted not in source.read_text(encoding="utf-8"):
                faults.append(f"{text.name} quotes {path} with what is not in it: {quoted.splitlines()[0]}")
    return faults


def widget_headers():
    """Of the installed Qt."""
    names = {path.name for folder in pathlib.Path("/usr/include").glob("*/qt5/QtWidgets") for path in folder.iterdir()}
    return names - {"qtwidgetsglobal.h"}
