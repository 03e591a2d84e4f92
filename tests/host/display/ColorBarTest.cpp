#include "host/display/ColorBar.h"

#include <cmath>
#include <limits>

using namespace display;

namespace {

constexpr QRgb g_red = qRgb(255, 0, 0);
constexpr QRgb g_green = qRgb(0, 255, 0);
constexpr QRgb g_blue = qRgb(0, 0, 255);

bool isNear(QRgb color, int red, int green, int blue, int tolerance = 2)
{
    return std::abs(qRed(color) - red) <= tolerance && std::abs(qGreen(color) - green) <= tolerance &&
           std::abs(qBlue(color) - blue) <= tolerance;
}

} // namespace

TEST(ColorSpace, WaysBetweenTwoColors)
{
    EXPECT_EQ(mix(g_red, g_green, 0.5, ColorSpace::RGB), qRgb(128, 128, 0));
    EXPECT_EQ(mix(g_red, g_blue, 0.5, ColorSpace::HSV), qRgb(255, 0, 255));
    EXPECT_EQ(mix(g_blue, g_red, 0.5, ColorSpace::HSVUnwrapped), g_green);
    EXPECT_EQ(mix(g_blue, g_red, 0.999, ColorSpace::Step), g_blue);
    // A grey has no hue: the way stays red.
    EXPECT_TRUE(isNear(mix(g_red, qRgb(255, 255, 255), 0.5, ColorSpace::HSV), 255, 128, 128));
    // L* = 50 is the grey 119, the middle between black and white to the eye.
    EXPECT_TRUE(isNear(mix(qRgb(0, 0, 0), qRgb(255, 255, 255), 0.5, ColorSpace::Lab), 119, 119, 119, 1));
    // The published ends of the "cool to warm" map and its middle.
    EXPECT_TRUE(isNear(mix(qRgb(59, 76, 192), qRgb(180, 4, 38), 0.5, ColorSpace::Diverging), 221, 221, 221));
    EXPECT_TRUE(isNear(mix(qRgb(59, 76, 192), qRgb(180, 4, 38), 0.25, ColorSpace::Diverging), 141, 176, 254, 3));
    EXPECT_EQ(mix(qRgba(1, 2, 3, 0), qRgba(1, 2, 3, 200), 0.5, ColorSpace::Lab), qRgba(1, 2, 3, 100));
}

TEST(ColorBar, ValuesFindTheirColor)
{
    ColorBar bar;
    ASSERT_TRUE(bar.setRange(-100, 100));
    EXPECT_EQ(bar.colorOf(-100), qRgb(0, 0, 0));
    EXPECT_EQ(bar.colorOf(100), qRgb(255, 255, 255));
    EXPECT_EQ(bar.colorOf(0), qRgb(128, 128, 128));
    EXPECT_EQ(bar.colorOf(-101), qRgb(0, 0, 0));
    bar.setBelowColor(g_blue);
    bar.setAboveColor(g_red);
    bar.setNoValueColor(g_green);
    EXPECT_EQ(bar.colorOf(-101), g_blue);
    EXPECT_EQ(bar.colorOf(std::numeric_limits<double>::infinity()), g_red);
    EXPECT_EQ(bar.colorOf(std::nan("")), g_green);
    EXPECT_EQ(bar.colorOf(-9999), g_green);
    const ColorBar before = bar;
    for (const double maximum : {-100.0, -200.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(bar.setRange(-100, maximum)) << maximum;
    EXPECT_FALSE(bar.setRange(-1.5e308, 1.5e308));
    EXPECT_EQ(bar, before);
}

TEST(ColorBar, PointsAndBands)
{
    ColorBar bar;
    ASSERT_TRUE(bar.setPoints({{0, g_red}, {0.5, g_red}, {0.5, g_blue}, {1, g_green}}));
    EXPECT_EQ(bar.colors()[127], g_red);
    EXPECT_TRUE(isNear(bar.colors()[128], 0, 1, 254));
    EXPECT_EQ(bar.colors()[255], g_green);
    const ColorBar before = bar;
    EXPECT_FALSE(bar.setPoints({{0, g_red}}));
    EXPECT_FALSE(bar.setPoints({{0, g_red}, {0.7, g_red}, {0.6, g_red}, {1, g_red}}));
    EXPECT_FALSE(bar.setPoints({{0.1, g_red}, {1, g_red}}));
    EXPECT_FALSE(bar.setBands({}));
    EXPECT_FALSE(bar.setBands(QVector<QRgb>(257, g_red)));
    EXPECT_EQ(bar, before);

    ASSERT_TRUE(bar.setBands({g_red, g_green, g_blue}));
    EXPECT_EQ(std::count(bar.colors().begin(), bar.colors().end(), g_green), 85);
    QVector<QRgb> all;
    for (int i = 0; i < ColorBar::Count; ++i)
        all.append(qRgb(i, 255 - i, i / 2));
    ASSERT_TRUE(bar.setBands(all));
    EXPECT_TRUE(std::equal(all.begin(), all.end(), bar.colors().begin()));
}

TEST(ColorBar, InterpolateAndStretch)
{
    ColorBar bar;
    bar.setColor(10, g_red);
    bar.setColor(20, g_blue);
    EXPECT_TRUE(bar.points().isEmpty());
    ASSERT_TRUE(bar.setBounds(10, 20));
    bar.interpolate();
    EXPECT_EQ(bar.colors()[9], qRgb(9, 9, 9));
    EXPECT_EQ(bar.colors()[10], g_red);
    EXPECT_EQ(bar.colors()[15], qRgb(128, 0, 128));
    EXPECT_EQ(bar.colors()[20], g_blue);
    EXPECT_EQ(bar.colors()[21], qRgb(21, 21, 21));
    const ColorBar before = bar;
    for (const auto& [first, last] : {std::pair(-1, 5), {5, 5}, {6, 5}, {5, 256}}) {
        EXPECT_FALSE(bar.interpolate(first, last));
        EXPECT_FALSE(bar.stretch(first, last));
        EXPECT_FALSE(bar.setBounds(first, last));
    }
    EXPECT_EQ(bar, before);

    ColorBar blended = bar;
    ASSERT_TRUE(bar.stretch(10, 20));
    for (const QRgb color : bar.colors())
        EXPECT_NE(std::find(before.colors().begin() + 10, before.colors().begin() + 21, color),
                  before.colors().begin() + 21);
    EXPECT_EQ(bar.colors()[0], g_red);
    EXPECT_EQ(bar.colors()[255], g_blue);
    ASSERT_TRUE(blended.stretch(10, 20, true));
    EXPECT_TRUE(isNear(blended.colors()[64], 191, 0, 64));
    ASSERT_TRUE(blended.stretch(0, 255, true));
    EXPECT_EQ(blended.colors()[255], g_blue);
}
