#pragma once

#include <cstdint>
#include <functional>

namespace hv {

/// Bytes of memory that new data can take now without other programs being swapped out: the system's own estimate
/// where it makes one. The largest 64-bit number when the system does not tell, so that nothing is refused then.
std::int64_t availableMemory();

/// Replaces the system's answer while it lives, for tests of what happens when memory is short. GUI thread only; scopes
/// nest.
class AvailableMemoryOverride
{
public:
    explicit AvailableMemoryOverride(std::function<std::int64_t()> answer);
    ~AvailableMemoryOverride();
    AvailableMemoryOverride(const AvailableMemoryOverride&) = delete;
    AvailableMemoryOverride& operator=(const AvailableMemoryOverride&) = delete;

private:
    std::function<std::int64_t()> m_previous;
};

} // namespace hv
