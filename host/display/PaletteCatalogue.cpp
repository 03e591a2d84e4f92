#include "host/display/PaletteCatalogue.h"

#include "host/display/PaletteRecipes.h"
#include "host/display/ViridisTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace display {

namespace {

QRgb opaque(std::uint32_t color)
{
    return color | 0xff000000U;
}

/// Hues a golden angle apart, so that no two neighbours are alike; the same in every run and on every machine.
ColorBar::Colors randomColors()
{
    ColorBar::Colors colors;
    for (std::size_t i = 0; i < colors.size(); ++i)
        colors[i] = fromHsv(std::fmod(static_cast<double>(i) * 137.50776405, 360),
                            0.45 + 0.18 * static_cast<double>(i % 4), 1 - 0.16 * static_cast<double>(i / 4 % 4));
    return colors;
}

/// Every combination of 8 reds, 8 greens and 4 blues.
ColorBar::Colors colorCube()
{
    ColorBar::Colors colors;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const int n = static_cast<int>(i);
        colors[i] = qRgb((n >> 5) * 255 / 7, (n >> 2 & 7) * 255 / 7, (n & 3) * 255 / 3);
    }
    return colors;
}

ColorBar::Colors viridis()
{
    ColorBar::Colors colors;
    std::transform(g_viridis.begin(), g_viridis.end(), colors.begin(), opaque);
    return colors;
}

ColorBar cook(const PaletteRecipe& recipe)
{
    ColorBar bar;
    const QString identifier = QString::fromLatin1(recipe.identifier);
    if (recipe.kind == PaletteKind::Categorical && !recipe.stops.empty()) {
        QVector<QRgb> bands;
        for (const PaletteRecipe::Stop& stop : recipe.stops)
            bands.append(opaque(stop.color));
        bar.setBands(bands);
    } else if (!recipe.stops.empty()) {
        QVector<ColorPoint> points;
        for (const PaletteRecipe::Stop& stop : recipe.stops)
            points.append({stop.percent / 100, opaque(stop.color)});
        bar.setPoints(points);
    } else if (identifier == QLatin1String("RANDOM")) {
        bar.setColors(randomColors());
    } else if (identifier == QLatin1String("256_COLORS")) {
        bar.setColors(colorCube());
    } else {
        bar.setColors(viridis());
    }
    bar.setName(identifier);
    return bar;
}

using TypeEntry = std::pair<ColorBarType, const char*>;

