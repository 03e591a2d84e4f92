#pragma once

#include "host/core/Result.h"

#include <QByteArray>
#include <QString>

namespace hv {

/// Writes a file as a whole, see PartFile: on a failure, told as there, the old file stays as it was. Thread-safe.
Result<void> writeWholeFile(const QString& path, const QByteArray& bytes);

} // namespace hv
