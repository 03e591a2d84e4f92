#pragma once

#include "host/core/Result.h"

#include <atomic>
#include <cstddef>
#include <memory>

namespace hv {

/// A file in memory, to be read. What the file loses while it is mapped (somebody truncates it, the disk fails) reads
/// as not-a-number from then on, and the mapping is damaged: nobody who reads it, knowingly or through a view of
/// another library, is ended by a signal. Whoever can report an error asks isDamaged() after reading.
///
/// The signal SIGBUS is taken for this once in the life of the process; what is not about a mapping goes to whoever had
/// it before. Any thread.
class FileMapping
{
public:
    /// The first `bytes` of an open file, which may be closed afterwards. A failure is the reason alone.
    static Result<std::shared_ptr<const FileMapping>> map(int descriptor, std::size_t bytes);
    ~FileMapping();
    FileMapping(const FileMapping&) = delete;
    FileMapping& operator=(const FileMapping&) = delete;

    const std::byte* data() const { return m_data; }
    std::size_t size() const { return m_size; }
    bool isDamaged() const;
    /// Whether all of it can be read without waiting for the disk.
    bool isInMemory(std::size_t offset, std::size_t bytes) const;

private:
    FileMapping() = default;

    std::byte* m_data = nullptr;
    std::size_t m_size = 0;
    struct Watched* m_watched = nullptr;
};

} // namespace hv
