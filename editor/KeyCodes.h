#pragma once

#include <Qt>

/// Keys with a modifier, as constants for switches.
namespace editor {

constexpr int shift(int key)
{
    return static_cast<int>(Qt::SHIFT) | key;
}

constexpr int control(int key)
{
    return static_cast<int>(Qt::CTRL) | key;
}

constexpr int alt(int key)
{
    return static_cast<int>(Qt::ALT) | key;
}

} // namespace editor
