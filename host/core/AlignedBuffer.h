#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace core {

/// A block of memory aligned to 64 bytes (a cache line, the widest vector register) that never throws.
/// Large blocks ask the system for huge pages: strided cuts through a cube are bound by address translation otherwise.
class AlignedBuffer
{
public:
    static constexpr std::size_t Alignment = 64;

    AlignedBuffer() = default;

    /// Contents undefined. Null when the system refuses or `bytes` is negative.
    static AlignedBuffer allocate(std::int64_t bytes);

    template <typename T>
    T* as() const
    {
        return static_cast<T*>(m_block.get());
    }
    explicit operator bool() const { return m_block != nullptr; }

private:
    struct Release
    {
        void operator()(void* block) const;
    };
    std::unique_ptr<void, Release> m_block;
};

} // namespace core
