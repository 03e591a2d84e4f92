#pragma once

#include <QString>

namespace workbench {

enum class Theme
{
    System, ///< what the desktop gives
    Light,
    Dark,
};

/// The theme kept in the settings; System when none is.
Theme storedTheme();

/// Gives the whole application the theme's style and palette and keeps the choice in the settings.
void applyTheme(Theme theme);

} // namespace workbench
