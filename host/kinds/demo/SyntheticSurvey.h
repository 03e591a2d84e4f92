#pragma once

#include <QString>

#include <span>

/// host/kinds/demo: a made-up survey, the same on every machine, for demonstrations and tests.
namespace demo {

/// A small marine 3D survey over six layers that a normal fault cuts and a meandering channel runs through; one corner
/// was not acquired, and there is some noise. A pure function of line numbers and time: nothing is stored and nothing
/// is random, so every use sees the same earth.
///
/// Map coordinates are metres in UTM zone 31N (EPSG:32631), times are milliseconds two-way.
class SyntheticSurvey
{
public:
    static constexpr int firstInline = 1001;
    static constexpr int inlineCount = 200;
    static constexpr int firstCrossline = 5001;
    static constexpr int crosslineCount = 240;
    static constexpr int sampleCount = 400;
    static constexpr double sampleInterval = 4.0; ///< ms
    static constexpr int layerCount = 6;
    static constexpr int channelLayer = 2; ///< the layer whose top the channel cuts into

    struct Position
    {
        double x;
        double y;
    };

    static QString crsAuthority() { return QStringLiteral("EPSG"); }
    static QString crsCode() { return QStringLiteral("32631"); }

    /// Map position of a bin; fractional and outside line numbers are extrapolated.
    static Position position(double inlineNumber, double crossline);
    /// False in the corner that was not acquired and outside the survey.
    static bool isLive(int inlineNumber, int crossline);

    static QString layerName(int layer);
    /// Time of a layer's top, as it lies now: folded, thrown by the fault, cut by the channel.
    static double layerTime(int layer, double inlineNumber, double crossline);

    /// The crossline at which the fault plane meets an inline at a time. Larger crosslines lie on the hanging wall.
    static double faultCrossline(double inlineNumber, double time);
    /// How much later the hanging wall's layers lie, at that time.
    static double faultThrow(double time);
    /// The crossline of the channel's axis.
    static double channelCrossline(double inlineNumber);

    /// Amplitudes of one trace, sampleCount of them from time 0; zeros where the survey is not live.
    static void trace(int inlineNumber, int crossline, std::span<float> samples);
};

} // namespace demo
