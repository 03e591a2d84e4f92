#include "host/kinds/demo/SyntheticSurvey.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace demo {

namespace {

constexpr double g_degree = std::numbers::pi / 180.0;

// Bin (firstInline, firstCrossline) lies at the origin; inlines run in the direction of the azimuth (from north).
constexpr double g_originX = 456000.0;
constexpr double g_originY = 6782000.0;
constexpr double g_azimuth = 24.0 * g_degree;
constexpr double g_inlineSpacing = 25.0;
constexpr double g_crosslineSpacing = 12.5;

struct Layer
{
    const char* name;
    double time;      ///< ms, at the survey's middle
    double relief;    ///< ms, height of the fold
    double amplitude; ///< reflection coefficient of the top
};

constexpr std::array<Layer, SyntheticSurvey::layerCount> g_layers{{
    {"Seabed", 240.0, 4.0, 0.45},
    {"Top Miocene", 480.0, 12.0, 0.18},
    {"Top Eocene", 700.0, 22.0, -0.22},
    {"Base Tertiary", 930.0, 34.0, 0.35},
    {"Top Reservoir", 1120.0, 46.0, -0.30},
    {"Basement", 1370.0, 60.0, 0.50},
}};

constexpr double g_dipPerInline = 0.22; // ms
constexpr double g_channelHalfWidth = 9.0;
constexpr double g_channelDepth = 18.0; // ms
constexpr double g_wavelet = 28.0;      // Hz
constexpr double g_noise = 0.03;

/// Even numbers in [-1, 1) from a cell's coordinates; the finaliser of splitmix64 (Steele, Lea, Flood 2014).
double noise(std::uint64_t a, std::uint64_t b, std::uint64_t c)
{
    std::uint64_t z = a * 0x9E3779B97F4A7C15u + b * 0xC2B2AE3D27D4EB4Fu + c * 0x165667B19E3779F9u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    z ^= z >> 31;
    return static_cast<double>(z >> 11) / 4503599627370496.0 - 1.0;
}

/// A Ricker wavelet's value at `milliseconds` from its centre (Ricker 1953).
double ricker(double milliseconds)
{
    // Further away it is less than a float of any sample shows.
    constexpr double reach = 75.0;
    if (std::abs(milliseconds) > reach)
        return 0.0;
    const double x = std::numbers::pi * g_wavelet * milliseconds / 1000.0;
    return (1.0 - 2.0 * x * x) * std::exp(-x * x);
}

/// The layer before it was faulted.
double foldedTime(const Layer& layer, double i, double x)
{
    const double u = (i - SyntheticSurvey::firstInline) / SyntheticSurvey::inlineCount;
    const double v = (x - SyntheticSurvey::firstCrossline) / SyntheticSurvey::crosslineCount;
    const double fold = std::cos(2.0 * std::numbers::pi * (u - 0.5)) * std::cos(1.6 * std::numbers::pi * (v - 0.45));
    return layer.time - layer.relief * fold + g_dipPerInline * (u - 0.5) * SyntheticSurvey::inlineCount;
}

} // namespace

SyntheticSurvey::Position SyntheticSurvey::position(double inlineNumber, double crossline)
{
    // Crosslines count along an inline, inlines to its right.
    const double along = (crossline - firstCrossline) * g_crosslineSpacing;
    const double right = (inlineNumber - firstInline) * g_inlineSpacing;
    return {g_originX + along * std::sin(g_azimuth) + right * std::cos(g_azimuth),
            g_originY + along * std::cos(g_azimuth) - right * std::sin(g_azimuth)};
}

bool SyntheticSurvey::isLive(int inlineNumber, int crossline)
{
    const int i = inlineNumber - firstInline;
    const int x = crossline - firstCrossline;
    if (i < 0 || x < 0 || i >= inlineCount || x >= crosslineCount)
        return false;
    // A platform stood in the far corner.
    return (inlineCount - i) * 6 + (crosslineCount - x) * 5 > 300;
}

QString SyntheticSurvey::layerName(int layer)
{
    return QString::fromLatin1(g_layers[static_cast<std::size_t>(layer)].name);
}

double SyntheticSurvey::faultCrossline(double inlineNumber, double time)
{
    return firstCrossline + 120.0 + 0.25 * (inlineNumber - firstInline - inlineCount / 2.0) + 0.035 * (time - 700.0);
}

double SyntheticSurvey::faultThrow(double time)
{
    // It died out below the seabed.
    return time <= 350.0 ? 0.0 : std::min(55.0, (time - 350.0) * 0.08);
}

double SyntheticSurvey::channelCrossline(double inlineNumber)
{
    const double u = (inlineNumber - firstInline) / inlineCount;
    return firstCrossline + 55.0 + 24.0 * std::sin(2.0 * std::numbers::pi * 1.7 * u) + 20.0 * u;
}

double SyntheticSurvey::layerTime(int layer, double inlineNumber, double crossline)
{
    double time = foldedTime(g_layers[static_cast<std::size_t>(layer)], inlineNumber, crossline);
    if (layer == channelLayer) {
        const double away = (crossline - channelCrossline(inlineNumber)) / g_channelHalfWidth;
        if (std::abs(away) < 1.0)
            time += g_channelDepth * (1.0 - away * away);
    }
    if (crossline > faultCrossline(inlineNumber, time))
        time += faultThrow(time);
    return time;
}

void SyntheticSurvey::trace(int inlineNumber, int crossline, std::span<float> samples)
{
    const bool live = isLive(inlineNumber, crossline);
    std::array<double, layerCount> times{};
    std::array<double, layerCount> amplitudes{};
    for (std::size_t layer = 0; layer < g_layers.size(); ++layer) {
        times[layer] = layerTime(static_cast<int>(layer), inlineNumber, crossline);
        amplitudes[layer] = g_layers[layer].amplitude;
    }
    // Gas sand in the channel.
    if (std::abs(crossline - channelCrossline(inlineNumber)) < g_channelHalfWidth)
        amplitudes[channelLayer] *= 2.5;
    for (std::size_t sample = 0; sample < samples.size(); ++sample) {
        double amplitude = 0.0;
        for (std::size_t layer = 0; live && layer < g_layers.size(); ++layer)
            amplitude += amplitudes[layer] * ricker(static_cast<double>(sample) * sampleInterval - times[layer]);
        if (live)
            amplitude += g_noise *
                         noise(static_cast<std::uint64_t>(inlineNumber), static_cast<std::uint64_t>(crossline), sample);
        samples[sample] = static_cast<float>(amplitude);
    }
}

} // namespace demo
