#pragma once

#include "host/core/Result.h"

#include <QByteArray>
#include <QString>

namespace hv {

/// A file that is written beside its place and takes it when it is whole. Until then what is at the place stays as it
/// is, and the part goes with the object.
///
/// The part of a program that was killed stays behind. It bears a name that nothing else has and is locked while its
/// writer lives, so removeAbandonedParts() can tell.
///
/// For one thread at a time. The sentence of a failure is a mere reason, for a sentence that names the file.
class PartFile
{
public:
    PartFile() = default;
    ~PartFile() { discard(); }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Refuses places that hold anything but an ordinary file that may be written. A symbolic link stays one: its
    /// target is what is replaced. The new file takes over the permissions of the old one.
    Result<void> open(const QString& path);
    bool isOpen() const { return m_descriptor >= 0; }

    /// Takes the disk's room for `size` bytes, so that a commit() of not more does not fail for want of it.
    Result<void> reserve(qint64 size);

    /// Writes the bytes through to the disk and puts the file into its place. Closes the part, whatever becomes of it.
    Result<void> commit(const QByteArray& bytes);

    /// For writers of what is too large to be held: the part, empty, to be written in any order until putInPlace().
    int descriptor() const { return m_descriptor; }
    /// The end of commit(), when the bytes are in the part already.
    Result<void> putInPlace();

    void discard();

private:
    Result<void> create();
    Result<void> write(const QByteArray& bytes);
    bool sync();

    QByteArray m_target;
    QByteArray m_part;
    int m_descriptor = -1;
    qint64 m_reserved = 0;
};

/// Removes the parts in `folder`, not below it, whose writers are gone. Costs a listing of the folder.
void removeAbandonedParts(const QString& folder);

} // namespace hv
