// What holds for every class of the toolkit that scripts can create: handlers, base calls, properties, deletion.
#include "tests/module/gui/ToolkitFixture.h"

#include <QElapsedTimer>
#include <QPushButton>

#include <atomic>
#include <thread>

namespace {

using fixture::ToolkitTest;

TEST_F(ToolkitTest, everyHandlerOfEveryClassReachesItsOverrideOnce)
{
    check(R"(
assert len(HANDLERS) == 18 and len(classes()) >= 18, (HANDLERS, classes())
EXPECTED = dict(resizeEvent=sp.ResizeEvent, showEvent=sp.ShowEvent, hideEvent=sp.HideEvent, closeEvent=sp.CloseEvent,
    enterEvent=sp._QEvent, leaveEvent=sp._QEvent, moveEvent=sp.MoveEvent, wheelEvent=sp.WheelEvent,
    dragEnterEvent=sp.DragEnterEvent, dragMoveEvent=sp.DragMoveEvent, dragLeaveEvent=sp.DragLeaveEvent,
    dropEvent=sp.DropEvent)
def probe(base, then):
    def make(name):
        def handler(self, event):
            self.calls.append((name, type(event)))
            self.last = event
            then(self, base, name, event)
        return handler
    # One step of inheritance more: handlers may come from any class between.
    middle = type("Middle", (base,), {name: make(name) for name in HANDLERS})
    return type("Probe", (middle,), {"calls": []})
for base in classes():
    for then in (lambda *_: None, lambda self, base, name, event: getattr(base, name)(self, event)):
        widget = probe(base, then)()
        for name in HANDLERS:
            widget.calls.clear()
            send(widget, name)
            kind = EXPECTED.get(name, sp.KeyEvent if name.startswith("key") else sp.MouseEvent)
            assert widget.calls.count((name, kind)) == 1, (base, name, widget.calls)
            try:
                widget.last.accept()
            except RuntimeError as error:
                assert "the event is over" in str(error)
            else:
                raise AssertionError("an event outlived its handler")
)");
    EXPECT_EQ(recorder.textOf(6), "");
}

TEST_F(ToolkitTest, aPlainWidgetAnswersWithoutTheInterpreter)
{
    check("plain = sp.Button('plain')\nplain.windowTitle = 'plain'");
    QWidget* plain = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowTitle() == "plain")
            plain = widget;
    ASSERT_TRUE(plain);
    // Another thread keeps the interpreter until the events are through.
    std::atomic<bool> taken = false, sent = false, inTime = false;
    std::thread other([&] {
        const python::GilLock lock;
        taken = true;
        QElapsedTimer clock;
        clock.start();
        while (!sent && clock.elapsed() < 5000)
            std::this_thread::yield();
        inTime = sent.load();
    });
    while (!taken)
        std::this_thread::yield();
    for (std::size_t index = 0; index < python::g_handlers.size(); ++index)
        fixture::sendEvent(*plain, static_cast<python::Handler>(index));
    sent = true;
    other.join();
    EXPECT_TRUE(inTime);
}

TEST_F(ToolkitTest, aFailingHandlerIsReportedOnce)
{
    check(R"(
for base in classes():
    class Failing(base):
        def keyReleaseEvent(self, event):
            raise ValueError("in the handler")
    widget = Failing()
    send(widget, "keyReleaseEvent")
assert widget.mousePressEvent.__self__ is widget
)");
    const std::string printed = recorder.textOf(6);
    std::size_t count = 0;
    for (std::size_t at = printed.find("ValueError: in the handler"); at != std::string::npos;
         at = printed.find("ValueError: in the handler", at + 1))
        ++count;
    check("print(len(classes()))");
    EXPECT_EQ(count, std::stoul(recorder.textOf(5)));
}

TEST_F(ToolkitTest, aHandlerMayLetItsOwnWidgetGo)
{
    check(R"(
for base in classes():
    for name in HANDLERS:
        holder = []
        class Vanishing(base):
            pass
        def handler(self, event):
            holder.clear()
            base.__dict__.get(name, getattr(base, name))(self, event)
        setattr(Vanishing, name, handler)
        holder.append(Vanishing())
        gone = weakref.ref(holder[0])
        send(holder[0], name)
        assert not holder, (base, name)
        gc.collect()
        assert gone() is None, (base, name)
        flush()
)");
    EXPECT_EQ(recorder.textOf(6), "");
}

TEST_F(ToolkitTest, propertiesRefuseWrongTypesAndStayAsTheyWere)
{
    check(R"(
def shown(value):
    return repr(value) if not isinstance(value, sp._QObject) else id(value)
checked = 0
for cls in classes():
    widget = cls()
    for name in dir(cls):
        descriptor = getattr(cls, name)
        if type(descriptor).__name__ != "getset_descriptor" or name.startswith("__"):
            continue
        before = getattr(widget, name)
        try:
            setattr(widget, name, object())
        except (TypeError, AttributeError) as error:
            text = str(error)
            assert "object" in text or "not writable" in text, (cls, name, text)
        else:
            raise AssertionError((cls, name))
        after = getattr(widget, name)
        assert type(before) is type(after), (cls, name)
        try:
            delattr(widget, name)
        except AttributeError:
            pass
        checked += 1
assert checked > 300, checked
)");
}

TEST_F(ToolkitTest, everyClassTakesItsPropertiesAsArguments)
{
    check(R"(
parent = sp.Widget()
for cls in classes():
    widget = cls(parent=parent, toolTip="tip", enabled=False)
    assert widget.parentWidget is parent and widget.toolTip == "tip" and not widget.enabled, cls
    try:
        cls(colour=1)
    except TypeError as error:
        assert str(error) == f"{cls.__name__}() got an unexpected keyword argument 'colour'"
    else:
        raise AssertionError(cls)
    class Careless(cls):
        def __init__(self):
            pass
    try:
        Careless().toolTip
    except RuntimeError as error:
        assert str(error) == "Careless, super().__init__() was never called"
    else:
        raise AssertionError(cls)
    class Eager(cls):
        def __init__(self):
            super().__init__()
            super().__init__()
    try:
        Eager()
    except RuntimeError as error:
        assert "has already been called" in str(error)
    else:
        raise AssertionError(cls)
)");
}

TEST_F(ToolkitTest, widgetsWorkOnTheirOwnThreadOnly)
{
    check(R"(
import threading
problems = []
def use():
    for cls in classes_:
        for act in (cls, lambda: kept.toolTip, lambda: kept.show(), lambda: send_default()):
            try:
                act()
            except RuntimeError as error:
                problems.append(str(error))
def send_default():
    kept.width = 3
classes_, kept = classes(), sp.Button()
thread = threading.Thread(target=use)
thread.start()
thread.join()
assert len(problems) == 4 * len(classes_) and set(problems) == {"windows can only be used on the main thread"}, problems
# The last name may go on any thread.
before = widgetCount()
widgets = [cls() for cls in classes_]
thread = threading.Thread(target=widgets.clear)
thread.start()
thread.join()
flush()
assert widgetCount() == before
)");
}

} // namespace
