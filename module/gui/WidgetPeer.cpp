#include "module/gui/WidgetPeer.h"

#include "module/gui/Arranging.h"
#include "module/gui/Events.h"
#include "module/gui/Guarded.h"
#include "module/gui/HandleInstance.h"
#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/QtCall.h"
#include "runtime/Ref.h"

#include <QWindow>

namespace python {

namespace {

struct HandlerMethod
{
    PyObject* name = nullptr;      // interned
    PyObject* inherited = nullptr; // the method of the common base class; borrowed, lives as long as the class
};

/// In the order of Handler; filled at registration.
std::array<HandlerMethod, g_handlers.size()> g_methods;

const HandlerMethod& methodOf(Handler handler)
{
    return g_methods[static_cast<std::size_t>(handler)];
}

bool isOverridden(PyObject* self, const HandlerMethod& method)
{
    PyObject* attributes = reinterpret_cast<boost::python::objects::instance<>*>(self)->dict;
    if (attributes && PyDict_GetItemWithError(attributes, method.name))
        return true;
    return _PyType_Lookup(Py_TYPE(self), method.name) != method.inherited;
}

} // namespace

WidgetPeer* WidgetHandle::peer() const
{
    return static_cast<WidgetPeer*>(ownPeer());
}

void WidgetPeer::detach()
{
    m_mayOverride = false;
    ObjectPeer::detach();
}

bool WidgetPeer::isOwnedByQt()
{
    const QWidget& self = widget();
    return self.parentWidget() || (self.isWindow() && self.isVisible());
}

void WidgetPeer::settleVisibility()
{
    QWidget& self = widget();
    if (!self.isWindow())
        return;
    const QWindow* window = self.windowHandle();
    if (self.isVisible() && !self.testAttribute(Qt::WA_WState_Created)) {
        self.setAttribute(Qt::WA_WState_Visible, false);
        self.setAttribute(Qt::WA_WState_Hidden);
        updateKeeping();
    } else if (self.isHidden() && window && window->isVisible()) {
        // Qt asks the widget, not the window, whether there is something to hide.
        self.setAttribute(Qt::WA_WState_Hidden, false);
        self.setAttribute(Qt::WA_WState_Visible);
        const SilentScope silence;
        self.hide();
    }
}

void WidgetPeer::leaveScreenFirst()
{
    QWidget& self = widget();
    if (self.windowType() == Qt::Popup && self.isVisible())
        self.hide();
}

void WidgetPeer::followSurface(const QPlatformSurfaceEvent& event)
{
    QWidget& self = widget();
    if (event.surfaceEventType() != QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed || !self.isWindow() ||
        !self.isVisible())
        return;
    const SilentScope silence;
    self.hide();
}

bool WidgetPeer::hasLeftoverWindow(const QWidget& widget)
{
    return !widget.isWindow() && widget.windowHandle() && !widget.testAttribute(Qt::WA_NativeWindow) &&
           !widget.testAttribute(Qt::WA_WState_Created);
}

bool WidgetPeer::callOverride(Handler handler, QEvent& event)
{
    if (s_isSilent || !QtCall::isPossible())
        return false;
    const QtCall scope(describe(handler).name);
    const HandlerMethod& method = methodOf(handler);
    PyObject* self = this->self();
    if (!self || !isOverridden(self, method))
        return false;
    const ArrangingScope arranging(handler, widget());
    // The handler may let go of the last name of its own widget.
    const Ref kept = Ref::borrow(self);
    const Ref wrapped = Ref::steal(wrapEvent(event));
    PyObject* arguments[] = {self, wrapped.get()};
    const Ref result = Ref::steal(wrapped ? PyObject_VectorcallMethod(method.name, arguments, 2, nullptr) : nullptr);
    if (wrapped)
        endEvent(wrapped.get());
    if (!result)
        printPendingError();
    return true;
}

namespace {

PyObject* callInherited(Handler handler, PyObject* self, PyObject* argument)
{
    return guarded<>(static_cast<PyObject*>(nullptr), [&] {
        const HandlerDescription& description = describe(handler);
        auto& handle = static_cast<WidgetHandle&>(handleOf(self));
        handle.widget();
        QEvent* event = eventOf(argument);
        // Qt asks the press handler about the second press of a double click too.
        const bool isPress = handler == Handler::MousePress && event && event->type() == QEvent::MouseButtonDblClick;
        if (!event || (event->type() != description.event && !isPress))
            raise(PyExc_TypeError, "%s.%s(), wrong argument of type '%s'", handle.className(), description.name,
                  typeName(argument));
        if (!handle.peer())
            raise(PyExc_RuntimeError, "%s.%s(), only widgets made by a script have handlers", handle.className(),
                  description.name);
        handle.peer()->handleByDefault(handler, *event);
        return Py_NewRef(Py_None);
    });
}

template <Handler handler>
PyObject* inheritedHandler(PyObject* self, PyObject* event)
{
    return callInherited(handler, self, event);
}

/// The texts that help() shows, kept for as long as the class.
const char* documentationOf(const HandlerDescription& description)
{
    static std::array<std::string, g_handlers.size()> texts;
    std::string& text = texts[static_cast<std::size_t>(&description - g_handlers.data())];
    text = std::string(description.name) + "(event: _QEvent) -> None\n\nWhat the widget does with the event when no "
                                           "subclass overrides this. The event is only valid inside the handler.";
    return text.c_str();
}

template <std::size_t... index>
void installMethods(PyTypeObject* type, std::index_sequence<index...> /*handlers*/)
{
    static PyMethodDef definitions[] = {{g_handlers[index].name, inheritedHandler<static_cast<Handler>(index)>, METH_O,
                                         documentationOf(g_handlers[index])}...};
    for (PyMethodDef& definition : definitions)
        installMethod(type, definition);
}

/// A handler may also be given to one object, as `label.mousePressEvent = function`, which is then called with the
/// event alone.
int setAttribute(PyObject* self, PyObject* name, PyObject* value)
{
    const int result = PyObject_GenericSetAttr(self, name, value);
    if (result == 0 && value)
        for (const HandlerMethod& method : g_methods)
            if (method.name == name) {
                ObjectHandle* handle = handleOrNull(self);
                WidgetPeer* peer = handle ? static_cast<WidgetHandle*>(handle)->peer() : nullptr;
                if (peer)
                    peer->allowOverrides();
            }
    return result;
}

} // namespace

void installHandlers(PyTypeObject* type)
{
    installMethods(type, std::make_index_sequence<g_handlers.size()>());
    for (std::size_t index = 0; index < g_handlers.size(); ++index) {
        g_methods[index].name = PyUnicode_InternFromString(g_handlers[index].name);
        g_methods[index].inherited = PyDict_GetItemWithError(type->tp_dict, g_methods[index].name);
    }
    for (const char* name : {"__setattr__", "__delattr__"})
        installSlot(type, name, reinterpret_cast<void*>(setAttribute));
}

} // namespace python
