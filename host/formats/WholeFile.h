#pragma once

#include <QByteArray>
#include <QString>

namespace hv {

/// Writes a file as a whole, see PartFile: on a failure (`error` says which) the old file stays as it was. Thread-safe.
bool writeWholeFile(const QString& path, const QByteArray& bytes, QString& error);

} // namespace hv
