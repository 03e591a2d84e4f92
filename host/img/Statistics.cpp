#include "host/img/Statistics.h"

#include "host/core/Multiversion.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#ifdef HV_TARGET_V4
#include <immintrin.h>
#endif

namespace img {

namespace {

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

/// Registers of `Bytes` bytes, as the compiler's vector extension has them.
template <int Bytes>
struct Register
{
    typedef float Floats __attribute__((vector_size(Bytes)));
    typedef double Doubles __attribute__((vector_size(Bytes)));
    typedef std::int32_t Integers __attribute__((vector_size(Bytes)));
};

template <typename Floats, typename Doubles>
[[gnu::always_inline]] inline void widen(const Floats& from, Doubles& to)
{
    to = __builtin_convertvector(from, Doubles);
}

#ifdef HV_TARGET_V4
/// The compiler splits this conversion into quarters when left alone. (The plain form of the intrinsic reads an
/// undefined value on purpose and is warned about.)
HV_TARGET_V4 inline void widen(const Register<32>::Floats& from, Register<64>::Doubles& to)
{
    to = _mm512_maskz_cvtps_pd(0xFF, from);
}
#endif

/// Sums of (pixel - shift) and of its square over whole groups of 32 pixels or less; returns how many pixels it took.
/// The sums have several accumulators each, which hides the latency of an addition. Without `Masked` every pixel
/// counts.
template <int Bytes, bool Masked>
[[gnu::always_inline]] inline std::int64_t accumulateGroups(const float* pixels, std::int64_t count, float shift,
                                                            Block& result)
{
    using Floats = typename Register<Bytes>::Floats;
    using Doubles = typename Register<Bytes>::Doubles;
    using Integers = typename Register<Bytes>::Integers;
    using Half = typename Register<Bytes / 2>::Floats;
    constexpr int Width = Bytes / 4;
    constexpr int Groups = Bytes == 64 ? 2 : 64 / Bytes;
    const Floats marker = Floats{} + NoValue;
    const Floats missing = Floats{} + std::numeric_limits<float>::quiet_NaN();
    const Floats replacement = Floats{} + shift;
    const Doubles origin = Doubles{} + static_cast<double>(shift);
    Doubles sum[2 * Groups] = {};
    Doubles squares[2 * Groups] = {};
    Integers counts[Groups] = {};
    Floats minimum[Groups];
    Floats maximum[Groups];
    for (int g = 0; g < Groups; ++g) {
        minimum[g] = Floats{} + result.minimum;
        maximum[g] = Floats{} + result.maximum;
    }
    std::int64_t i = 0;
    for (; i + Width * Groups <= count; i += Width * Groups) {
#pragma GCC unroll 4
        for (int g = 0; g < Groups; ++g) {
            Floats value;
            std::memcpy(&value, pixels + i + Width * g, Bytes);
            // One kind of missing pixel: a not-a-number loses every comparison with an extreme, and the shift in its
            // place adds nothing to the sums.
            if constexpr (Masked)
                value = value == marker ? missing : value;
            minimum[g] = value < minimum[g] ? value : minimum[g];
            maximum[g] = value > maximum[g] ? value : maximum[g];
            if constexpr (Masked) {
                const Integers valued = value == value;
                counts[g] -= valued;
                value = valued ? value : replacement;
            }
            Half low, high;
            std::memcpy(&low, &value, Bytes / 2);
            std::memcpy(&high, reinterpret_cast<const char*>(&value) + Bytes / 2, Bytes / 2);
            Doubles first, second;
            widen(low, first);
            widen(high, second);
            first -= origin;
            second -= origin;
            sum[2 * g] += first;
            squares[2 * g] += first * first;
            sum[2 * g + 1] += second;
            squares[2 * g + 1] += second * second;
        }
    }
    if constexpr (!Masked)
        result.count += i;
    for (int g = 0; g < Groups; ++g)
        for (int lane = 0; lane < Width; ++lane) {
            result.sum += sum[2 * g + lane % 2][lane / 2];
            result.squares += squares[2 * g + lane % 2][lane / 2];
            result.count += counts[g][lane];
            result.minimum = std::min(result.minimum, minimum[g][lane]);
            result.maximum = std::max(result.maximum, maximum[g][lane]);
        }
    return i;
}

template <int Bytes>
[[gnu::always_inline]] inline std::int64_t accumulateEither(const float* pixels, std::int64_t count, float shift,
                                                            bool masked, Block& result)
{
    return masked ? accumulateGroups<Bytes, true>(pixels, count, shift, result)
                  : accumulateGroups<Bytes, false>(pixels, count, shift, result);
}

HV_TARGET_DEFAULT std::int64_t accumulate(const float* pixels, std::int64_t count, float shift, bool masked,
                                          Block& result)
{
    return accumulateEither<16>(pixels, count, shift, masked, result);
}

#ifdef HV_TARGET_V4
HV_TARGET_V3 std::int64_t accumulate(const float* pixels, std::int64_t count, float shift, bool masked, Block& result)
{
    return accumulateEither<32>(pixels, count, shift, masked, result);
}

HV_TARGET_V4 std::int64_t accumulate(const float* pixels, std::int64_t count, float shift, bool masked, Block& result)
{
    return accumulateEither<64>(pixels, count, shift, masked, result);
}
#endif

/// Walks over pixels block by block. Masks are skipped as long as they are not needed: a block without them that holds
/// the marker shows it in its minimum, and a not-a-number in its sum; it is then taken once more, from the cache.
class BlockReader
{
public:
    Block read(const float* pixels, std::int64_t count, float shift)
    {
        Block block = m_masked ? masked(pixels, count, shift) : Block();
        if (!m_masked) {
            const std::int64_t done = accumulate(pixels, count, shift, false, block);
            if (done < count || !std::isfinite(block.sum) || block.minimum <= NoValue)
                block = masked(pixels, count, shift);
        }
        // The neighbours of a block are like it, mostly.
        m_masked = block.count < count || block.minimum <= NoValue;
        return block;
    }

private:
    static Block masked(const float* pixels, std::int64_t count, float shift)
    {
        Block block;
        const std::int64_t done = accumulate(pixels, count, shift, true, block);
        // The rest as a group of its own, filled up with pixels that do not count.
        constexpr std::int64_t LargestGroup = 32;
        if (done < count) {
            float rest[LargestGroup];
            std::fill_n(rest, LargestGroup, NoValue);
            std::copy(pixels + done, pixels + count, rest);
            accumulate(rest, LargestGroup, shift, true, block);
        }
        return block;
    }

    bool m_masked = false;
};

/// Mean of the first block that has one, to start with.
float firstShift(const float* pixels, std::int64_t count)
{
    BlockReader reader;
    for (std::int64_t i = 0; i < count; i += BlockSize) {
        const Block block = reader.read(pixels + i, std::min(BlockSize, count - i), 0.0f);
        if (block.count > 0)
            return static_cast<float>(block.sum / static_cast<double>(block.count));
    }
    return 0.0f;
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
    float shift = firstShift(pixels, count);
    if (!std::isfinite(shift))
        shift = 0.0f;
    float minimum = std::numeric_limits<float>::infinity();
    float maximum = -minimum;
    BlockReader reader;
    for (std::int64_t i = 0; i < count; i += BlockSize) {
        const Block block = reader.read(pixels + i, std::min(BlockSize, count - i), shift);
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
            shift = static_cast<float>(blockMean);
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
