// Who keeps whom alive, and what is let go when.
#include "tests/module/gui/ToolkitFixture.h"

#include <QMainWindow>
#include <QMenuBar>

namespace {

using fixture::ToolkitTest;

TEST_F(ToolkitTest, aPartOfAWindowKeepsItsPythonObject)
{
    check(R"(
class Part(sp.Button):
    presses = 0
    def mousePressEvent(self, event):
        self.presses += 1
for cls in classes():
    window = cls()
    part = Part("part", parent=window)
    part.note = "kept"
    known = weakref.ref(part)
    del part
    gc.collect()
    again = known()
    assert again is not None and again.note == "kept" and again.parentWidget is window, cls
    send(again, "mousePressEvent")
    assert again.presses == 1
    again.parentWidget = None
    assert not again.deleted
    again.parentWidget = window
    del window
    flush()
    assert again.deleted, cls
    try:
        again.text
    except RuntimeError as error:
        assert str(error) == "Button has been deleted"
    else:
        raise AssertionError(cls)
)");
}

TEST_F(ToolkitTest, noCycleOutlivesItsWindow)
{
    check(R"(
import functools
gc.collect(); flush()
before = widgetCount()
class Callable:
    def __init__(self, window): self.window = window
    def __call__(self): pass
def build(cls):
    class Window(cls):
        def closed(self): pass
        def closeEvent(self, event): self.closed()
    window = Window()
    window.itself = window
    window.parts = [sp.Button(str(number), parent=window) for number in range(3)]
    for callable in (window.closed, lambda: window, functools.partial(print, window), Callable(window)):
        window.parts[0].clicked(callable)
    menu = sp.Menu("m", parent=window)
    menu.addAction("a", window.closed)
    menu.addMenu("inner").addAction("b", lambda: window)
    window.parts[1].menu = sp.Menu("unparented")
    window.parts[1].menu.addAction("c", window.closed)
    window.parts[2].window = window
    return weakref.ref(window), weakref.ref(window.parts[2]), weakref.ref(menu)
for cls in classes():
    references = build(cls)
    gc.collect()
    flush()
    assert not any(reference() for reference in references), cls
assert widgetCount() == before, (before, widgetCount())
)");
}

TEST_F(ToolkitTest, aWindowOnTheScreenStaysUntilItIsClosed)
{
    check(R"(
def open():
    window = sp.Dialog("stays")
    window.button = sp.Button("close", parent=window)
    window.button.clicked(window.close)
    window.show()
    return weakref.ref(window)
window = open()
gc.collect()
assert window().visible
window().close()
gc.collect()
flush()
assert window() is None
)");
}

TEST_F(ToolkitTest, callablesGoWithTheirSender)
{
    check(R"(
class Called:
    count = 0
    def __call__(self): Called.count += 1
button = sp.Button("b", shortcut="Ctrl+B")
called = Called()
reference = weakref.ref(called)
button.clicked(called)
del called
assert reference() is not None
del button
assert reference() is None
for wrong in (5, None, "text", object()):
    try:
        sp.Button("b").clicked(wrong)
    except TypeError as error:
        assert str(error) == f"Button.clicked(), expected callable object, but got '{type(wrong).__name__}' instead"
    else:
        raise AssertionError(wrong)
)");
}

TEST_F(ToolkitTest, menusLiveAsLongAsWhatShowsThem)
{
    check(R"(
import sys
class Callable(sp.Menu):
    def __call__(self): pass
for cls in (sp.MenuBar, sp.Menu):
    place, menu = cls(), sp.Menu("m")
    place.addMenu(menu)
    count = sys.getrefcount(menu)
    place.addMenu(menu)
    assert sys.getrefcount(menu) == count, cls
    known = weakref.ref(menu)
    del menu
    gc.collect()
    assert known().title == "m"
    del place
    flush()
    assert known() is None, cls
button, first, second = sp.Button("b"), Callable("1"), sp.Menu("2")
button.clicked(first)
known = weakref.ref(first), weakref.ref(second)
for button.menu in (first, second, second):
    pass
del first, second
assert button.menu is known[1]()
button.menu = None
flush()
assert known[1]() is None
assert known[0]() is not None, "the connection holds it"
)");
}

TEST_F(ToolkitTest, theApplicationsWidgetsAreNotTheScripts)
{
    QMainWindow window;
    QMenu* menu = window.menuBar()->addMenu("Picking");
    app().window = &window;
    check(R"(
main = sp.mainWindow()
menu = sp.getMainWindowMenu("Picking")
child = sp.Button("in the main window", parent=main)
assert child.parentWidget is main and isinstance(menu, sp.Menu)
for act in (main.show, main.close, lambda: main.setFixedSize(3, 4), lambda: setattr(main, "visible", False),
            lambda: setattr(main, "parentWidget", child)):
    try:
        act()
    except RuntimeError as error:
        assert str(error) == "MainWindow, illegal method call"
    else:
        raise AssertionError(act)
try:
    menu.mousePressEvent(None)
except TypeError:
    pass
same = id(menu)
del main, menu, child
gc.collect()
)");
    EXPECT_EQ(menu->title(), "Picking");
    EXPECT_EQ(window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).size(), 2); // menu bar and button
}

TEST_F(ToolkitTest, dialogsAnswerAndSurviveOddOrders)
{
    check(R"(
class Asking(sp.Dialog):
    def __init__(self, act):
        super().__init__("asks")
        self.act = act
        self.errors = []
    def showEvent(self, event):
        super().showEvent(event)
        try:
            self.act(self)
        except RuntimeError as error:
            self.errors.append(str(error))
assert Asking(lambda self: self.accept()).execute() == sp.DialogResponse.Accepted
assert Asking(lambda self: self.close()).execute() == sp.DialogResponse.Rejected
inner = Asking(lambda self: (self.execute(), self.accept()))
inner.accepted(lambda: None)
class Twice(Asking):
    def showEvent(self, event):
        super().showEvent(event)
        self.accept()
twice = Twice(lambda self: self.execute())
assert twice.execute() == sp.DialogResponse.Accepted
assert twice.errors == ["Dialog.execute(), the dialog is already waiting for an answer"], twice.errors
answers = []
again = Asking(lambda self: self.accept())
def onAccepted():
    try:
        again.execute() # inside its own accept()
    except RuntimeError as error:
        answers.append(str(error))
again.accepted(onAccepted)
assert again.execute() == sp.DialogResponse.Accepted
assert answers == ["Dialog.execute(), the dialog is already waiting for an answer"], answers
assert again.execute() == sp.DialogResponse.Accepted and len(answers) == 2
class Refusing(sp.Dialog):
    def closeEvent(self, event):
        event.ignore()
refusing = Refusing()
refusing.show()
assert not refusing.close() and refusing.visible
refusing.hide()
)");
}

} // namespace
