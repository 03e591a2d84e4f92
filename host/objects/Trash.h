#pragma once

#include "host/core/Result.h"
#include "host/objects/ObjectKey.h"

namespace hv {

/// The folder ".trash" of a project: what changes have put away, and undo brings back by renaming. On the project's own
/// file system, so that nothing is copied, however large.
///
///     .trash/2026-11-22/<number>-<file>        a file, under the day on which it was put here
///     .trash/2026-11-22/<number>-<file>.json   of a removed object: kind, name, date
///
/// GUI thread only.
class Trash
{
public:
    explicit Trash(const QString& projectFolder) : m_folder(projectFolder + QStringLiteral("/.trash")) {}

    /// A path that nothing has yet, in a folder that exists.
    Result<QString> place(const QString& fileName);
    /// Says whose file lies at `place`, for people and for later sessions. Not essential: a failure is passed over.
    static void writeNote(const QString& place, const ObjectKey& key);
    static void removeNote(const QString& place);

    /// Removes what was put here more than 30 days ago.
    void tidy() const;

private:
    QString m_folder;
    quint64 m_last = 0;
};

/// Renames a file to a name that is free. A failure is the reason alone.
Result<void> moveFile(const QString& from, const QString& to);
/// Two files change places, at once where the file system can.
Result<void> exchangeFiles(const QString& a, const QString& b);

} // namespace hv
