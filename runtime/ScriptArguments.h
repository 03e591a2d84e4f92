#pragma once

#include <QString>
#include <QStringList>

namespace python {

/// Presents a run as plain Python presents a script started from the command line: `arguments` (the script's name
/// first) become sys.argv, `directory` is searched first for modules, and `file`, when not empty, becomes `__file__`.
void setScriptArguments(const QStringList& arguments, const QString& directory, const QString& file);

/// The text of a script file: UTF-8 (a byte-order mark is dropped) unless a coding comment in its first two lines names
/// another encoding (https://peps.python.org/pep-0263/). False, with a sentence in `error`, for bytes that are not text
/// in that encoding.
bool decodeScript(const QByteArray& bytes, QString& text, QString& error);

} // namespace python
