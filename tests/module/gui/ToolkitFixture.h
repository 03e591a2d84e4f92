#pragma once

#include "module/gui/HandleInstance.h"
#include "module/gui/Handlers.h"
#include "runtime/GilLock.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QWheelEvent>

namespace fixture {

struct ScrollArea : QAbstractScrollArea
{
    static bool send(QAbstractScrollArea& area, QEvent& event) { return (area.*&ScrollArea::viewportEvent)(&event); }
};

/// Gives a widget the event that a handler takes: a scroll area gets what the mouse does by way of the part that it
/// scrolls. Not by way of QApplication, which remembers where something dragged is and leaves out mouse moves.
inline void sendEvent(QWidget& widget, python::Handler handler)
{
    using python::Handler;
    auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
    const bool isInside = handler == Handler::Resize || handler >= Handler::MousePress;
    const auto send = [&](QEvent&& event) {
        if (area && isInside)
            ScrollArea::send(*area, event);
        else
            static_cast<QObject&>(widget).event(&event);
    };
    const QEvent::Type type = python::describe(handler).event;
    const QPointF place(3, 4);
    QMimeData mime;
    mime.setText("dragged");
    constexpr auto both = Qt::CopyAction | Qt::MoveAction;
    switch (handler) {
    case Handler::Resize:
        return send(QResizeEvent(QSize(50, 40), QSize(20, 10)));
    case Handler::Show:
        return send(QShowEvent());
    case Handler::Hide:
        return send(QHideEvent());
    case Handler::Close:
        return send(QCloseEvent());
    case Handler::Enter:
    case Handler::Leave:
        return send(QEvent(type));
    case Handler::Move:
        return send(QMoveEvent(QPoint(5, 6), QPoint(1, 2)));
    case Handler::KeyPress:
    case Handler::KeyRelease:
        return send(QKeyEvent(type, Qt::Key_A, Qt::ShiftModifier, "A"));
    case Handler::MousePress:
    case Handler::MouseRelease:
    case Handler::MouseDoubleClick:
        return send(QMouseEvent(type, place, Qt::LeftButton, Qt::LeftButton, Qt::ControlModifier));
    case Handler::MouseMove:
        return send(QMouseEvent(type, place, Qt::NoButton, Qt::LeftButton, Qt::NoModifier));
    case Handler::Wheel:
        return send(
            QWheelEvent(place, place, {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    case Handler::DragEnter:
        return send(QDragEnterEvent(place.toPoint(), both, &mime, Qt::LeftButton, Qt::NoModifier));
    case Handler::DragMove:
        return send(QDragMoveEvent(place.toPoint(), both, &mime, Qt::LeftButton, Qt::NoModifier));
    case Handler::DragLeave:
        return send(QDragLeaveEvent());
    case Handler::Drop:
        return send(QDropEvent(place, both, &mime, Qt::LeftButton, Qt::NoModifier));
    }
}

/// Scripts can call send(widget, "mousePressEvent") and flush(), which destroys what waits for it.
class ToolkitTest : public RuntimeTest
{
protected:
    void SetUp() override
    {
        const python::GilLock lock;
        namespace bp = boost::python;
        bp::object main = bp::import("__main__");
        main.attr("send") = bp::make_function(&send);
        main.attr("flush") = bp::make_function(&flush);
        main.attr("widgetCount") = bp::make_function(&widgetCount);
        ASSERT_TRUE(run(g_prelude));
    }

    static QWidget& widgetOf(const boost::python::object& object)
    {
        return python::handleOf(object.ptr()).alive<QWidget>();
    }

    /// Runs the code, which asserts; a failure shows its traceback. The interpreter leaves assertions out by default.
    void check(const char* code)
    {
        recorder.posts.clear();
        {
            const python::GilLock lock;
            boost::python::import("__main__").attr("code") = code;
        }
        EXPECT_TRUE(run("exec(compile(code, 'check.py', 'exec', optimize=0), globals())")) << recorder.textOf(6);
    }

private:
    static constexpr const char* g_prelude = R"(
import gc, weakref
import strativo_python as sp
HANDLERS = [name for name in vars(sp._QWidget) if name.endswith("Event")]

def classes():
    # What scripts can create and derive from.
    found = []
    for value in vars(sp).values():
        if isinstance(value, type) and issubclass(value, sp._QWidget) and not value.__name__.startswith("_"):
            try:
                value()
            except RuntimeError:
                continue
            found.append(value)
    return found
)";

    static void send(const boost::python::object& object, const std::string& name)
    {
        for (std::size_t index = 0; index < python::g_handlers.size(); ++index)
            if (name == python::g_handlers[index].name)
                return sendEvent(widgetOf(object), static_cast<python::Handler>(index));
        throw std::invalid_argument(name);
    }
    static void flush()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static int widgetCount() { return QApplication::allWidgets().size(); }
};

} // namespace fixture
