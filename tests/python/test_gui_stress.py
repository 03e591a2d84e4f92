"""Widgets of all classes, made, moved, shown and dropped at random, from inside each other's handlers too.

STRATIVO_STRESS_SECONDS says how long (3), STRATIVO_STRESS_SEED where it begins (1). With STRATIVO_STRESS_TRACE=1 each
step is printed before it is done, so that the last line names the one that ended the process. Dialogs are answered by a
timer: a seed begins with the same steps each time, and goes its own way once one of them was quicker.
"""
import ctypes
import faulthandler
import functools
import gc
import os
import random
import re
import sys
import threading
import time
import traceback
import unittest
import weakref

import qt_warnings
import strativo_python as sp

SECONDS = float(os.environ.get("STRATIVO_STRESS_SECONDS", "3"))
SEED = int(os.environ.get("STRATIVO_STRESS_SEED", "1"))
TRACE = bool(os.environ.get("STRATIVO_STRESS_TRACE"))

HANDLERS = [name for name in dir(sp.Widget) if name.endswith("Event")]
WIDGETS = [each for each in vars(sp).values()
           if isinstance(each, type) and issubclass(each, sp.Widget.__base__) and not each.__name__.startswith("_")
           and each not in (sp.MainWindow, sp.SubWindow, sp.ToolBar)]
LAYOUTS = [sp.HBoxLayout, sp.VBoxLayout, sp.GridLayout, sp.FormLayout]

# What a refused step may say; whatever else is raised is a fault.
REFUSED = re.compile("has been deleted|already has a layout|arranges its parts|fixed part|already waiting|just closing|"
                     "is a part of|already in a|can not be|already a child|not a child|not in this layout|out of range|"
                     "not found|just arranging|stays in its widget|have a stretch|have rows|illegal method call|"
                     "no key sequence")


class Qt:
    """What the application's own loop does: it takes events, and destroys what waits for that."""

    DEFERRED_DELETE, MOUSE_PRESS, MOUSE_RELEASE, LEFT = 52, 2, 3, 1
    NO_TIMERS = 8

    def __init__(self):
        core, gui = ctypes.CDLL("libQt5Core.so.5"), ctypes.CDLL("libQt5Gui.so.5")
        widgets = ctypes.CDLL("libQt5Widgets.so.5")
        self._process = core["_ZN16QCoreApplication13processEventsE6QFlagsIN10QEventLoop17ProcessEventsFlagEE"]
        self._send_posted = core["_ZN16QCoreApplication16sendPostedEventsEP7QObjecti"]
        self._notify = core["_ZN16QCoreApplication15notifyInternal2EP7QObjectP6QEvent"]
        self._widget_at = widgets["_ZN12QApplication8widgetAtERK6QPoint"]
        self._widget_at.restype = ctypes.c_void_p
        self._all_widgets = widgets["_ZN12QApplication10allWidgetsEv"]
        self._close_all = widgets["_ZN12QApplication15closeAllWindowsEv"]
        self._make_mouse = gui["_ZN11QMouseEventC1EN6QEvent4TypeERK7QPointFS4_S4_N2Qt11MouseButtonE6QFlagsIS6_ES7_INS5_"
                               "16KeyboardModifierEE"]
        self._end_mouse = gui["_ZN11QMouseEventD1Ev"]
        gui["_ZN15QGuiApplication25setQuitOnLastWindowClosedEb"](ctypes.c_bool(False))

        self._make_timer, self._end_timer = core["_ZN6QTimerC1EP7QObject"], core["_ZN6QTimerD1Ev"]
        self._start_timer = core["_ZN6QTimer5startEi"]
        self._connect = core["_ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE"]
        self._end_connection = core["_ZN11QMetaObject10ConnectionD1Ev"]

    def pump(self):
        self._process(self.NO_TIMERS)
        self._send_posted(None, self.DEFERRED_DELETE)

    def close_all(self):
        self._close_all()

    def widgets(self):
        """The addresses of all widgets."""
        found = ctypes.POINTER(ctypes.c_int)()
        self._all_widgets(ctypes.byref(found))
        first, last = found[2], found[3]  # of the array behind the four numbers
        array = ctypes.cast(ctypes.addressof(found.contents) + 16, ctypes.POINTER(ctypes.c_void_p))
        return set(array[first:last])

    def click(self, x, y):
        """The mouse at a place of the screen."""
        for kind in (self.MOUSE_PRESS, self.MOUSE_RELEASE):
            place = (ctypes.c_int * 2)(x, y)
            target = self._widget_at(place)
            if not target:
                return
            event = ctypes.create_string_buffer(256)
            local, screen = (ctypes.c_double * 2)(2, 2), (ctypes.c_double * 2)(x, y)
            self._make_mouse(event, kind, local, local, screen, self.LEFT, self.LEFT, 0)
            self._notify(ctypes.c_void_p(target), event)
            self._end_mouse(event)

    def execute(self, dialog, answer):
        """Waits for a dialog, whose slot `answer` is called until it is closed."""
        timer, connection = ctypes.create_string_buffer(64), ctypes.create_string_buffer(16)
        self._make_timer(timer, None)
        self._connect(connection, timer, b"2timeout()", ctypes.c_void_p(dialog.address), b"1" + answer, 0)
        self._start_timer(timer, 1)
        try:
            return dialog.execute()
        finally:
            self._end_connection(connection)
            self._end_timer(timer)


