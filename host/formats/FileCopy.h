#pragma once

#include "host/core/Result.h"

#include <QString>

#include <functional>

namespace hv {

/// Asked every so often with how much is done, of how much; false stops.
using CopyProgress = std::function<bool(qint64 done, qint64 all)>;

/// Makes `to` a copy of an open file, whatever its size: as PartFile does, so that it is there whole or not at all.
/// Copies nothing where the file system can share. Any thread. A failure is a sentence that names `to`; of a copy that
/// was stopped it is empty.
Result<void> copyWholeFile(int from, const QString& to, const CopyProgress& progress = {});
/// The same of a file by its path.
Result<void> copyWholeFile(const QString& from, const QString& to, const CopyProgress& progress = {});

} // namespace hv
