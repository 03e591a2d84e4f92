#include "host/img/Statistics.h"

#include "host/core/Multiversion.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace img {

namespace {

/// Independent accumulators: four registers of doubles hide the latency of an addition.
constexpr int Lanes = 16;
/// Pixels between two merges: the merge costs nothing then, and a block lies in the first-level cache.
constexpr std::int64_t BlockSize = 4096;

struct Block
{
    double sum = 0.0;
    double squares = 0.0;
    std::int64_t count = 0;
    float minimum = std::numeric_limits<float>::infinity();
    float maximum = -std::numeric_limits<float>::infinity();
};

/// Sums of (pixel - shift) and of its square.
HV_MULTIVERSION void accumulate(const float* pixels, std::int64_t count, double shift, Block& result)
{
    double sum[Lanes] = {};
    double squares[Lanes] = {};
    std::int32_t counts[Lanes] = {};
    float minimum[Lanes];
    float maximum[Lanes];
    std::fill_n(minimum, Lanes, result.minimum);
    std::fill_n(maximum, Lanes, result.maximum);
    const auto take = [&](int lane, float value) __attribute__((always_inline))
    {
        const bool valued = (value == value) & (value != NoValue);
        const double difference = valued ? static_cast<double>(value) - shift : 0.0;
        sum[lane] += difference;
        squares[lane] += difference * difference;
        counts[lane] += valued;
        const float low = valued ? value : minimum[lane];
        const float high = valued ? value : maximum[lane];
        minimum[lane] = low < minimum[lane] ? low : minimum[lane];
        maximum[lane] = high > maximum[lane] ? high : maximum[lane];
    };
    std::int64_t i = 0;
    for (; i + Lanes <= count; i += Lanes)
        for (int lane = 0; lane < Lanes; ++lane)
            take(lane, pixels[i + lane]);
    for (int lane = 0; i < count; ++i, ++lane)
        take(lane, pixels[i]);
    for (int lane = 0; lane < Lanes; ++lane) {
        result.sum += sum[lane];
        result.squares += squares[lane];
        result.count += counts[lane];
        result.minimum = std::min(result.minimum, minimum[lane]);
        result.maximum = std::max(result.maximum, maximum[lane]);
    }
}

/// Mean of the first block that has one, to start with.
double firstShift(const float* pixels, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; i += BlockSize) {
        Block block;
        accumulate(pixels + i, std::min(BlockSize, count - i), 0.0, block);
        if (block.count > 0)
            return block.sum / static_cast<double>(block.count);
    }
    return 0.0;
}

} // namespace

// Blocks are merged as in Chan, Golub, LeVeque: Updating formulae and a pairwise algorithm for computing sample
// variances (1979). A block whose mean is far from the shift (the mean of the block before) loses digits only in
// proportion to the true variance that this very distance adds.
Statistics statistics(const float* pixels, std::int64_t count)
{
    Statistics result;
    double mean = 0.0;
    double squares = 0.0;
    double shift = firstShift(pixels, count);
    if (!std::isfinite(shift))
        shift = 0.0;
    float minimum = std::numeric_limits<float>::infinity();
    float maximum = -minimum;
    for (std::int64_t i = 0; i < count; i += BlockSize) {
        Block block;
        accumulate(pixels + i, std::min(BlockSize, count - i), shift, block);
        if (block.count == 0)
            continue;
        const auto blockCount = static_cast<double>(block.count);
        const auto formerCount = static_cast<double>(result.count);
        const double blockMean = shift + block.sum / blockCount;
        const double distance = blockMean - mean;
        result.count += block.count;
        const auto total = static_cast<double>(result.count);
        mean += distance * (blockCount / total);
        squares += block.squares - block.sum * (block.sum / blockCount) +
                   distance * distance * (formerCount * blockCount / total);
        minimum = std::min(minimum, block.minimum);
        maximum = std::max(maximum, block.maximum);
        if (std::isfinite(blockMean))
            shift = blockMean;
    }
    if (result.count == 0) {
        result.mean = result.deviation = std::numeric_limits<double>::quiet_NaN();
        return result;
    }
    result.mean = mean;
    // Rounding can leave a constant image a hair below zero.
    result.deviation = squares < 0.0 ? 0.0 : std::sqrt(squares / static_cast<double>(result.count));
    result.minimum = minimum;
    result.maximum = maximum;
    return result;
}

} // namespace img
