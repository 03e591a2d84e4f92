#pragma once

#include <QList>
#include <QString>

class HVPythonTextEdit;

namespace workbench {

/// The name under which the editor's script is run: its file, or for one without a file a name in angle brackets that
/// no other editor has. Breakpoints and errors are found by it.
QString scriptName(const HVPythonTextEdit& editor);

/// The editor's title, with the number of that name where the title has only fixed words, and with the folder where one
/// of `others` has a file of the same name.
QString tabTitle(const HVPythonTextEdit& editor, const QList<HVPythonTextEdit*>& others = {});

/// Whether code that runs under this name is the editor's.
bool showsScript(const HVPythonTextEdit& editor, const QString& name);

} // namespace workbench
