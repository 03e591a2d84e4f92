#pragma once

#include "module/gui/Indirect.h"
#include "module/gui/WidgetPeer.h"

namespace python {

/// A Qt widget that a script made: each event handler relays to Python, and does what Qt does when there is no override
/// in Python. `I` is an Indirect class.
///
/// The way of an event: Qt calls the virtual handler below, which asks relay(). While there can be no override that is
/// the reading of a flag, without the interpreter lock. Otherwise callOverride() enters the interpreter (QtCall), looks
/// the handler up in the object and its classes and calls it with the event as a Python object. What super() finds
/// there leads over handleByDefault() to Indirect::defaultHandler(), which calls the handler of the Qt class by its
/// full name: a virtual call would come out here again.
///
/// The other half are the odd moments. Handlers may hide, show, close or move the widget while Qt is doing just that;
/// event() and setVisible() put right afterwards what Qt does not expect, see WidgetPeer.
template <typename I>
class Wrapper final : public I, public WidgetPeer
{
public:
    QWidget& widget() override { return *this; }
    void handleByDefault(Handler handler, QEvent& event) override { I::defaultHandler(handler, event); }

    void setVisible(bool visible) override
    {
        I::setVisible(visible);
        settleVisibility();
    }

protected:
    bool event(QEvent* event) override
    {
        const QEvent::Type type = event->type();
        if (type == QEvent::Close)
            leaveScreenFirst();
        else if (type == QEvent::PlatformSurface)
            followSurface(static_cast<QPlatformSurfaceEvent&>(*event));
        const bool result = I::event(event);
        if (type == QEvent::ParentChange && hasLeftoverWindow(*this))
            I::destroy();
        else if (type == QEvent::PlatformSurface)
            settleVisibility();
        if (type == QEvent::ParentChange || type == QEvent::Show || type == QEvent::Hide)
            updateKeeping();
        return result;
    }

    void resizeEvent(QResizeEvent* event) override { relayOr(Handler::Resize, event); }
    void showEvent(QShowEvent* event) override { relayOr(Handler::Show, event); }
    void hideEvent(QHideEvent* event) override { relayOr(Handler::Hide, event); }
    void closeEvent(QCloseEvent* event) override { relayOr(Handler::Close, event); }
    void enterEvent(QEvent* event) override { relayOr(Handler::Enter, event); }
    void leaveEvent(QEvent* event) override { relayOr(Handler::Leave, event); }
    void moveEvent(QMoveEvent* event) override { relayOr(Handler::Move, event); }
    void keyPressEvent(QKeyEvent* event) override { relayOr(Handler::KeyPress, event); }
    void keyReleaseEvent(QKeyEvent* event) override { relayOr(Handler::KeyRelease, event); }
    void mousePressEvent(QMouseEvent* event) override { relayOr(Handler::MousePress, event); }
    void mouseReleaseEvent(QMouseEvent* event) override { relayOr(Handler::MouseRelease, event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { relayOr(Handler::MouseDoubleClick, event); }
    void mouseMoveEvent(QMouseEvent* event) override { relayOr(Handler::MouseMove, event); }
    void wheelEvent(QWheelEvent* event) override { relayOr(Handler::Wheel, event); }
    void dragEnterEvent(QDragEnterEvent* event) override { relayOr(Handler::DragEnter, event); }
    void dragMoveEvent(QDragMoveEvent* event) override { relayOr(Handler::DragMove, event); }
    void dragLeaveEvent(QDragLeaveEvent* event) override { relayOr(Handler::DragLeave, event); }
    void dropEvent(QDropEvent* event) override { relayOr(Handler::Drop, event); }

private:
    void relayOr(Handler handler, QEvent* event)
    {
        if (!relay(handler, *event))
            I::defaultHandler(handler, *event);
    }
};

} // namespace python
