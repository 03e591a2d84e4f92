"""The widget toolkit beside PyQt5 (Debian: python3-pyqt5, for this comparison only), on the same Qt in one process."""
import gc
import sys
import time

import harness

sys.path.append("/usr/lib/python3/dist-packages")
try:
    from PyQt5 import QtWidgets
except ImportError:
    print("widget toolkit: not measured, python3-pyqt5 is not there")
    raise SystemExit(0)

import strativo_python as sp
import toolkit_events

ROUNDS = 15
WIDGETS = 1000
EVENTS = 20000


class SpMoves(sp.Widget):
    total = 0

    def mouseMoveEvent(self, event):
        self.total += event.position.x


class QtMoves(QtWidgets.QWidget):
    total = 0

    def mouseMoveEvent(self, event):
        self.total += event.pos().x()


class SpEmpty(sp.Widget):
    def mouseMoveEvent(self, event):
        pass


class QtEmpty(QtWidgets.QWidget):
    def mouseMoveEvent(self, event):
        pass


class Counter:
    def __init__(self):
        self.count = 0

    def called(self, *checked):
        self.count += 1


def widgets(make):
    def measure():
        gc.collect()
        begin = time.perf_counter()
        kept = [make() for _ in range(WIDGETS)]
        kept.clear()
        return (time.perf_counter() - begin) / WIDGETS * 1e9
    return measure


def children(parent, make):
    """A window with its parts, as dialogs are built."""
    def measure():
        gc.collect()
        begin = time.perf_counter()
        window = parent()
        for number in range(WIDGETS):
            make("part", window)
        del window
        gc.collect()
        return (time.perf_counter() - begin) / WIDGETS * 1e9
    return measure


def entitled(cls, title):
    widget = cls()
    if isinstance(widget, sp._QWidget):
        widget.windowTitle = title
    else:
        widget.setWindowTitle(title)
    return widget


def events(cls, title):
    widget = entitled(cls, title)
    return lambda: (widget, toolkit_events.moves(title, EVENTS))[1]


def signals(cls, title):
    button, counter = entitled(cls, title), Counter()
    if isinstance(button, sp._QWidget):
        button.clicked(counter.called)
    else:
        button.clicked.connect(counter.called)
    return lambda: (button, counter, toolkit_events.clicks(title, EVENTS))[2]


CASES = [
    ("creating and destroying a widget", widgets(sp.Widget), widgets(QtWidgets.QWidget)),
    ("the same, a subclass in Python", widgets(SpEmpty), widgets(QtEmpty)),
    ("creating and destroying a button in a window", children(sp.Widget, sp.Button),
     children(QtWidgets.QWidget, QtWidgets.QPushButton)),
    ("mouseMoveEvent overridden, empty", events(SpEmpty, "sp empty"), events(QtEmpty, "qt empty")),
    ("mouseMoveEvent overridden, reads the position", events(SpMoves, "sp moves"), events(QtMoves, "qt moves")),
    ("mouse move over a plain widget", events(sp.Widget, "sp plain"), events(QtWidgets.QWidget, "qt plain")),
    ("a signal that calls a bound method", signals(sp.Button, "sp button"), signals(QtWidgets.QPushButton, "qt button")),
]

rows = ["| ns | Strativo | PyQt5 | Strativo / PyQt5 |", "|---|---|---|---|"]
failed = False
for name, ours, theirs in CASES:
    best = [float("inf")] * 2
    for _ in range(ROUNDS):
        for index, measure in enumerate((ours, theirs)):
            best[index] = min(best[index], measure())
    ratio = best[0] / best[1]
    failed |= ratio > 1.0
    rows.append("| %s | %.0f | %.0f | %.2f |" % (name, *best, ratio))
harness.report("Widget toolkit", rows, "In turns, the least of %d rounds. The limit is PyQt5's time." % ROUNDS)
if failed:
    sys.exit(1)
