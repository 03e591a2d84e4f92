#pragma once

#include <QByteArray>
#include <QString>

namespace hv {

/// Writes a file as a whole: beside its place and renamed, so that on a failure (`error` says which) the old file
/// stays as it was. Thread-safe.
///
/// What exists and is not an ordinary file is refused. QSaveFile alone reports success when the disk has no room for
/// its last buffer.
bool writeWholeFile(const QString& path, const QByteArray& bytes, QString& error);

} // namespace hv
