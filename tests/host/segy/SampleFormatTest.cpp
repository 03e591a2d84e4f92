// Samples of every format against their definitions, computed in double precision.
#include "host/segy/SampleFormat.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace {

using hv::segy::ByteOrder;
using hv::segy::SampleFormat;

double ibmValue(std::uint32_t bits)
{
    const double fraction = (bits & 0xffffffU) / 16777216.0;
    const double magnitude = std::ldexp(fraction, 4 * (static_cast<int>(bits >> 24 & 0x7f) - 64));
    return bits >> 31 ? -magnitude : magnitude;
}

float decoded(SampleFormat format, ByteOrder order, const std::vector<unsigned char>& bytes)
{
    float value = 0;
    hv::segy::decode(format, order, reinterpret_cast<const std::byte*>(bytes.data()), &value, 1);
    return value;
}

std::uint32_t ibmBits(float value)
{
    unsigned char bytes[4];
    hv::segy::encode(SampleFormat::Ibm, &value, reinterpret_cast<std::byte*>(bytes), 1);
    return std::uint32_t(bytes[0]) << 24 | std::uint32_t(bytes[1]) << 16 | std::uint32_t(bytes[2]) << 8 | bytes[3];
}

TEST(SampleFormat, ibmNumbersHaveTheirDefinedValueWhateverTheirExponent)
{
    std::mt19937 random(7);
    std::vector<std::uint32_t> numbers{0,           0x80000000U, 0xc276a000U, 0x7fffffffU,
                                       0xffffffffU, 0x00000001U, 0x1b000001U, 0x7f000001U};
    for (int i = 0; i < 200'000; ++i)
        numbers.push_back(static_cast<std::uint32_t>(random()));
    std::vector<std::uint32_t> swapped;
    for (const std::uint32_t bits : numbers)
        swapped.push_back(__builtin_bswap32(bits));
    std::vector<float> values(numbers.size());
    hv::segy::decode(SampleFormat::Ibm, ByteOrder::Big, reinterpret_cast<const std::byte*>(swapped.data()),
                     values.data(), values.size());
    std::vector<float> again(numbers.size());
    hv::segy::decode(SampleFormat::Ibm, ByteOrder::Little, reinterpret_cast<const std::byte*>(numbers.data()),
                     again.data(), again.size());
    constexpr double largest = std::numeric_limits<float>::max();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto expected = static_cast<float>(std::clamp(ibmValue(numbers[i]), -largest, largest));
        ASSERT_EQ(values[i], expected) << std::hex << numbers[i];
        ASSERT_EQ(again[i], expected) << std::hex << numbers[i];
    }
    EXPECT_EQ(values[2], -118.625F);
}

TEST(SampleFormat, floatsBecomeTheNearestIbmNumberAndWholeOnesComeBack)
{
    EXPECT_EQ(ibmBits(-118.625F), 0xc276a000U);
    EXPECT_EQ(ibmBits(0.0F), 0U);
    EXPECT_EQ(ibmBits(std::numeric_limits<float>::infinity()), 0x7fffffffU);
    std::mt19937 random(11);
    for (int i = 0; i < 200'000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        const std::uint32_t made = ibmBits(value);
        // Half of the last hexadecimal fraction's unit, and a fraction that uses its first digit.
        const double unit = std::ldexp(1.0, 4 * (static_cast<int>(made >> 24 & 0x7f) - 64) - 24);
        ASSERT_LE(std::abs(ibmValue(made) - value), unit / 2) << value;
        ASSERT_TRUE(value == 0 || (made & 0xf00000U) != 0) << value;
    }
    for (int whole = -1'000'000; whole <= 1'000'000; whole += 997)
        ASSERT_EQ(ibmValue(ibmBits(static_cast<float>(whole))), whole);
}

TEST(SampleFormat, wholeNumbersKeepTheirSignInEitherOrder)
{
    EXPECT_EQ(decoded(SampleFormat::Int16, ByteOrder::Big, {0xff, 0x85}), -123.0F);
    EXPECT_EQ(decoded(SampleFormat::Int16, ByteOrder::Little, {0x85, 0xff}), -123.0F);
    EXPECT_EQ(decoded(SampleFormat::UInt16, ByteOrder::Big, {0xff, 0x85}), 65413.0F);
    EXPECT_EQ(decoded(SampleFormat::Int8, ByteOrder::Big, {0x85}), -123.0F);
    EXPECT_EQ(decoded(SampleFormat::UInt8, ByteOrder::Big, {0x85}), 133.0F);
    EXPECT_EQ(decoded(SampleFormat::Int32, ByteOrder::Big, {0xff, 0xff, 0xff, 0x85}), -123.0F);
    EXPECT_EQ(decoded(SampleFormat::UInt32, ByteOrder::Little, {0, 0, 0, 0x80}), 2147483648.0F);
    EXPECT_EQ(decoded(SampleFormat::Ieee, ByteOrder::Big, {0xc2, 0xed, 0x40, 0}), -118.625F);
    EXPECT_EQ(decoded(SampleFormat::Ieee64, ByteOrder::Little, {0, 0, 0, 0, 0, 0xa8, 0x5d, 0xc0}), -118.625F);
}

} // namespace
