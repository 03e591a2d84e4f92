#pragma once

namespace workbench {

class Commands;

/// The switches of the Settings menu, which have no place in a panel. They show what holds when the menu opens.
void handleSettings(Commands& commands);

} // namespace workbench