constexpr std::array g_types{
    TypeEntry{ColorBarType::GreyScale, "GREY_SCALE"},
    TypeEntry{ColorBarType::RedWhiteBlack, "RED_WHITE_BLACK"},
    TypeEntry{ColorBarType::RedWhiteBlack_2, "RED_WHITE_BLACK_2"},
    TypeEntry{ColorBarType::RedWhiteBlue, "RED_WHITE_BLUE"},
    TypeEntry{ColorBarType::Seismic, "SEISMIC"},
    TypeEntry{ColorBarType::Seismic_2, "SEISMIC_2"},
    TypeEntry{ColorBarType::Seismic_3, "SEISMIC_3"},
    TypeEntry{ColorBarType::Rainbow, "RAINBOW"},
    TypeEntry{ColorBarType::GeoModel, "GEOMODEL"},
    TypeEntry{ColorBarType::Red, "RED"},
    TypeEntry{ColorBarType::Green, "GREEN"},
    TypeEntry{ColorBarType::Blue, "BLUE"},
    TypeEntry{ColorBarType::Horizon, "HORIZON"},
    TypeEntry{ColorBarType::Thinning, "THINNING"},
    TypeEntry{ColorBarType::AI, "VELOCITY"},
    TypeEntry{ColorBarType::Curvature, "CURVATURE"},
    TypeEntry{ColorBarType::Envelope, "ENVELOPE"},
    TypeEntry{ColorBarType::Energy, "ENERGY"},
    TypeEntry{ColorBarType::Gradient, "GRADIENT"},
    TypeEntry{ColorBarType::Velocity, "VELOCITY"},
    TypeEntry{ColorBarType::Density, "DENSITY"},
    TypeEntry{ColorBarType::Azimuth, "AZIMUTH"},
    TypeEntry{ColorBarType::Porosity, "POROSITY"},
    TypeEntry{ColorBarType::Sand, "SAND"},
    TypeEntry{ColorBarType::Shale, "SHALE"},
    TypeEntry{ColorBarType::Dip, "DIP"},
    TypeEntry{ColorBarType::Throw, "THROW"},
    TypeEntry{ColorBarType::Phase, "PHASE"},
    TypeEntry{ColorBarType::Frequency, "FREQUENCY"},
    TypeEntry{ColorBarType::GreyBlue, "GREY_BLUE"},
    TypeEntry{ColorBarType::Cyan, "CYAN"},
    TypeEntry{ColorBarType::Magenta, "MAGENTA"},
    TypeEntry{ColorBarType::Yellow, "YELLOW"},
    TypeEntry{ColorBarType::BlueWhiteRed, "BLUE_WHITE_RED"},
    TypeEntry{ColorBarType::DipBrown, "DIP_BROWN"},
    TypeEntry{ColorBarType::GeoModelRainbow, "GEOMODEL_RAINBOW"},
    TypeEntry{ColorBarType::GeoModelCold, "GEOMODEL_COLD"},
    TypeEntry{ColorBarType::GeoModelDark, "GEOMODEL_DARK"},
    TypeEntry{ColorBarType::GeoModelWarm, "GEOMODEL_WARM"},
    TypeEntry{ColorBarType::SandProbability, "SAND_PROBABILITY"},
    TypeEntry{ColorBarType::AvoContrast, "AVO_CONTRAST"},
    TypeEntry{ColorBarType::BluePurpleYellow, "BLUE_PURPLE_YELLOW"},
    TypeEntry{ColorBarType::CoarseExtraction, "COARSE_EXTRACTION"},
    TypeEntry{ColorBarType::Surface, "SURFACE"},
    TypeEntry{ColorBarType::DipAzimuth, "DIP_AZIMUTH"},
    TypeEntry{ColorBarType::Elevation, "ELEVATION"},
    TypeEntry{ColorBarType::ReflectionStrength, "REFLECTION_STRENGTH"},
    TypeEntry{ColorBarType::Rotary, "ROTARY"},
    TypeEntry{ColorBarType::Spectrum, "SPECTRUM"},
    TypeEntry{ColorBarType::Structural, "STRUCTURAL"},
    TypeEntry{ColorBarType::Tropic, "TROPIC"},
    TypeEntry{ColorBarType::Variance, "VARIANCE"},
    TypeEntry{ColorBarType::Velocity2, "VELOCITY_2"},
    TypeEntry{ColorBarType::WhiteBlueGreen, "WHITE_BLUE_GREEN"},
    TypeEntry{ColorBarType::Channels, "CHANNELS"},
    TypeEntry{ColorBarType::Colors256, "256_COLORS"},
};

} // namespace

PaletteCatalogue::PaletteCatalogue()
{
    for (const PaletteRecipe& recipe : paletteRecipes()) {
        ColorBar bar = cook(recipe);
        m_palettes.push_back({bar.name(), recipe.kind, bar});
    }
}

const PaletteCatalogue& PaletteCatalogue::instance()
{
    static const PaletteCatalogue catalogue;
    return catalogue;
}

QStringList PaletteCatalogue::identifiers() const
{
    QStringList all;
    for (const Palette& palette : m_palettes)
        all.append(palette.identifier);
    return all;
}

const PaletteCatalogue::Palette* PaletteCatalogue::find(const QString& identifier) const
{
    const auto found = std::find_if(m_palettes.begin(), m_palettes.end(),
                                    [&](const Palette& palette) { return palette.identifier == identifier; });
    return found == m_palettes.end() ? nullptr : &*found;
}

const PaletteCatalogue::Palette* PaletteCatalogue::find(ColorBarType type) const
{
    const auto* const entry =
        std::find_if(g_types.begin(), g_types.end(), [type](const TypeEntry& each) { return each.first == type; });
    return entry == g_types.end() ? nullptr : find(QString::fromLatin1(entry->second));
}

} // namespace display
