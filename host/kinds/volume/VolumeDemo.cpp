#include "host/georef/Crs.h"
#include "host/kinds/demo/SyntheticSurvey.h"
#include "host/kinds/volume/VolumeKind.h"
#include "host/volume/VolumeWriter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <thread>

namespace hv {

namespace {

using Survey = demo::SyntheticSurvey;

using Trace = std::vector<float>;

/// The envelope of a trace, from its quadrature: the coefficients of Hilbert's transform, 2 / (pi n) of odd distances n
/// (Taner, Koehler, Sheriff 1979), to a distance at which a wavelet has ended.
void toEnvelope(Trace& trace)
{
    constexpr int reach = 31;
    const int count = static_cast<int>(trace.size());
    Trace envelope(trace.size());
    for (int k = 0; k < count; ++k) {
        double quadrature = 0.0;
        for (int n = 1; n <= reach; n += 2) {
            const double before = k >= n ? trace[static_cast<std::size_t>(k - n)] : 0.0;
            const double after = k + n < count ? trace[static_cast<std::size_t>(k + n)] : 0.0;
            quadrature += (before - after) / n;
        }
        quadrature *= 2.0 / std::numbers::pi;
        envelope[static_cast<std::size_t>(k)] =
            static_cast<float>(std::hypot(trace[static_cast<std::size_t>(k)], quadrature));
    }
    trace.swap(envelope);
}

/// The traces of one inline, one after the other.
void makeLine(int inlineIndex, bool isEnvelope, float noValue, float* out)
{
    Trace trace(Survey::sampleCount);
    for (int x = 0; x < Survey::crosslineCount; ++x) {
        const int inlineNumber = Survey::firstInline + inlineIndex;
        const int crossline = Survey::firstCrossline + x;
        if (Survey::isLive(inlineNumber, crossline)) {
            Survey::trace(inlineNumber, crossline, trace);
            if (isEnvelope)
                toEnvelope(trace);
        } else {
            std::fill(trace.begin(), trace.end(), noValue);
        }
        out = std::copy(trace.begin(), trace.end(), out);
    }
}

VolumeHeader surveyHeader(const QString& samples)
{
    constexpr double depth = (Survey::sampleCount - 1) * Survey::sampleInterval;
    constexpr int lastInline = Survey::firstInline + Survey::inlineCount - 1;
    constexpr int lastCrossline = Survey::firstCrossline + Survey::crosslineCount - 1;
    VolumeHeader header;
    header.space = georef::BlocSpace(Survey::crosslineCount, Survey::inlineCount, Survey::sampleCount);
    // The survey has extents and bins of some size: neither is refused.
    (void)header.space.setSurveySpace(Survey::firstCrossline, lastCrossline, Survey::firstInline, lastInline, 0.0,
                                      depth);
    const auto world = [](double inlineNumber, double crossline, double z) {
        const auto [x, y] = Survey::position(inlineNumber, crossline);
        return core::vec3{x, y, z};
    };
    (void)header.space.setWorldSpace(
        world(Survey::firstInline, Survey::firstCrossline, 0.0), world(Survey::firstInline, lastCrossline, 0.0),
        world(lastInline, Survey::firstCrossline, 0.0), world(Survey::firstInline, Survey::firstCrossline, depth));
    header.crs = georef::orNull(georef::Crs::fromAuthority(Survey::crsAuthority(), Survey::crsCode())).toWkt();
    header.samples = samples;
    // The same in every run.
    header.history.push_back({QDateTime({2026, 1, 1}, {0, 0}, Qt::UTC), QObject::tr("Made for demonstration")});
    return header;
}

Result<void> makeVolume(const QString& path, bool isEnvelope, const QString& samples)
{
    auto writer = VolumeWriter::create(path, surveyHeader(samples), {});
    if (!writer)
        return writer.failure();
    const float noValue = (*writer)->header().noValue;
    // A batch of lines at a time, shared by threads.
    const int threads = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, 8u));
    constexpr std::size_t line = std::size_t(Survey::crosslineCount) * Survey::sampleCount;
    std::vector<float> batch(static_cast<std::size_t>(threads) * line);
    for (int first = 0; first < Survey::inlineCount; first += threads) {
        const int count = std::min(threads, Survey::inlineCount - first);
        std::vector<std::thread> workers;
        for (int i = 0; i < count; ++i)
            workers.emplace_back(makeLine, first + i, isEnvelope, noValue,
                                 batch.data() + static_cast<std::size_t>(i) * line);
        for (std::thread& worker : workers)
            worker.join();
        for (int i = 0; i < count; ++i)
            if (auto written = (*writer)->writeTraces(first + i, 0, Survey::crosslineCount,
                                                      batch.data() + static_cast<std::size_t>(i) * line);
                !written)
                return written;
    }
    return (*writer)->finish(nullptr);
}

} // namespace

std::vector<DemoObject> VolumeKind::demo() const
{
    const auto volume = [](const QString& name, bool isEnvelope) {
        const VolumeSource source{
            [name, isEnvelope](const QString& path) { return makeVolume(path, isEnvelope, name); }};
        return DemoObject{name, ObjectValue::of(source)};
    };
    return {volume(QStringLiteral("Amplitude"), false), volume(QStringLiteral("Envelope"), true)};
}

} // namespace hv
