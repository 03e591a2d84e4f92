#pragma once

#include <QJsonObject>
#include <QString>

/// The project's small text files: one JSON object each, indented, keys in alphabetical order, so that they can be read
/// by people and compared by version control.
///
/// The member "version" is "major.minor". A later minor version only adds members, which readers keep; a later major
/// version is refused.
namespace hv {

/// False with a sentence when the file cannot be read, is no JSON object or comes from a later major version than
/// `major`; `object` is then unchanged. The sentence names the file, and the line where there is one.
bool readJsonFile(const QString& path, int major, QJsonObject& object, QString* error);

/// Writes a temporary file beside `path` and renames it; a failure leaves what was there.
bool writeJsonFile(const QString& path, const QJsonObject& object, QString* error);

/// Sets `*error` when there is one; false, for `return fail(error, ...)`.
bool fail(QString* error, const QString& sentence);

} // namespace hv
