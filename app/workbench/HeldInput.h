#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <memory>

class QEvent;
class QWidget;
class QWindow;

namespace workbench {

/// Lets windows paint while a script occupies the GUI thread, and puts the user's input aside meanwhile: it is
/// delivered, in order, as soon as an event loop has control again, so nothing that the user does can run other code
/// in the middle of the script. Only the stop control and the live window work at once.
///
/// Held are keys, mouse buttons and moves with a button down, wheel, composed text and attempts to close a window.
/// Hover, drag and drop, touch and tablet events are dropped. Timers do not run.
class HeldInput : public QObject
{
    Q_OBJECT

public:
    explicit HeldInput(QObject* parent = nullptr);

    /// The widget that gets its mouse input at once, and the key that asks to stop besides Escape pressed twice.
    void setStopControl(QWidget* control, const QKeySequence& key);

    /// A window whose mouse input and closing are not put aside; null for none. It has no use for keys but Escape.
    void setLiveWindow(QWidget* window) { m_liveWindow = window; }

    /// An Escape pressed so far does not count as the first of two.
    void forgetEscape() { m_lastEscape = 0; }

    /// Handles what is pending, for some milliseconds at most. Does nothing inside a paint event.
    void processEvents();

Q_SIGNALS:
    /// The stop keys were pressed; sent during processEvents(). The control sends its own signal.
    void stopKeysPressed();
    /// Each press of Escape in whatever window; sent before stopKeysPressed().
    void escapePressed();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Held
    {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
    };

    bool filterWindowEvent(QWindow* window, QEvent* event);
    bool goesToLiveWindow(QWindow* window, QEvent* event) const;
    bool goesToStopControl(QWindow* window, QEvent* event);
    void checkStopKeys(QEvent* event);
    void hold(QObject* receiver, std::unique_ptr<QEvent> event);
    void deliverNext();

    QPointer<QWidget> m_stopControl;
    QPointer<QWidget> m_liveWindow;
    QKeySequence m_stopKey;
    bool m_stopControlPressed = false;
    qint64 m_lastEscape = 0;
    std::deque<Held> m_held;
    QTimer m_delivery;
};

} // namespace workbench
