#pragma once

#include <QEvent>

#include <array>

namespace python {

/// The event handlers that a class written in Python can override, and whatever is counted by them.
enum class Handler : unsigned char
{
    Resize,
    Show,
    Hide,
    Close,
    Enter,
    Leave,
    Move,
    KeyPress,
    KeyRelease,
    MousePress,
    MouseRelease,
    MouseDoubleClick,
    MouseMove,
    Wheel,
    DragEnter,
    DragMove,
    DragLeave,
    Drop,
};

struct HandlerDescription
{
    const char* name;
    QEvent::Type event; // that it takes
};

/// In the order of Handler.
inline constexpr std::array<HandlerDescription, 18> g_handlers = {{
    {"resizeEvent", QEvent::Resize},
    {"showEvent", QEvent::Show},
    {"hideEvent", QEvent::Hide},
    {"closeEvent", QEvent::Close},
    {"enterEvent", QEvent::Enter},
    {"leaveEvent", QEvent::Leave},
    {"moveEvent", QEvent::Move},
    {"keyPressEvent", QEvent::KeyPress},
    {"keyReleaseEvent", QEvent::KeyRelease},
    {"mousePressEvent", QEvent::MouseButtonPress},
    {"mouseReleaseEvent", QEvent::MouseButtonRelease},
    {"mouseDoubleClickEvent", QEvent::MouseButtonDblClick},
    {"mouseMoveEvent", QEvent::MouseMove},
    {"wheelEvent", QEvent::Wheel},
    {"dragEnterEvent", QEvent::DragEnter},
    {"dragMoveEvent", QEvent::DragMove},
    {"dragLeaveEvent", QEvent::DragLeave},
    {"dropEvent", QEvent::Drop},
}};

inline constexpr const HandlerDescription& describe(Handler handler)
{
    return g_handlers[static_cast<std::size_t>(handler)];
}

} // namespace python
