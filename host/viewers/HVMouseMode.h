#pragma once

#include "host/core/Result.h"

#include <QString>

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

namespace hv {

/// The viewer action by which a viewer is switched to the mode. Fails for a mode that no action stands for (Unknown,
/// and numbers that are no mode).
Result<QString> viewerAction(HVMouseMode mode);

} // namespace hv
