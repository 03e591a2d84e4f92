#pragma once

#include "module/gui/Handlers.h"
#include "module/gui/WidgetHandle.h"

#include <QPlatformSurfaceEvent>
#include <QWidget>

#include <atomic>
#include <utility>

namespace python {

/// The part of a widget made by a script that knows Python: it relays events to overridden handlers and keeps the
/// Python object for as long as the widget has a parent or is a window on the screen. Every wrapper class (see
/// Wrapper.h) derives from it beside its Qt class. updateKeeping() follows every event that changes parent or
/// visibility.
class WidgetPeer : public ObjectPeer
{
public:
    /// The time in which no handler of any widget is called: a window comes and goes that the script need not know of.
    class SilentScope
    {
    public:
        SilentScope() : m_before(std::exchange(s_isSilent, true)) {}
        ~SilentScope() { s_isSilent = m_before; }
        SilentScope(const SilentScope&) = delete;
        SilentScope& operator=(const SilentScope&) = delete;

    private:
        const bool m_before;
    };

    virtual QWidget& widget() = 0;
    QObject& object() final { return widget(); }
    /// What the Qt class does with the event, which is of the kind that the handler takes.
    virtual void handleByDefault(Handler handler, QEvent& event) = 0;

    void detach() final;
    /// Handlers are looked for in the Python object from now on. Without this no event enters the interpreter.
    void allowOverrides() { m_mayOverride = true; }

protected:
    bool isOwnedByQt() final;

    /// Makes widget and window of one mind when handlers have changed things while Qt did. A widget that is hidden
    /// while it is being shown leaves a window on the screen, which would block all others when it is modal; one that
    /// is shown while its window goes counts as visible without one.
    void settleVisibility();
    /// Takes a popup off the screen before its handler for closing runs. Qt closes all popups before it shows a window,
    /// one after the other for as long as there is one, and would try for ever while a handler shows that window.
    void leaveScreenFirst();
    /// Hides a window that goes although a handler has shown it again while it was closing. Qt takes the rest for a
    /// window on the screen, and would wait for ever until it is closed when the application ends.
    void followSurface(const QPlatformSurfaceEvent& event);
    /// True for a part that still has the window from before it became a part: when the user closed that window first,
    /// Qt leaves it behind, below the window of the new parent, which would take it along without the part's knowing.
    static bool hasLeftoverWindow(const QWidget& widget);

    /// True when a handler written in Python has taken the event; it may have destroyed anything but this widget.
    bool relay(Handler handler, QEvent& event)
    {
        return m_mayOverride.load(std::memory_order_relaxed) && callOverride(handler, event);
    }

private:
    bool callOverride(Handler handler, QEvent& event);

    std::atomic<bool> m_mayOverride = false; // read without the lock
    static inline bool s_isSilent = false;   // no handler of any widget is called
};

/// The handlers as methods of the Python class that all widgets derive from: what super() finds, for widgets that a
/// script made. Other widgets raise RuntimeError, events of the wrong kind TypeError. Called once, at registration.
void installHandlers(PyTypeObject* type);

} // namespace python
