#include "host/viewers/HVMouseMode.h"
#include "module/Bindings.h"
#include "module/EnumerationTable.h"
#include "module/gui/ScrollDirection.h"

#include <QEvent>

namespace python {

namespace {

constexpr NamedValue<HVMouseMode> g_mouseModes[] = {
    {"Unknown", HVMouseMode::Unknown},
    {"Selection", HVMouseMode::Selection},
    {"SquareSelection", HVMouseMode::SquareSelection},
    {"CrossNavigation", HVMouseMode::CrossNavigation},
    {"Translation", HVMouseMode::Translation},
    {"Zoom", HVMouseMode::Zoom},
};

constexpr NamedValue<ScrollDirection> g_scrollDirections[] = {
    {"Down", ScrollDirection::Down}, {"Up", ScrollDirection::Up},       {"NoDirection", ScrollDirection::NoDirection},
    {"Left", ScrollDirection::Left}, {"Right", ScrollDirection::Right},
};

constexpr NamedValue<QEvent::Type> g_eventTypes[] = {
    {"MouseButtonPress", QEvent::MouseButtonPress},
    {"MouseButtonRelease", QEvent::MouseButtonRelease},
    {"MouseMove", QEvent::MouseMove},
    {"KeyPress", QEvent::KeyPress},
    {"KeyRelease", QEvent::KeyRelease},
    {"Enter", QEvent::Enter},
    {"Show", QEvent::Show},
    {"Hide", QEvent::Hide},
    {"Close", QEvent::Close},
    {"Wheel", QEvent::Wheel},
    {"DragEnter", QEvent::DragEnter},
    {"DragMove", QEvent::DragMove},
    {"DragLeave", QEvent::DragLeave},
    {"Drop", QEvent::Drop},
    {"Scroll", QEvent::Scroll},
};

constexpr NamedValue<Qt::KeyboardModifier> g_modifiers[] = {
    {"NoModifier", Qt::NoModifier}, {"Shift", Qt::ShiftModifier}, {"Control", Qt::ControlModifier},
    {"Alt", Qt::AltModifier},       {"Meta", Qt::MetaModifier},   {"Keypad", Qt::KeypadModifier},
};

constexpr NamedValue<Qt::MouseButton> g_mouseButtons[] = {
    {"NoButton", Qt::NoButton},
    {"Left", Qt::LeftButton},
    {"Right", Qt::RightButton},
    {"Middle", Qt::MiddleButton},
};

} // namespace

void bindInputEnumerations()
{
    registerEnumeration("MouseMode", "What the mouse does in a viewer.", g_mouseModes);
    registerEnumeration("ScrollDirection", "Where a turn of the mouse wheel scrolls to.", g_scrollDirections);
    registerEnumeration("EventType", "The kind of an event.", g_eventTypes);
    registerEnumeration("KeyboardModifiers",
                        "The keys held down during an event. Several are combined with |; & tells whether one is among "
                        "them.",
                        g_modifiers);
    registerEnumeration("MouseButton", "A button of the mouse.", g_mouseButtons);
}

} // namespace python
