#pragma once

#include <QString>
#include <QStringList>

namespace python {

/// Presents a run as plain Python presents a script started from the command line: `arguments` (the script's name
/// first) become sys.argv, `directory` is searched first for modules, and `file`, when not empty, becomes `__file__`.
void setScriptArguments(const QStringList& arguments, const QString& directory, const QString& file);

} // namespace python
