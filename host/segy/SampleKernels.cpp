#include "host/segy/SampleKernels.h"

#include "host/core/Multiversion.h"

#include <algorithm>
#include <bit>
#include <limits>

#if defined(__GNUC__)
#define HV_INLINE inline __attribute__((always_inline))
#else
#define HV_INLINE inline
#endif

namespace hv::segy::kernels {

namespace {

constexpr std::uint32_t g_sign = 0x80000000U;
constexpr std::uint32_t g_fraction = 0x00ffffffU;
constexpr int g_mantissaBits = 23;
constexpr int g_bias = 127;

HV_INLINE std::uint32_t load(std::uint32_t bits, bool swap)
{
    return swap ? __builtin_bswap32(bits) : bits;
}

/// 2 to the power of `exponent`, which is that of a normal float.
HV_INLINE float powerOfTwo(int exponent)
{
    return std::bit_cast<float>(static_cast<std::uint32_t>(exponent + g_bias) << g_mantissaBits);
}

/// (-1)^sign * fraction / 2^24 * 16^(exponent - 64). The fraction is exact as a float; the scale, which reaches beyond
/// that of floats, is applied in two halves, so only the second one rounds. Exponents that give 0 or infinity for every
/// fraction are brought to where the halves are floats.
HV_INLINE float ibmToFloat(std::uint32_t bits)
{
    const int wanted = 4 * static_cast<int>((bits >> 24) & 0x7fU) - 280;
    const int exponent = std::min(std::max(wanted, -176), 152);
    const int first = exponent / 2;
    const float fraction = static_cast<float>(static_cast<std::int32_t>(bits & g_fraction));
    const float magnitude = fraction * powerOfTwo(first) * powerOfTwo(exponent - first);
    const float finite = std::min(magnitude, std::numeric_limits<float>::max());
    return std::bit_cast<float>(std::bit_cast<std::uint32_t>(finite) | (bits & g_sign));
}

HV_INLINE std::uint32_t floatToIbm(float value)
{
    const std::uint32_t sign = std::bit_cast<std::uint32_t>(value) & g_sign;
    const std::uint32_t plain = std::bit_cast<std::uint32_t>(value) & ~g_sign;
    // Numbers below the normal floats are normal ones 24 powers of two higher, six powers of 16.
    const bool isTiny = plain < (1U << g_mantissaBits);
    const float normal = std::bit_cast<float>(plain) * (isTiny ? 0x1p24F : 1.0F);
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(normal);
    const std::uint32_t exponent = bits >> g_mantissaBits;
    const std::uint32_t mantissa = (bits & 0x007fffffU) | 0x00800000U;
    const std::uint32_t sixteenth = (exponent + 133) >> 2;
    const std::uint32_t shift = 4 * sixteenth - exponent - 130; // 0 to 3
    const std::uint32_t half = (1U << shift) >> 1;
    const std::uint32_t odd = (mantissa >> shift) & 1U;
    const std::uint32_t rounded = (mantissa + (half != 0 ? half - 1 + odd : 0U)) >> shift;
    const std::uint32_t power = sixteenth - (isTiny ? 6U : 0U);
    const std::uint32_t finite = exponent == 255 ? 0x7fffffffU : (power << 24) | rounded;
    return sign | (plain == 0 ? 0U : finite);
}

} // namespace

HV_MULTIVERSION void fromIbm(const Bits32* source, float* target, std::size_t count, bool swap)
{
    if (swap)
        for (std::size_t i = 0; i < count; ++i)
            target[i] = ibmToFloat(__builtin_bswap32(source[i]));
    else
        for (std::size_t i = 0; i < count; ++i)
            target[i] = ibmToFloat(source[i]);
}

HV_MULTIVERSION void fromIeee(const Bits32* source, float* target, std::size_t count, bool swap)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = std::bit_cast<float>(load(source[i], swap));
}

HV_MULTIVERSION void fromIeee64(const Bits64* source, float* target, std::size_t count, bool swap)
{
    constexpr double largest = std::numeric_limits<float>::max();
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t bits = source[i];
        const double value = std::bit_cast<double>(swap ? __builtin_bswap64(bits) : bits);
        // In this order not-a-number stays what it is.
        target[i] = static_cast<float>(value > largest ? largest : value < -largest ? -largest : value);
    }
}

HV_MULTIVERSION void fromInt32(const Bits32* source, float* target, std::size_t count, bool swap)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = static_cast<float>(static_cast<std::int32_t>(load(source[i], swap)));
}

HV_MULTIVERSION void fromUInt32(const Bits32* source, float* target, std::size_t count, bool swap)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = static_cast<float>(load(source[i], swap));
}

HV_MULTIVERSION void fromInt16(const Bits16* source, float* target, std::size_t count, bool swap)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint16_t bits = source[i];
        target[i] = static_cast<float>(static_cast<std::int16_t>(swap ? __builtin_bswap16(bits) : bits));
    }
}

HV_MULTIVERSION void fromUInt16(const Bits16* source, float* target, std::size_t count, bool swap)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint16_t bits = source[i];
        target[i] = static_cast<float>(swap ? __builtin_bswap16(bits) : bits);
    }
}

HV_MULTIVERSION void fromInt8(const Bits8* source, float* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = static_cast<float>(static_cast<std::int8_t>(source[i]));
}

HV_MULTIVERSION void fromUInt8(const Bits8* source, float* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = static_cast<float>(source[i]);
}

HV_MULTIVERSION void toIbm(const float* source, Bits32* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = __builtin_bswap32(floatToIbm(source[i]));
}

HV_MULTIVERSION void toIeee(const float* source, Bits32* target, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = __builtin_bswap32(std::bit_cast<std::uint32_t>(source[i]));
}

} // namespace hv::segy::kernels
