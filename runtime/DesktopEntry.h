#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace python {

/// The words of the command that a desktop entry (the file's bytes) starts for `target`, the program first; empty when
/// it has none. See https://specifications.freedesktop.org/desktop-entry-spec.
QStringList commandOfDesktopEntry(const QByteArray& entry, const QString& target);

} // namespace python
