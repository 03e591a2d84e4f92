#pragma once

#include "module/gui/Handlers.h"

#include <boost/python/detail/wrap_python.hpp>

#include <QWidget>

#include <atomic>

namespace python {

class WidgetHandle;

/// The part of a widget made by a script that knows Python: it relays events to overridden handlers and keeps the
/// Python object for as long as the widget has a parent or is a window on the screen. Every wrapper class (see
/// Wrapper.h) derives from it beside its Qt class.
///
/// The Python object and the widget may die in either order; each tells the other. Used on the GUI thread.
class WidgetPeer
{
public:
    WidgetPeer() = default;
    WidgetPeer(const WidgetPeer&) = delete;
    WidgetPeer& operator=(const WidgetPeer&) = delete;

    virtual QWidget& widget() = 0;
    /// What the Qt class does with the event, which is of the kind that the handler takes.
    virtual void handleByDefault(Handler handler, QEvent& event) = 0;

    /// `self` is the object that `handle` is inside of; both are borrowed until detach(). Needs the interpreter lock,
    /// as do the functions below.
    void attach(WidgetHandle& handle, PyObject* self);
    void detach();
    /// Handlers are looked for in the Python object from now on. Without this no event enters the interpreter.
    void allowOverrides() { m_mayOverride = true; }

    /// Borrowed; null when the Python object has gone.
    PyObject* self() const { return m_self; }
    /// Borrowed; null unless this object holds a reference to self().
    PyObject* kept() const { return m_kept; }

protected:
    ~WidgetPeer();

    /// True when a handler written in Python has taken the event; it may have destroyed anything but this widget.
    bool relay(Handler handler, QEvent& event)
    {
        return m_mayOverride.load(std::memory_order_relaxed) && callOverride(handler, event);
    }
    /// To be called after every event that changes parent or visibility.
    void updateKeeping();

private:
    bool callOverride(Handler handler, QEvent& event);

    WidgetHandle* m_handle = nullptr;
    PyObject* m_self = nullptr;
    PyObject* m_kept = nullptr;
    std::atomic<bool> m_mayOverride = false; // read without the lock
};

/// The handlers as methods of the Python class that all widgets derive from: what super() finds, for widgets that a
/// script made. Other widgets raise RuntimeError, events of the wrong kind TypeError. Called once, at registration.
void installHandlers(PyTypeObject* type);

} // namespace python
