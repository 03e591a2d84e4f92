#pragma once

#include "module/gui/Handlers.h"
#include "module/gui/WidgetHandle.h"

#include <QWidget>

#include <atomic>

namespace python {

/// The part of a widget made by a script that knows Python: it relays events to overridden handlers and keeps the
/// Python object for as long as the widget has a parent or is a window on the screen. Every wrapper class (see
/// Wrapper.h) derives from it beside its Qt class. updateKeeping() follows every event that changes parent or
/// visibility.
class WidgetPeer : public ObjectPeer
{
public:
    virtual QWidget& widget() = 0;
    QObject& object() final { return widget(); }
    /// What the Qt class does with the event, which is of the kind that the handler takes.
    virtual void handleByDefault(Handler handler, QEvent& event) = 0;

    void detach() final;
    /// Handlers are looked for in the Python object from now on. Without this no event enters the interpreter.
    void allowOverrides() { m_mayOverride = true; }

protected:
    bool isOwnedByQt() final;

    /// True when a handler written in Python has taken the event; it may have destroyed anything but this widget.
    bool relay(Handler handler, QEvent& event)
    {
        return m_mayOverride.load(std::memory_order_relaxed) && callOverride(handler, event);
    }

private:
    bool callOverride(Handler handler, QEvent& event);

    std::atomic<bool> m_mayOverride = false; // read without the lock
};

/// The handlers as methods of the Python class that all widgets derive from: what super() finds, for widgets that a
/// script made. Other widgets raise RuntimeError, events of the wrong kind TypeError. Called once, at registration.
void installHandlers(PyTypeObject* type);

} // namespace python
