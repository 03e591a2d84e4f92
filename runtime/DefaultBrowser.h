#pragma once

#include <QString>
#include <QStringList>

namespace python {

/// The command that shows `url` in this user's web browser, the program (an absolute path) first; empty when there is
/// no browser. Looks at $BROWSER (commands separated by ":", "%s" in them stands for the URL), then at the desktop's
/// setting, then for the distribution's usual names.
QStringList browserCommand(const QString& url);

} // namespace python
