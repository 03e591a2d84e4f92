#pragma once

#include "module/gui/Handlers.h"

#include <QDragEnterEvent>
#include <QMouseEvent>
#include <QWidget>

namespace python {

/// A Qt widget whose event handlers can be called from outside, so that an override in Python can fall back on them.
template <typename Q>
class Indirect : public Q
{
public:
    using QtClass = Q;

    /// What Q does with the event, which is of the kind that the handler takes.
    void defaultHandler(Handler handler, QEvent& event)
    {
        switch (handler) {
        case Handler::Resize:
            return Q::resizeEvent(static_cast<QResizeEvent*>(&event));
        case Handler::Show:
            return Q::showEvent(static_cast<QShowEvent*>(&event));
        case Handler::Hide:
            return Q::hideEvent(static_cast<QHideEvent*>(&event));
        case Handler::Close:
            return Q::closeEvent(static_cast<QCloseEvent*>(&event));
        case Handler::Enter:
            return Q::enterEvent(&event);
        case Handler::Leave:
            return Q::leaveEvent(&event);
        case Handler::Move:
            return Q::moveEvent(static_cast<QMoveEvent*>(&event));
        case Handler::KeyPress:
            return Q::keyPressEvent(static_cast<QKeyEvent*>(&event));
        case Handler::KeyRelease:
            return Q::keyReleaseEvent(static_cast<QKeyEvent*>(&event));
        case Handler::MousePress:
            return Q::mousePressEvent(static_cast<QMouseEvent*>(&event));
        case Handler::MouseRelease:
            return Q::mouseReleaseEvent(static_cast<QMouseEvent*>(&event));
        case Handler::MouseDoubleClick:
            return Q::mouseDoubleClickEvent(static_cast<QMouseEvent*>(&event));
        case Handler::MouseMove:
            return Q::mouseMoveEvent(static_cast<QMouseEvent*>(&event));
        case Handler::Wheel:
            return Q::wheelEvent(static_cast<QWheelEvent*>(&event));
        case Handler::DragEnter:
            return Q::dragEnterEvent(static_cast<QDragEnterEvent*>(&event));
        case Handler::DragMove:
            return Q::dragMoveEvent(static_cast<QDragMoveEvent*>(&event));
        case Handler::DragLeave:
            return Q::dragLeaveEvent(static_cast<QDragLeaveEvent*>(&event));
        case Handler::Drop:
            return Q::dropEvent(static_cast<QDropEvent*>(&event));
        }
    }
};

} // namespace python
