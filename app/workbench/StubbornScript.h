#pragma once

class QString;

namespace workbench {

class MainWindow;

/// For a script that goes on although it was stopped: lets the user end the whole application. Unsaved scripts are kept
/// first. Returns when the user rather waits.
void offerToEnd(MainWindow& window, const QString& script);

/// Writes what the next start brings back: the open scripts, what is unsaved in them, and the project's directories.
void keepForNextStart(MainWindow& window);

} // namespace workbench
