#include "host/core/ArrayKernels.h"

#include "host/core/Multiversion.h"

#include <algorithm>
#include <cstring>

namespace core::kernels {

namespace {

/// Long enough for full registers, short enough that a difference early on is found at once.
constexpr std::size_t BlockSize = 1024;

// Each function has one loop without a way out, which becomes vector code; the blocks around it give the early end.
HV_MULTIVERSION bool blockDiffers(const float* a, const float* b, std::size_t count)
{
    std::uint32_t differs = 0;
    for (std::size_t i = 0; i < count; ++i)
        differs |= static_cast<std::uint32_t>(!(a[i] == b[i]));
    return differs != 0;
}

HV_MULTIVERSION bool blockDiffers(const double* a, const double* b, std::size_t count)
{
    std::uint64_t differs = 0;
    for (std::size_t i = 0; i < count; ++i)
        differs |= static_cast<std::uint64_t>(!(a[i] == b[i]));
    return differs != 0;
}

HV_MULTIVERSION bool blockHolds(const std::int32_t* values, std::size_t count, std::int32_t value)
{
    std::uint32_t found = 0;
    for (std::size_t i = 0; i < count; ++i)
        found |= static_cast<std::uint32_t>(values[i] == value);
    return found != 0;
}

HV_MULTIVERSION bool blockHolds(const float* values, std::size_t count, float value)
{
    std::uint32_t found = 0;
    for (std::size_t i = 0; i < count; ++i)
        found |= static_cast<std::uint32_t>(values[i] == value);
    return found != 0;
}

HV_MULTIVERSION bool blockHolds(const double* values, std::size_t count, double value)
{
    std::uint64_t found = 0;
    for (std::size_t i = 0; i < count; ++i)
        found |= static_cast<std::uint64_t>(values[i] == value);
    return found != 0;
}

template <typename T>
bool equalByBlocks(const T* a, const T* b, std::size_t count)
{
    for (std::size_t i = 0; i < count; i += BlockSize)
        if (blockDiffers(a + i, b + i, std::min(BlockSize, count - i)))
            return false;
    return true;
}

template <typename T>
std::size_t findByBlocks(const T* values, std::size_t count, T value)
{
    for (std::size_t i = 0; i < count; i += BlockSize) {
        const std::size_t length = std::min(BlockSize, count - i);
        if (blockHolds(values + i, length, value))
            return static_cast<std::size_t>(std::find(values + i, values + i + length, value) - values);
    }
    return count;
}

} // namespace

bool equal(const std::int32_t* a, const std::int32_t* b, std::size_t count)
{
    return count == 0 || std::memcmp(a, b, count * sizeof *a) == 0;
}

bool equal(const float* a, const float* b, std::size_t count)
{
    return equalByBlocks(a, b, count);
}

bool equal(const double* a, const double* b, std::size_t count)
{
    return equalByBlocks(a, b, count);
}

std::size_t find(const std::int32_t* values, std::size_t count, std::int32_t value)
{
    return findByBlocks(values, count, value);
}

std::size_t find(const float* values, std::size_t count, float value)
{
    return findByBlocks(values, count, value);
}

std::size_t find(const double* values, std::size_t count, double value)
{
    return findByBlocks(values, count, value);
}

} // namespace core::kernels
