#include "app/workbench/HeldInput.h"

#include <QApplication>
#include <QDateTime>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

// Qt's own entrance for input as if it came from the window system (used by its test library): shortcuts, focus,
// popups, modal windows and double clicks are then treated as at first hand.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool autoRepeat, ushort count);
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers modifiers, int timestamp);

namespace workbench {

namespace {

constexpr int g_longestStep = 20; // milliseconds
/// A key left pressed for minutes is no input to deliver.
constexpr std::size_t g_mostHeld = 1000;
constexpr qint64 g_escapePause = 1000; // milliseconds between two presses that belong together

bool isPaintingNow()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(),
                       [](const QWidget* w) { return w->testAttribute(Qt::WA_WState_InPaintEvent); });
}

/// The key of an event together with its modifiers, as a shortcut names it.
QKeySequence keySequence(const QKeyEvent& event)
{
    return {event.key() | static_cast<int>(event.modifiers() & ~Qt::KeypadModifier)};
}

} // namespace

HeldInput::HeldInput(QObject* parent) : QObject(parent)
{
    // A timer, because timers are left out in processEvents(): it fires in a real event loop only, which may be that
    // of a dialog which the script itself opened.
    m_delivery.setSingleShot(true);
    m_delivery.setInterval(0);
    connect(&m_delivery, &QTimer::timeout, this, &HeldInput::deliverNext);
}

void HeldInput::setStopControl(QWidget* control, const QKeySequence& key)
{
    m_stopControl = control;
    m_stopKey = key;
}

void HeldInput::processEvents()
{
    if (isPaintingNow())
        return;
    qApp->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::X11ExcludeTimers | QEventLoop::ExcludeSocketNotifiers, g_longestStep);
    qApp->removeEventFilter(this);
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event)
{
    // Input is caught where it enters a window; what comes to widgets is the part let through.
    if (receiver->isWindowType())
        return filterWindowEvent(static_cast<QWindow*>(receiver), event);
    if (event->type() == QEvent::InputMethod) {
        hold(receiver, std::make_unique<QInputMethodEvent>(*static_cast<QInputMethodEvent*>(event)));
        return true;
    }
    return false;
}

bool HeldInput::filterWindowEvent(QWindow* window, QEvent* event)
{
    if (goesToLiveWindow(window, event))
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Accepted, the key is no shortcut now and comes as a plain key press.
        event->accept();
        return true;
    case QEvent::KeyPress:
        checkStopKeys(event);
        [[fallthrough]];
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
            hold(window, std::make_unique<QKeyEvent>(*static_cast<QKeyEvent*>(event)));
        return true;
    case QEvent::MouseMove:
        if (goesToStopControl(window, event))
            return false;
        if (static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton)
            hold(window, std::make_unique<QMouseEvent>(*static_cast<QMouseEvent*>(event)));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        if (goesToStopControl(window, event))
            return false;
        hold(window, std::make_unique<QMouseEvent>(*static_cast<QMouseEvent*>(event)));
        return true;
    case QEvent::MouseButtonDblClick:
        // Follows from the presses when they are delivered.
        return !goesToStopControl(window, event);
    case QEvent::Wheel:
        hold(window, std::make_unique<QWheelEvent>(*static_cast<QWheelEvent*>(event)));
        return true;
    case QEvent::Close:
        if (!event->spontaneous())
            return false;
        event->ignore();
        hold(window, std::make_unique<QEvent>(QEvent::Close));
        return true;
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        event->ignore();
        return true;
    default:
        return false;
    }
}

bool HeldInput::goesToLiveWindow(QWindow* window, QEvent* event) const
{
    if (!m_liveWindow || !m_liveWindow->isVisible() || m_liveWindow->windowHandle() != window)
        return false;
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

bool HeldInput::goesToStopControl(QWindow* window, QEvent* event)
{
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (!m_stopControl || !m_stopControl->isVisible() || m_stopControl->window()->windowHandle() != window)
        return false;
    const bool wasPressed = m_stopControlPressed;
    if (event->type() == QEvent::MouseButtonPress)
        m_stopControlPressed = mouse.button() == Qt::LeftButton && m_stopControl->isEnabled() &&
                               m_stopControl->rect().contains(m_stopControl->mapFromGlobal(mouse.globalPos()));
    else if (event->type() == QEvent::MouseButtonRelease)
        m_stopControlPressed = false;
    return wasPressed || m_stopControlPressed;
}

void HeldInput::checkStopKeys(QEvent* event)
{
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.isAutoRepeat())
        return;
    if (key.key() == Qt::Key_Escape) {
        Q_EMIT escapePressed();
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        if (now - std::exchange(m_lastEscape, now) <= g_escapePause)
            Q_EMIT stopKeysPressed();
    } else if (!m_stopKey.isEmpty() && keySequence(key) == m_stopKey) {
        Q_EMIT stopKeysPressed();
    }
}

void HeldInput::hold(QObject* receiver, std::unique_ptr<QEvent> event)
{
    if (m_held.size() >= g_mostHeld)
        return;
    m_held.push_back({receiver, std::move(event)});
    m_delivery.start();
}

void HeldInput::deliverNext()
{
    if (m_held.empty())
        return;
    const Held held = std::move(m_held.front());
    m_held.pop_front();
    // Before the delivery, which may open a dialog with an event loop of its own.
    if (!m_held.empty())
        m_delivery.start();
    auto* window = qobject_cast<QWindow*>(held.receiver);
    if (!held.receiver || (window && !window->isVisible()))
        return;
    switch (held.event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto& key = static_cast<const QKeyEvent&>(*held.event);
        qt_handleKeyEvent(window, key.type(), key.key(), key.modifiers(), key.text(), key.isAutoRepeat(),
                          static_cast<ushort>(key.count()));
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<const QMouseEvent&>(*held.event);
        qt_handleMouseEvent(window, mouse.windowPos(), mouse.screenPos(), mouse.buttons(), mouse.button(), mouse.type(),
                            mouse.modifiers(), static_cast<int>(mouse.timestamp()));
        break;
    }
    case QEvent::Close:
        window->close();
        break;
    default:
        QCoreApplication::sendEvent(held.receiver, held.event.get());
    }
}

} // namespace workbench
