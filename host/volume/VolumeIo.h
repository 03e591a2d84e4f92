#pragma once

#include "host/core/Result.h"

#include <QString>

#include <cstdint>

namespace hv {

/// An open file, closed with the object.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : m_number(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_number(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    ~FileDescriptor();

    /// `flags` as of open(2); close-on-exec is added, and new files may be read by all as far as
    /// the process lets them. Below 0, with errno, when it cannot be opened.
    static FileDescriptor open(const QString& path, int flags);

    explicit operator bool() const { return m_number >= 0; }
    int number() const { return m_number; }
    int release();

private:
    int m_number = -1;
};

/// Reading and writing at a place, all of it, whatever signals come. Failures are the system's reason alone, with its
/// error number.
Result<void> readAt(int file, void* bytes, std::int64_t count, std::int64_t offset);
Result<void> writeAt(int file, const void* bytes, std::int64_t count, std::int64_t offset);

/// Takes the disk's room for the first `bytes` of a file, so that writing there does not fail for want of it. On file
/// systems that cannot, the free room is asked for.
Result<void> reserveRoom(int file, std::int64_t bytes);
/// Through to the disk.
Result<void> syncData(int file);

/// The system's present error (errno).
Failure systemFailure(int error);
/// "Unable to read '%1': reason." and the like, with the error number of `reason`.
Failure cannotRead(const QString& path, const Failure& reason);
Failure cannotWrite(const QString& path, const Failure& reason);

} // namespace hv
