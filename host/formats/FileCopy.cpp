#include "host/formats/FileCopy.h"

#include "host/formats/PartFile.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hv {

namespace {

/// Copied at once; less than 0.1 s on any disk.
constexpr qint64 g_piece = qint64(16) << 20;

/// As much as there is, up to `count` bytes, from and to `offset`; below 0 with errno.
ssize_t copyPlainly(int from, int to, off_t offset, std::size_t count)
{
    std::array<char, 65536> buffer;
    const ssize_t got = pread(from, buffer.data(), std::min(count, buffer.size()), offset);
    if (got <= 0)
        return got;
    return pwrite(to, buffer.data(), static_cast<std::size_t>(got), offset);
}

ssize_t copySome(int from, int to, off_t offset, std::size_t count)
{
    off64_t in = offset;
    off64_t out = offset;
    const ssize_t done = copy_file_range(from, &in, to, &out, count, 0);
    // Between file systems, and on some that are no disks, it is not to be had.
    const bool isRefused = done < 0 && (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP);
    return isRefused ? copyPlainly(from, to, offset, count) : done;
}

} // namespace

Result<void> copyWholeFile(int from, const QString& to, const CopyProgress& progress)
{
    const auto failed = [&to](const Failure& reason) {
        Failure failure(QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(to), reason.sentence),
                        to);
        failure.systemError = reason.systemError;
        return failure;
    };
    const auto refused = [&failed](int error) {
        Failure reason(qt_error_string(error));
        reason.systemError = error;
        return failed(reason);
    };
    struct stat status
    {};
    if (fstat(from, &status) != 0)
        return refused(errno);
    PartFile part;
    if (const auto opened = part.open(to); !opened)
        return failed(opened.failure());
    const bool isShared = ioctl(part.descriptor(), FICLONE, from) == 0;
    for (qint64 done = 0; !isShared && done < status.st_size;) {
        if (progress && !progress(done, status.st_size))
            return Failure(QString());
        const auto piece = static_cast<std::size_t>(std::min<qint64>(g_piece, status.st_size - done));
        const ssize_t copied = copySome(from, part.descriptor(), done, piece);
        if (copied < 0 && errno == EINTR)
            continue;
        if (copied < 0)
            return refused(errno);
        if (copied == 0)
            return failed(Failure(QStringLiteral("what it is copied from has become shorter")));
        done += copied;
    }
    if (const auto done = part.putInPlace(); !done)
        return failed(done.failure());
    return {};
}

Result<void> copyWholeFile(const QString& from, const QString& to, const CopyProgress& progress)
{
    QFile file(from);
    if (!file.open(QIODevice::ReadOnly))
        return Failure(
            QStringLiteral("Unable to read '%1': %2.").arg(QDir::toNativeSeparators(from), file.errorString()), from);
    return copyWholeFile(file.handle(), to, progress);
}

} // namespace hv
