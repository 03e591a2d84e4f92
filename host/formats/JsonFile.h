#pragma once

#include "host/core/Result.h"

#include <QJsonObject>
#include <QString>

/// The project's small text files: one JSON object each, indented, keys in alphabetical order, so that they can be read
/// by people and compared by version control.
///
/// The member "version" is "major.minor". A later minor version only adds members, which readers keep; a later major
/// version is refused.
namespace hv {

/// Fails when the file cannot be read, is no JSON object or comes from a later major version than `major`. The sentence
/// names the file, and the line where there is one.
Result<QJsonObject> readJsonFile(const QString& path, int major);

/// Writes a temporary file beside `path` and renames it; a failure leaves what was there.
Result<void> writeJsonFile(const QString& path, const QJsonObject& object);

} // namespace hv