class Stress:
    DEEPEST = 3
    MOST = 60

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.qt = Qt()
        self.pool, self.references, self.documents, self.failures = [], [], [], []
        self.depth = self.count = self.ended = 0
        self.classes = [self.with_handlers(each) for each in WIDGETS] + [
            type("Own" + each.__name__, (each,), {}) for each in LAYOUTS]
        self.steps = [getattr(self, name) for name in dir(self) if name.startswith("do_")]

    # Python code that the windows call.

    def with_handlers(self, base):
        stress = self

        def overridden(name):
            inherited = getattr(base, name)

            def handler(self, event):
                stress.inside(self)
                if name == "mousePressEvent" and isinstance(self, sp.Button) and not self.deleted and self.menu:
                    return  # opens it, and waits
                if name == "closeEvent" and stress.random.random() < 0.2 and not stress.ended:
                    event.ignore()
                elif not self.deleted:
                    stress.attempt(lambda: inherited(self, event))
                stress.inside(self)
            return handler

        return type("Own" + base.__name__, (base,), {name: overridden(name) for name in HANDLERS})

    def inside(self, own=None):
        """A handler, a callable or a destructor runs: it may do anything."""
        if self.ended or self.depth >= self.DEEPEST or threading.current_thread() is not threading.main_thread():
            return
        if self.random.random() < 0.3:
            if own is not None and self.random.random() < 0.3:
                self.drop(own)
            self.step()

    def attempt(self, work):
        try:
            return work()
        except (RuntimeError, ValueError, TypeError, IndexError) as error:
            if not REFUSED.search(str(error)):
                self.failures.append((self.count, traceback.format_exc()))
        except Exception:
            self.failures.append((self.count, traceback.format_exc()))

    def step(self):
        self.count += 1
        chosen = self.random.choice(self.steps)
        if TRACE:
            print("%d %s%s" % (self.count, "  " * self.depth, chosen.__name__), file=sys.__stdout__, flush=True)
        self.depth += 1
        try:
            self.attempt(chosen)
        finally:
            self.depth -= 1

    # What there is.

    def some(self, kind=object):
        fitting = [each for each in self.pool if isinstance(each, kind) and not each.deleted]
        return self.random.choice(fitting) if fitting else self.make(kind)

    def make(self, kind=object, **properties):
        chosen = self.random.choice([each for each in self.classes if issubclass(each, kind)])
        if issubclass(chosen, sp.Dialog):
            before = self.qt.widgets()
            made = chosen()
            (made.address,) = self.qt.widgets() - before
            for name, value in properties.items():
                setattr(made, name, value)
        else:
            made = chosen(**properties)
        self.references.append(weakref.ref(made))
        if len(self.pool) >= self.MOST:
            self.pool.pop(self.random.randrange(len(self.pool)))
        self.pool.append(made)
        return made

    def widget(self):
        return self.some(sp.Widget.__base__)

    def drop(self, own):
        self.pool = [each for each in self.pool if each is not own]

    def number(self, smallest, largest):
        value = self.random.randint(smallest, largest)
        return self.sly(value) if self.random.random() < 0.3 else value

    def sly(self, value):
        """A number that does something when it is asked for."""
        stress = self

        class Sly:
            def __index__(self):
                stress.inside()
                return value
            __int__ = __index__

            def __float__(self):
                stress.inside()
                return float(value)
        return Sly()

    def callable(self):
        target = self.random.choice(self.pool) if self.pool else self
        stress = self

        class Called:
            def __init__(self, *values):
                stress.inside(target)

            def __call__(self, *values):
                stress.inside(target)

            def __del__(self):
                stress.inside()

            def method(self, *values):
                stress.inside(target)

        return self.random.choice([
            lambda *values: self.inside(target), Called, Called().method, functools.partial(Called, target),
            Called(), functools.partial(Called.method, target)])

    # The steps.

    def do_make(self):
        self.make(object)

    def do_make_with_parent(self):
        self.make(sp.Widget.__base__, parentWidget=self.widget())

    def do_drop(self):
        if self.pool:
            self.pool.pop(self.random.randrange(len(self.pool)))

    def do_drop_on_a_thread(self):
        given = [self.pool.pop(self.random.randrange(len(self.pool))) for _ in range(min(3, len(self.pool)))]

        def work():
            given.clear()
            gc.collect()

        thread = threading.Thread(target=work)
        thread.start()
        thread.join()

    def do_collect(self):
        gc.collect()

    def do_pump(self):
        if self.depth == 1:
            self.qt.pump()

    def do_give_parent(self):
        self.widget().parentWidget = self.random.choice([None, self.widget()])

    def do_show_or_hide(self):
        for widget in (self.widget(), self.widget()):
            self.random.choice([widget.show, widget.show, widget.hide, widget.close])()

    def do_resize(self):
        widget = self.widget()
        choice = self.random.randrange(4)
        if choice == 0:
            widget.width = self.number(0, 500)
        elif choice == 1:
            widget.move(self.number(0, 300), self.number(0, 300))
        elif choice == 2:
            widget.setMinimumSize(self.number(0, 50), self.number(0, 50))
        else:
            widget.setFixedSize(self.number(20, 200), self.number(20, 200))

    def do_tie_a_knot(self):
        one, other = self.some(), self.some()
        one.other, other.other = other, one

    def do_click(self):
        widget = self.widget()
        if widget.visible:
            place = widget.toGlobalPosition(sp.Point(2, 2))
            self.qt.click(place.x, place.y)

    def do_connect(self):
        for widget in (self.widget(), self.widget(), self.widget()):
            for name in ("clicked", "valueChanged", "textChanged", "stateChanged", "selectionChanged", "tabChanged",
                         "stackChanged", "accepted", "rejected", "toggled", "editingFinished"):
                if hasattr(widget, name):
                    getattr(widget, name)(self.callable())

    def do_change(self):
        for widget in (self.widget(), self.widget(), self.widget()):
            for name, value in (("value", self.number(0, 99)), ("text", str(self.count)), ("checkable", True),
                                ("checked", self.random.random() < 0.5), ("currentIndex", self.number(0, 2)),
                                ("title", "t"), ("enabled", self.random.random() < 0.8), ("orientation",
                                 self.random.choice([sp.Orientation.Horizontal, sp.Orientation.Vertical])),
                                ("styleSheet", self.random.choice(["", "color: red"])), ("font", sp.Font())):
                if hasattr(type(widget), name) and self.random.random() < 0.5:
                    self.attempt(lambda: setattr(widget, name, value))

    def do_wrong_values(self):
        widget = self.widget()
        for name in dir(type(widget)):
            if not name.startswith("_") and self.random.random() < 0.1:
                try:
                    setattr(widget, name, self.random.choice([object(), b"", 2**70, [], 1j]))
                except (TypeError, ValueError, RuntimeError, OverflowError, AttributeError):
                    pass
                else:
                    widget.__dict__.pop(name, None)

    def do_lay_out(self):
        layout, part = self.some(sp.Layout), self.random.choice([self.widget, lambda: self.some(sp.Layout)])()
        if isinstance(part, sp.Layout):
            layout.addLayout(part)
        elif isinstance(layout, sp.GridLayout):
            layout.addWidget(part, self.number(0, 9), self.number(0, 9), self.number(1, 2), self.number(1, 2))
        elif isinstance(layout, sp.BoxLayout):
            layout.addWidget(part, self.number(0, 3))
            layout.addStretch(self.number(0, 3))
        else:
            layout.addRow(self.random.choice(["label", self.widget()]), part)

    def do_take_out(self):
        layout = self.some(sp.BoxLayout)
        for index in reversed(range(layout.count)):
            if index < layout.count and layout.widget(index):
                layout.removeWidget(layout.widget(index))

    def do_set_layout(self):
        self.widget().setLayout(self.some(sp.Layout))

    def do_menu_bar(self):
        self.some(sp.Layout).menuBar = self.random.choice([None, self.some(sp.MenuBar)])

    def do_fill_container(self):
        for kind in (sp.TabWidget, sp.StackedWidget, sp.Splitter, sp.ScrollArea):
            place, part = self.some(kind), self.widget()
            if kind is sp.ScrollArea:
                self.attempt(lambda: setattr(place, "widget", self.random.choice([part, None])))
            elif kind is sp.TabWidget:
                self.attempt(lambda: place.addTab(part, "tab"))
            elif self.random.random() < 0.5:
                self.attempt(lambda: place.insertWidget(self.number(0, 3), part))
            else:
                self.attempt(lambda: place.addWidget(part))

    def do_empty_container(self):
        tabs, stack = self.some(sp.TabWidget), self.some(sp.StackedWidget)
        if tabs.count:
            tabs.removeTab(self.random.randrange(tabs.count))
        while stack.count:
            stack.removeWidget(stack.widget(0))

    def do_fill_menu(self):
        menu, other = self.some(sp.Menu), self.some(sp.Menu)
        action = menu.addAction("do", self.callable())
        menu.addSeparator()
        self.random.choice([self.some(sp.MenuBar), menu]).addMenu(self.random.choice([other, "inner"]))
        self.some(sp.Button).menu = self.random.choice([menu, other, None])
        action.trigger()

    def do_fill_combo_box(self):
        stress = self

        class Data(str):
            def __del__(self):
                stress.inside()

        box = self.some(sp.ComboBox)
        for _ in range(5):
            box.addItem("item", None, Data("data"))
        box.insertItem(self.number(0, 2), "first", userData=self.count)
        self.random.choice([box.clear, lambda: box.removeItem(self.number(0, 3)), lambda: box.currentData])()

    def do_execute(self):
        self.qt.execute(self.some(sp.Dialog), self.random.choice([b"accept()", b"reject()", b"close()"]))

    def do_answer(self):
        dialog = self.some(sp.Dialog)
        self.random.choice([dialog.accept, dialog.reject])()

    def do_progress(self):
        for _ in sp.ModalProgressBar("Steps", 3):
            self.inside()

    def do_open_as_document(self):
        try:
            self.documents.append(sp.addSubWindow(self.widget()))
        except RuntimeError as error:
            if "no document area" not in str(error):
                raise

    def end(self):
        self.ended = True
        self.pool.clear()
        while self.documents:
            document = self.documents.pop()
            if not document.deleted:
                document.close()
        for _ in range(20):  # what goes may have held the last name of something else
            self.qt.close_all()
            self.qt.pump()
            gc.collect()


class StressTest(unittest.TestCase):
    def test_nothing_breaks_and_nothing_is_left(self):
        faulthandler.enable(sys.__stderr__.fileno() if hasattr(sys.__stderr__, "fileno") else 2)
        warnings = []
        sp.mainWindow()  # which is made when it is asked for, with widgets of its own
        gc.collect()
        gc.disable()  # it runs where the steps say
        self.addCleanup(gc.enable)
        with qt_warnings.collected(warnings):
            stress = Stress(SEED)
            before, end = len(stress.qt.widgets()), time.monotonic() + SECONDS
            while time.monotonic() < end and not stress.failures and not warnings:
                stress.step()
            where = "seed %d, step %d" % (SEED, stress.count)
            stress.end()
        self.assertEqual((stress.failures, warnings), ([], []), where)
        left = [reference() for reference in stress.references if reference() is not None]
        self.assertEqual([(each, each.deleted or (each.parentWidget, getattr(each, "visible", None)),
                           [type(holder) for holder in gc.get_referrers(each)]) for each in left], [], where)
        self.assertEqual(len(stress.qt.widgets()), before, where)
        self.assertGreater(stress.count, 100, where)


if __name__ == "__main__":
    unittest.main()
