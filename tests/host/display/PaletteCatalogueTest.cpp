#include "host/display/PaletteCatalogue.h"

#include <algorithm>
#include <cstdlib>

using namespace display;

namespace {

int difference(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

int largestDifference(const ColorBar& a, const ColorBar& b)
{
    int largest = 0;
    for (std::size_t i = 0; i < a.colors().size(); ++i)
        largest = std::max(largest, difference(a.colors()[i], b.colors()[i]));
    return largest;
}

double lightnessAt(const ColorBar& bar, int entry)
{
    return lightness(bar.colors()[static_cast<std::size_t>(entry)]);
}

} // namespace

TEST(PaletteCatalogue, NoTwoPalettesLookAlike)
{
    const auto& palettes = PaletteCatalogue::instance().palettes();
    ASSERT_EQ(palettes.size(), 60U);
    for (auto a = palettes.begin(); a != palettes.end(); ++a) {
        for (auto b = a + 1; b != palettes.end(); ++b)
            EXPECT_GE(largestDifference(a->colorBar, b->colorBar), 48)
                << qPrintable(a->identifier) << " and " << qPrintable(b->identifier);
    }
}

TEST(PaletteCatalogue, PalettesSuitTheirKind)
{
    int categories = 0;
    for (const auto& [identifier, kind, bar] : PaletteCatalogue::instance().palettes()) {
        SCOPED_TRACE(qPrintable(identifier));
        EXPECT_EQ(bar.name(), identifier);
        const auto& colors = bar.colors();
        EXPECT_TRUE(std::all_of(colors.begin(), colors.end(), [](QRgb color) { return qAlpha(color) == 255; }));
        int largestStep = 0;
        for (std::size_t i = 1; i < colors.size(); ++i)
            largestStep = std::max(largestStep, difference(colors[i - 1], colors[i]));
        switch (kind) {
        case PaletteKind::Categorical:
            EXPECT_GE(largestStep, 40);
            ++categories;
            break;
        case PaletteKind::Cyclic:
            EXPECT_EQ(colors.front(), colors.back());
            EXPECT_LE(largestStep, 12);
            break;
        case PaletteKind::Diverging: {
            const QColor centre = QColor::fromRgb(colors[127]);
            EXPECT_LE(difference(colors[127], colors[128]), 6);
            EXPECT_LE(std::max({centre.red(), centre.green(), centre.blue()}) -
                          std::min({centre.red(), centre.green(), centre.blue()}),
                      40);
            const double low = lightnessAt(bar, 64) - lightnessAt(bar, 127);
            const double high = lightnessAt(bar, 191) - lightnessAt(bar, 127);
            EXPECT_GT(low * high, 0);
            EXPECT_GT(std::min(std::abs(low), std::abs(high)), 15);
            EXPECT_GT(difference(colors[32], colors[223]), 90);
            break;
        }
        case PaletteKind::Sequential:
            EXPECT_LE(largestStep, 16);
            EXPECT_GE(difference(colors.front(), colors.back()), 40);
            break;
        }
    }
    EXPECT_EQ(categories, 8);
}

TEST(PaletteCatalogue, KnownColors)
{
    const auto& catalogue = PaletteCatalogue::instance();
    const ColorBar& grey = catalogue.find(QStringLiteral("GREY_SCALE"))->colorBar;
    for (int entry = 0; entry < ColorBar::Count; ++entry)
        EXPECT_EQ(grey.colors()[static_cast<std::size_t>(entry)], qRgb(entry, entry, entry));
    const ColorBar& viridis = catalogue.find(QStringLiteral("VIRIDIS"))->colorBar;
    EXPECT_EQ(viridis.colors()[0], qRgb(0x44, 0x01, 0x54));
    EXPECT_EQ(viridis.colors()[128], qRgb(0x21, 0x91, 0x8c));
    EXPECT_EQ(viridis.colors()[255], qRgb(0xfd, 0xe7, 0x25));
    // Rounding to bytes costs a little of the even rise.
    for (int entry = 2; entry < ColorBar::Count; ++entry)
        EXPECT_GT(lightnessAt(viridis, entry), lightnessAt(viridis, entry - 2)) << entry;
    for (const char* all : {"256_COLORS", "RANDOM"}) {
        ColorBar::Colors colors = catalogue.find(QString::fromLatin1(all))->colorBar.colors();
        std::sort(colors.begin(), colors.end());
        EXPECT_EQ(std::adjacent_find(colors.begin(), colors.end()), colors.end()) << all;
    }
}

TEST(PaletteCatalogue, Types)
{
    const auto& catalogue = PaletteCatalogue::instance();
    EXPECT_EQ(catalogue.find(ColorBarType::Rainbow)->identifier, QStringLiteral("RAINBOW"));
    EXPECT_EQ(catalogue.find(ColorBarType::Curvature)->identifier, QStringLiteral("CURVATURE"));
    EXPECT_EQ(catalogue.find(ColorBarType::GreenYellowRed)->identifier, QStringLiteral("GREEN"));
    EXPECT_EQ(catalogue.find(ColorBarType::AI)->identifier, QStringLiteral("VELOCITY"));
    EXPECT_EQ(catalogue.find(ColorBarType::Colors256)->identifier, QStringLiteral("256_COLORS"));
    int found = 0;
    for (int number = -1; number < 70; ++number)
        found += catalogue.find(static_cast<ColorBarType>(number)) ? 1 : 0;
    EXPECT_EQ(found, 56);
    for (const int number : {7, 42, 44, 59})
        EXPECT_EQ(catalogue.find(static_cast<ColorBarType>(number)), nullptr) << number;
}
