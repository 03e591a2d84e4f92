#include "host/img/Statistics.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

using namespace img;

namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

/// Two passes in extended precision over the pixels that hold a value.
void expectAccurate(const std::vector<float>& pixels, const char* what)
{
    long double sum = 0.0L, squares = 0.0L;
    float low = std::numeric_limits<float>::infinity(), high = -low;
    std::int64_t count = 0;
    for (const float p : pixels)
        if (!std::isnan(p) && p != NoValue) {
            sum += p;
            low = std::min(low, p);
            high = std::max(high, p);
            ++count;
        }
    const long double mean = sum / count;
    for (const float p : pixels)
        if (!std::isnan(p) && p != NoValue)
            squares += (p - mean) * (p - mean);
    const long double deviation = std::sqrt(squares / count);

    const Statistics found = statistics(pixels.data(), static_cast<std::int64_t>(pixels.size()));
    EXPECT_EQ(found.count, count) << what;
    EXPECT_EQ(found.minimum, low) << what;
    EXPECT_EQ(found.maximum, high) << what;
    EXPECT_NEAR(found.mean, double(mean), 1e-12 * std::max<double>(std::fabs(double(mean)), double(deviation))) << what;
    EXPECT_NEAR(found.deviation, double(deviation), 2e-12 * double(deviation)) << what;
}

} // namespace

TEST(Statistics, AgreeWithExtendedPrecision)
{
    std::mt19937 random(5);
    std::normal_distribution<float> normal(0.0f, 1.0f);
    std::uniform_int_distribution<int> dice(0, 9);
    for (const std::size_t size : {1u, 15u, 17u, 4095u, 4097u, 100003u}) {
        std::vector<float> plain, offset, gaps, ramp, jumps, outlier;
        for (std::size_t i = 0; i < size; ++i) {
            const float v = normal(random);
            plain.push_back(v);
            offset.push_back(1e6f + v);
            ramp.push_back(static_cast<float>(i) * 10.0f - 3e5f);
            jumps.push_back((i / 5000) % 2 ? 1e7f + v : v);
            outlier.push_back(i == 0 ? 1e7f : v);
            const int number = dice(random);
            gaps.push_back(number < 3 ? NoValue : number == 3 ? NaN : 2500.0f + v);
        }
        gaps[0] = 7.0f;
        expectAccurate(plain, "plain");
        expectAccurate(offset, "large mean");
        expectAccurate(gaps, "pixels without value");
        expectAccurate(ramp, "ramp");
        expectAccurate(jumps, "blocks with different means");
        expectAccurate(outlier, "first pixel far away");
    }
    std::vector<float> late(20000, NoValue);
    late[19999] = 3.0f;
    expectAccurate(late, "only the last pixel");
}

TEST(Statistics, SpecialImages)
{
    std::vector<float> pixels(5000, NoValue);
    pixels[4] = NaN;
    Statistics found = statistics(pixels.data(), 5000);
    EXPECT_EQ(found.count, 0);
    EXPECT_TRUE(std::isnan(found.mean) && std::isnan(found.deviation));
    EXPECT_EQ(found.minimum, NoValue);
    EXPECT_EQ(found.maximum, NoValue);

    // Only the marker itself is left out, not its neighbours.
    pixels = {std::nextafter(NoValue, 0.0f), std::nextafter(NoValue, -1e9f)};
    EXPECT_EQ(statistics(pixels.data(), 2).count, 2);

    pixels.assign(123457, 0.1f);
    found = statistics(pixels.data(), 123457);
    EXPECT_EQ(found.mean, double(0.1f));
    EXPECT_EQ(found.deviation, 0.0);

    pixels[77] = -std::numeric_limits<float>::infinity();
    found = statistics(pixels.data(), 123457);
    EXPECT_EQ(found.minimum, pixels[77]);
    EXPECT_EQ(found.maximum, 0.1f);
    EXPECT_FALSE(std::isfinite(found.mean));
    EXPECT_TRUE(std::isnan(found.deviation));
}
