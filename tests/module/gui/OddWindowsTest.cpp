#include "tests/module/gui/ToolkitFixture.h"

#include <QTimer>
#include <QWindow>

namespace fixture {

/// What handlers do to windows that Qt is just showing, hiding, closing or taking apart.
class OddWindowsTest : public ToolkitTest
{
protected:
    void SetUp() override
    {
        ToolkitTest::SetUp();
        const python::GilLock lock;
        namespace bp = boost::python;
        bp::object main = bp::import("__main__");
        main.attr("closeByUser") =
            bp::make_function(+[](const bp::object& window) { return widgetOf(window).windowHandle()->close(); });
        main.attr("isOnScreen") = bp::make_function(+[](const bp::object& window) {
            const QWindow* native = widgetOf(window).windowHandle();
            return native && native->isVisible();
        });
        main.attr("isOneModal") = bp::make_function(+[] { return QGuiApplication::modalWindow() != nullptr; });
        main.attr("closeSoon") = bp::make_function(+[](const bp::object& window) {
            QTimer::singleShot(0, &widgetOf(window), [widget = &widgetOf(window)] { widget->close(); });
        });
    }
};

TEST_F(OddWindowsTest, aWindowHiddenWhileItIsShownLeavesNothingOnTheScreen)
{
    check(R"(
class Shy(sp.Dialog):
    def showEvent(self, event):
        super().showEvent(event)
        self.hide()
for show in (sp.Dialog.show, sp.Dialog.execute, lambda dialog: setattr(dialog, "visible", True)):
    shy = Shy("too shy", modal=True)
    show(shy)
    assert not shy.visible and not isOnScreen(shy) and not isOneModal(), show
)");
}

TEST_F(OddWindowsTest, aWindowShownAgainWhileItClosesIsGone)
{
    check(R"(
class Stubborn(sp.Widget):
    def hideEvent(self, event):
        self.show()
stubborn = Stubborn()
stubborn.show()
assert closeByUser(stubborn)
assert not stubborn.visible and not isOnScreen(stubborn)
)");
}

TEST_F(OddWindowsTest, aPopupThatShowsAWindowWhenItClosesIsClosedOnce)
{
    check(R"(
closed = []
class Tale(sp.Menu):
    def closeEvent(self, event):
        closed.append(self.visible)
        window.show()
window, menu, dialog = sp.Widget(), Tale("m"), sp.Dialog()
menu.show()
dialog.show()
assert closed == [False] and window.visible and dialog.visible and not menu.visible, closed
)");
}

TEST_F(OddWindowsTest, whoWaitsForADialogFollowsItsModality)
{
    check(R"(
dialog = sp.Dialog()
shown = []
dialog.showEvent = lambda event: shown.append(event)
dialog.show()
for modal in (True, False, True, False):
    dialog.modal = modal
    assert isOneModal() == modal and dialog.visible and isOnScreen(dialog)
dialog.modality = sp.Modality.Application
assert isOneModal() and dialog.modal and len(shown) == 1
dialog.hide()
assert not isOneModal()

class Waiting(sp.Dialog):
    def showEvent(self, event):
        closeSoon(self)
        for name, value in (("modal", False), ("modality", sp.Modality.NonModal)):
            try:
                setattr(self, name, value)
            except RuntimeError as error:
                shown.append(str(error))
waiting = Waiting()
waiting.execute()
assert shown[1:] == ["Dialog.modal, the dialog is waiting for an answer",
                     "Dialog.modality, the dialog is waiting for an answer"], shown
assert not isOneModal() and not waiting.modal
)");
}

TEST_F(OddWindowsTest, nothingWaitsForWhatCanNotBeClosed)
{
    check(R"(
errors = []
def attempt(dialog):
    try:
        dialog.execute()
    except RuntimeError as error:
        errors.append(str(error))
class Again(sp.Dialog):
    def closeEvent(self, event):
        attempt(self)
        super().closeEvent(event)
again = Again()
again.show()
again.rejected(lambda: attempt(again))
assert closeByUser(again) and not again.visible
outer, part = sp.Widget(layout=sp.VBoxLayout()), sp.Dialog()
outer.layout.addWidget(part)
outer.show()
attempt(part)
closing = "Dialog.execute(), the dialog is just closing"
assert errors == [closing, closing, "Dialog.execute(), the dialog is a part of another widget"], errors
)");
}

TEST_F(OddWindowsTest, aWindowThatTheUserClosedCanBecomeAPart)
{
    check(R"(
part, window, outermost = sp.Widget(), sp.Widget(layout=sp.VBoxLayout()), sp.Widget(layout=sp.VBoxLayout())
part.show()
assert closeByUser(part)
window.show()
window.layout.addWidget(part)
outermost.show()
outermost.layout.addWidget(window)  # its own window goes, and took that of the part along
part.show()
flush()
del part, window, outermost
)");
}

TEST_F(OddWindowsTest, tabsGoOneAtATime)
{
    check(R"(
tabs, errors = sp.TabWidget(), []
pages = [sp.Widget() for _ in range(3)]
for page in pages:
    tabs.addTab(page, "t")
def changed(index):
    for act in (lambda: tabs.removeTab(0), lambda: setattr(pages[2], "parentWidget", None)):
        try:
            act()
        except RuntimeError as error:
            errors.append(str(error))
tabs.currentIndex = 0
tabs.tabChanged(changed)
tabs.removeTab(0)
assert tabs.count == 2 and len(errors) == 2, errors
assert all("just arranging" in error for error in errors), errors
)");
}

TEST_F(OddWindowsTest, whatIsDroppedInAHandlerOutlivesItsWaiting)
{
    check(R"(
import threading
def here():
    names.clear()
def elsewhere():
    thread = threading.Thread(target=here)
    thread.start()
    thread.join()
class Asking(sp.Button):
    def mousePressEvent(self, event):
        drop()  # the last name of the window that this is in
        inner = sp.Dialog()
        closeSoon(inner)
        inner.execute()
        seen.append((self.deleted, event.position.x))
for drop in (here, elsewhere):
    seen, names = [], [sp.Widget()]
    known = weakref.ref(names[0]), weakref.ref(Asking("?", parent=names[0]))
    send(known[1](), "mousePressEvent")
    flush()
    assert seen == [(False, 3)] and known[0]() is None and known[1]() is None, (drop, seen)
)");
}

TEST_F(OddWindowsTest, whatAMenuHeldGoesWhenTheMenuIsGone)
{
    check(R"(
seen = []
class Tied:
    def __init__(self, button):
        self.button = button
    def __call__(self):
        pass
    def __del__(self):
        self.button.menu = None  # asks the menu for its action
        seen.append(self.button.deleted)
button, outer = sp.Button("b"), sp.Widget()
menu = sp.Menu("m", parent=outer)
button.menu = menu
menu.addAction("a", Tied(button))
del menu, outer
assert seen == [False] and button.menu is None, seen
)");
}

TEST_F(OddWindowsTest, nothingCallsWhatTheCollectorHasTakenApart)
{
    check(R"(
calls = []
def makeCycle(pages):
    own = []  # older than the stack, so that the collector comes here first
    def changed(index):
        calls.append((index, own))
    own.append(sp.StackedWidget())
    for page in pages:
        own[0].addWidget(page)
    own[0].stackChanged(changed)
    return weakref.ref(own[0])
class Collecting(sp.Button):
    def mousePressEvent(self, event):
        pages = [sp.Label("0"), sp.Label("1")]
        stack = makeCycle(pages)
        gc.collect()
        assert stack() is None
        pages[0].parentWidget = None  # from what waits for the end of this handler to be destroyed
button = Collecting("b")
send(button, "mousePressEvent")
flush()
assert not calls, calls
)");
}

} // namespace fixture
