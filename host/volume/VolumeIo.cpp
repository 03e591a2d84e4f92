#include "host/volume/VolumeIo.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace hv {

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    std::swap(m_number, other.m_number);
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    if (m_number >= 0)
        close(m_number);
}

FileDescriptor FileDescriptor::open(const QString& path, int flags)
{
    constexpr mode_t newFile = 0666;
    return FileDescriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, newFile));
}

int FileDescriptor::release()
{
    return std::exchange(m_number, -1);
}

Failure systemFailure(int error)
{
    Failure failure(qt_error_string(error));
    failure.systemError = error;
    return failure;
}

namespace {

Failure cannot(const QString& sentence, const QString& path, const Failure& reason)
{
    Failure failure(sentence.arg(QDir::toNativeSeparators(path), reason.sentence), path);
    failure.systemError = reason.systemError;
    return failure;
}

} // namespace

Failure cannotRead(const QString& path, const Failure& reason)
{
    return cannot(QStringLiteral("Unable to read '%1': %2."), path, reason);
}

Failure cannotWrite(const QString& path, const Failure& reason)
{
    return cannot(QStringLiteral("Unable to write '%1': %2."), path, reason);
}

Result<void> readAt(int file, void* bytes, std::int64_t count, std::int64_t offset)
{
    auto* to = static_cast<char*>(bytes);
    while (count > 0) {
        const ssize_t done = pread(file, to, static_cast<std::size_t>(count), offset);
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            return systemFailure(errno);
        if (done == 0)
            return Failure(QStringLiteral("it is shorter than it was when it was opened"));
        to += done;
        count -= done;
        offset += done;
    }
    return {};
}

Result<void> writeAt(int file, const void* bytes, std::int64_t count, std::int64_t offset)
{
    const auto* from = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t done = pwrite(file, from, static_cast<std::size_t>(count), offset);
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            return systemFailure(errno);
        from += done;
        count -= done;
        offset += done;
    }
    return {};
}

Result<void> reserveRoom(int file, std::int64_t bytes)
{
    // Asked first: file systems take what there is before they find that it is not enough.
    struct stat status
    {};
    struct statvfs disk
    {};
    if (fstat(file, &status) != 0 || fstatvfs(file, &disk) != 0)
        return systemFailure(errno);
    const std::int64_t had = std::int64_t(status.st_blocks) * 512;
    if (bytes - had > static_cast<std::int64_t>(disk.f_bavail) * static_cast<std::int64_t>(disk.f_frsize))
        return systemFailure(ENOSPC);
    // Not posix_fallocate(): where the file system cannot it would write into every block.
    int error = 0;
    do
        error = fallocate(file, 0, 0, bytes) == 0 ? 0 : errno;
    while (error == EINTR);
    if (error != 0 && error != EOPNOTSUPP && error != ENOSYS)
        return systemFailure(error);
    if (error != 0 && status.st_size < bytes && ftruncate(file, bytes) != 0)
        return systemFailure(errno);
    return {};
}

Result<void> syncData(int file)
{
    if (fdatasync(file) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP)
        return {};
    return systemFailure(errno);
}

} // namespace hv
