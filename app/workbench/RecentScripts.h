#pragma once

#include <QStringList>

namespace workbench {

/// The scripts opened or saved last, newest first, kept in the settings as absolute paths.
QStringList recentScripts();
void addRecentScript(const QString& path);
void removeRecentScript(const QString& path);
void clearRecentScripts();

/// Where the last script was; the start of file dialogs. The home folder when there is none.
QString scriptFolder();

} // namespace workbench
