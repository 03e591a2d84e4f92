#pragma once

#include <cstdint>

namespace img {

/// Marks a pixel without a value.
inline constexpr float NoValue = -9999.0f;

/// Of the pixels that hold a value: those equal to NoValue and those that are not a number are left out.
struct Statistics
{
    /// How many pixels hold a value.
    std::int64_t count = 0;
    /// Arithmetic mean and population standard deviation (divided by count); not a number when count is 0 or a pixel is
    /// infinite.
    double mean;
    double deviation;
    /// Smallest and largest value; NoValue when count is 0.
    float minimum = NoValue;
    float maximum = NoValue;
};

/// One pass at the speed of memory, in double precision: squares are taken around the mean of the pixels just before,
/// so a large mean costs no digits (relative error about 1e-12). Thread-safe.
Statistics statistics(const float* pixels, std::int64_t count);

} // namespace img
