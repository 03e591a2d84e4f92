#pragma once

class QMenu;

namespace workbench {

/// Puts the switches into the Settings menu that have no place in a panel. They show what holds when the menu opens.
void fillSettingsMenu(QMenu& menu);

} // namespace workbench
