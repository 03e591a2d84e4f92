#pragma once

/// What the mouse does in a viewer. Scripts use the numbers: they never change.
enum class HVMouseMode : int
{
    Unknown = 0,
    Selection = 1,
    SquareSelection = 2,
    CrossNavigation = 3,
    Translation = 4,
    Zoom = 5,
};
