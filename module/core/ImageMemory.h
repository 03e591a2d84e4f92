#pragma once

#include "host/services/HVMemory.h"

#include <cstdint>
#include <limits>

/// Whether there is memory for an image of 32-bit pixels. Extents are at least 1.
namespace python {

/// What Image2d asks for: the product wraps at 32 bits, so sizes of 2 GiB and more may pass this first test. They meet
/// imageBytes() before anything is allocated.
inline std::int64_t wrappedImageBytes(int width, int height)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(width) * static_cast<std::uint32_t>(height) *
                                     sizeof(float));
}

/// The true size; the largest 64-bit number when it is even larger.
inline std::int64_t imageBytes(int width, int height, int length = 1)
{
    std::int64_t bytes = std::int64_t(width) * height;
    if (__builtin_mul_overflow(bytes, length, &bytes) ||
        __builtin_mul_overflow(bytes, static_cast<std::int64_t>(sizeof(float)), &bytes))
        return std::numeric_limits<std::int64_t>::max();
    return bytes;
}

/// `freed` is what the operation gives back: counted against the available memory, as old and new pixels exist at the
/// same time while an image is resized.
inline bool isMemoryAvailable(std::int64_t bytes, std::int64_t freed = 0)
{
    return bytes <= hv::availableMemory() - freed;
}

/// The same for images made from others. Asking takes the system longer than it takes to copy a frame, so small ones
/// are left to the allocation itself.
inline bool isMemoryAvailableForCopy(std::int64_t bytes)
{
    constexpr std::int64_t Small = 16 << 20;
    return bytes <= Small || isMemoryAvailable(bytes);
}

} // namespace python
