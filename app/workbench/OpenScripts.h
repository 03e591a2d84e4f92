#pragma once

#include <QByteArray>

namespace workbench {

class MainWindow;

/// The scripts that are open, as the session file "session.xml" in the user's data keeps them. Scripts that were never
/// saved have no place in it.
QByteArray openScripts(const MainWindow& window);

/// Writes the session file; a failure is reported on the event bus.
void keepOpenScripts(const QByteArray& session);

/// Opens the scripts of the last session, and what an application that crashed left unsaved. A file that is gone is
/// reported on the event bus.
void restoreOpenScripts(MainWindow& window);

} // namespace workbench
