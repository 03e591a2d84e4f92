#pragma once

namespace python {

/// Where a turn of the mouse wheel scrolls to. The numbers are the scripts'.
enum class ScrollDirection : int
{
    Down = 0,
    Up = 1,
    NoDirection = 2, ///< a wheel event without a turn: the start or the end of a gesture
    Left = 3,
    Right = 4,
};

} // namespace python
