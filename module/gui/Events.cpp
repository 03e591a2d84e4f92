#include "module/gui/Events.h"

#include "module/Bindings.h"
#include "module/gui/MimeContent.h"
#include "module/gui/Property.h"
#include "module/gui/ScrollDirection.h"
#include "runtime/ValueInstance.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QWheelEvent>

namespace bp = boost::python;

namespace python {

namespace {

/// What an event object holds; null when the event is over.
struct AnyEvent
{
    QEvent* event = nullptr;
};

/// The classes of events differ in nothing but what they show.
template <typename QtEvent, typename Base>
struct EventOf : Base
{};

using InputEvent = EventOf<QInputEvent, AnyEvent>;
using KeyEvent = EventOf<QKeyEvent, InputEvent>;
using MouseEvent = EventOf<QMouseEvent, InputEvent>;
using WheelEvent = EventOf<QWheelEvent, InputEvent>;
using CloseEvent = EventOf<QCloseEvent, AnyEvent>;
using ShowEvent = EventOf<QShowEvent, AnyEvent>;
using HideEvent = EventOf<QHideEvent, AnyEvent>;
using MoveEvent = EventOf<QMoveEvent, AnyEvent>;
using ResizeEvent = EventOf<QResizeEvent, AnyEvent>;
using DropEvent = EventOf<QDropEvent, AnyEvent>;
using DragMoveEvent = EventOf<QDragMoveEvent, DropEvent>;
using DragEnterEvent = EventOf<QDragEnterEvent, DragMoveEvent>;
using DragLeaveEvent = EventOf<QDragLeaveEvent, AnyEvent>;

AnyEvent* valueOf(PyObject* object)
{
    auto* holder = reinterpret_cast<bp::objects::instance<>*>(object)->objects;
    return holder ? static_cast<AnyEvent*>(holder->holds(bp::type_id<AnyEvent>(), false)) : nullptr;
}

template <typename Value>
PyObject* make(QEvent& event)
{
    Value value;
    value.event = &event;
    return ValueInstance<Value>::make(value);
}

} // namespace

PyObject* wrapEvent(QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return make<KeyEvent>(event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return make<MouseEvent>(event);
    case QEvent::Wheel:
        return make<WheelEvent>(event);
    case QEvent::Close:
        return make<CloseEvent>(event);
    case QEvent::Show:
        return make<ShowEvent>(event);
    case QEvent::Hide:
        return make<HideEvent>(event);
    case QEvent::Move:
        return make<MoveEvent>(event);
    case QEvent::Resize:
        return make<ResizeEvent>(event);
    case QEvent::Drop:
        return make<DropEvent>(event);
    case QEvent::DragMove:
        return make<DragMoveEvent>(event);
    case QEvent::DragEnter:
        return make<DragEnterEvent>(event);
    case QEvent::DragLeave:
        return make<DragLeaveEvent>(event);
    default:
        return make<AnyEvent>(event);
    }
}

QEvent* eventOf(PyObject* object)
{
    if (!PyObject_TypeCheck(object, ValueInstance<AnyEvent>::type()))
        return nullptr;
    const AnyEvent* value = valueOf(object);
    if (!value || !value->event)
        raise(PyExc_RuntimeError, "%s, the event is over: it can only be used inside its handler", typeName(object));
    return value->event;
}

void endEvent(PyObject* object)
{
    valueOf(object)->event = nullptr;
}

namespace {

template <bool accepted>
PyObject* setAccepted(PyObject* self, PyObject* /*none*/)
{
    return guarded<>(static_cast<PyObject*>(nullptr), [&] {
        eventOf(self)->setAccepted(accepted);
        return Py_NewRef(Py_None);
    });
}

template <bool accepted>
PyObject* setRectangle(PyObject* self, PyObject* rectangle)
{
    return guarded<>(static_cast<PyObject*>(nullptr), [&] {
        auto& event = static_cast<QDragMoveEvent&>(*eventOf(self));
        const auto area = Argument<QRect>::from(rectangle, accepted ? "DragMoveEvent.acceptRectangle()"
                                                                    : "DragMoveEvent.ignoreRectangle()");
        if (accepted)
            event.accept(area);
        else
            event.ignore(area);
        return Py_NewRef(Py_None);
    });
}

Qt::KeyboardModifier modifiers(QInputEvent& event)
{
    return static_cast<Qt::KeyboardModifier>(static_cast<int>(event.modifiers()));
}

Qt::MouseButton heldButtons(QMouseEvent& event)
{
    return static_cast<Qt::MouseButton>(static_cast<int>(event.buttons()));
}

ScrollDirection scrollDirection(QWheelEvent& event)
{
    const QPoint turned = event.angleDelta();
    if (std::abs(turned.y()) >= std::abs(turned.x()) && turned.y() != 0)
        return turned.y() > 0 ? ScrollDirection::Up : ScrollDirection::Down;
    if (turned.x() != 0)
        return turned.x() > 0 ? ScrollDirection::Left : ScrollDirection::Right;
    return ScrollDirection::NoDirection;
}

MimeContent mimeData(QDropEvent& event)
{
    return event.mimeData() ? MimeContent::of(*event.mimeData()) : MimeContent();
}

PyGetSetDef g_event[] = {
    readOnly<&QEvent::type>("eventType", "EventType: What happened. Read-only."),
    readOnly<&QEvent::isAccepted>(
        "accepted", "bool: Whether the event counts as used; what is not goes on to the widget around. Read-only."),
};
PyMethodDef g_eventMethods[] = {
    {"accept", setAccepted<true>, METH_NOARGS, "accept() -> None\n\nThe event is used and goes no further."},
    {"ignore", setAccepted<false>, METH_NOARGS,
     "ignore() -> None\n\nThe event is not used: it goes on to the widget around, a window refuses to close, something "
     "dragged can not be dropped."},
};
PyGetSetDef g_inputEvent[] = {
    readOnly<modifiers>("modifiers", "KeyboardModifiers: The keys held down, combined by '|'. Read-only."),
};
PyGetSetDef g_keyEvent[] = {
    readOnly<+[](QKeyEvent& event) { return static_cast<Qt::Key>(event.key()); }>(
        "key", "Key: The key; a letter compares equal to its capital's code, `event.key == ord('A')`. Read-only."),
    readOnly<&QKeyEvent::text>("text", "str: What the key types, empty for keys such as Shift. Read-only."),
};
PyGetSetDef g_mouseEvent[] = {
    readOnly<&QMouseEvent::pos>("position",
                                "Point: Place in the widget, in pixels from its upper left corner. Read-only."),
    readOnly<&QMouseEvent::globalPos>("globalPosition", "Point: Place on the screen. Read-only."),
    readOnly<&QMouseEvent::button>(
        "button", "MouseButton: The button pressed or released; NoButton when the mouse moves. Read-only."),
    readOnly<heldButtons>("buttons", "MouseButton: The buttons held down, combined by '|'. Read-only."),
};
PyGetSetDef g_wheelEvent[] = {
    readOnly<scrollDirection>("scrollDirection",
                              "ScrollDirection: Where the wheel turns, in the direction that turned most. Read-only."),
    readOnly<&QWheelEvent::angleDelta>(
        "angle", "Point: How far the wheel turned, in eighths of a degree; most wheels make steps of 120. Read-only."),
    readOnly<+[](QWheelEvent& event) { return event.position().toPoint(); }>("position",
                                                                             "Point: Place in the widget. Read-only."),
};
PyGetSetDef g_moveEvent[] = {
    readOnly<&QMoveEvent::pos>("position", "Point: Where it is now. Read-only."),
    readOnly<&QMoveEvent::oldPos>("oldPosition", "Point: Where it was. Read-only."),
};
PyGetSetDef g_resizeEvent[] = {
    readOnly<&QResizeEvent::size>("size", "Size: Size now, in pixels. Read-only."),
    readOnly<&QResizeEvent::oldSize>("oldSize", "Size: Size before, (-1, -1) for the first time. Read-only."),
};
PyGetSetDef g_dropEvent[] = {
    readOnly<mimeData>("mimeData", "MimeData: A copy of what is dragged. Read-only."),
    readOnly<&QDropEvent::pos>("position", "Point: Place in the widget. Read-only."),
};
PyGetSetDef g_dragMoveEvent[] = {
    readOnly<&QDragMoveEvent::answerRect>("rectangle",
                                          "Rectangle: The part of the widget for which the answer holds. Read-only."),
};
PyMethodDef g_dragMoveMethods[] = {
    {"acceptRectangle", setRectangle<true>, METH_O,
     "acceptRectangle(rectangle: Rectangle) -> None\n\nWhat is dragged can be dropped anywhere in the rectangle."},
    {"ignoreRectangle", setRectangle<false>, METH_O,
     "ignoreRectangle(rectangle: Rectangle) -> None\n\nWhat is dragged can not be dropped in the rectangle."},
};

template <typename Value, typename... Base>
void bindEvent(const char* name, const char* documentation)
{
    const bp::class_<Value, bp::bases<Base...>> registered(name, documentation, bp::no_init);
    ValueInstance<Value>::adopt(reinterpret_cast<PyTypeObject*>(registered.ptr()));
}

template <typename Value, std::size_t count>
void show(PyGetSetDef (&properties)[count])
{
    for (PyGetSetDef& property : properties)
        installProperty(ValueInstance<Value>::type(), property);
}

template <typename Value, std::size_t count>
void show(PyMethodDef (&methods)[count])
{
    for (PyMethodDef& method : methods)
        installMethod(ValueInstance<Value>::type(), method);
}

} // namespace

void bindEvents()
{
    bindEvent<AnyEvent>("_QEvent", "Something that happened to a widget. Only valid inside the handler that gets it.");
    show<AnyEvent>(g_event);
    show<AnyEvent>(g_eventMethods);
    bindEvent<CloseEvent, AnyEvent>("CloseEvent", "A window is about to close; ignore() keeps it open.");
    bindEvent<ShowEvent, AnyEvent>("ShowEvent", "A widget appears.");
    bindEvent<HideEvent, AnyEvent>("HideEvent", "A widget disappears.");
    bindEvent<MoveEvent, AnyEvent>("MoveEvent", "A widget has moved in the widget around, or a window on the screen.");
    show<MoveEvent>(g_moveEvent);
    bindEvent<ResizeEvent, AnyEvent>("ResizeEvent", "A widget has got another size.");
    show<ResizeEvent>(g_resizeEvent);
    bindEvent<DropEvent, AnyEvent>("DropEvent", "Something dragged is dropped on the widget.");
    show<DropEvent>(g_dropEvent);
    bindEvent<DragMoveEvent, DropEvent>("DragMoveEvent", "Something dragged moves over the widget.");
    show<DragMoveEvent>(g_dragMoveEvent);
    show<DragMoveEvent>(g_dragMoveMethods);
    bindEvent<DragEnterEvent, DragMoveEvent>("DragEnterEvent",
                                             "Something dragged comes over the widget; accept() lets it be dropped.");
    bindEvent<DragLeaveEvent, AnyEvent>("DragLeaveEvent", "Something dragged has left the widget.");
    bindEvent<InputEvent, AnyEvent>("InputEvent", "Something done with keyboard or mouse.");
    show<InputEvent>(g_inputEvent);
    bindEvent<KeyEvent, InputEvent>("KeyEvent", "A key is pressed or released.");
    show<KeyEvent>(g_keyEvent);
    bindEvent<MouseEvent, InputEvent>("MouseEvent", "A mouse button is pressed or released, or the mouse moves.");
    show<MouseEvent>(g_mouseEvent);
    bindEvent<WheelEvent, InputEvent>("WheelEvent", "The mouse wheel turns.");
    show<WheelEvent>(g_wheelEvent);
}

} // namespace python
