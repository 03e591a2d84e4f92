#include "host/volume/LineSection.h"

#include "host/core/Transform.h"
#include "host/img/Rearrange.h"
#include "host/jobs/JobContext.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace hv {

namespace {

constexpr double g_mostTraces = 1e6;

double distance(const core::vec2& a, const core::vec2& b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

core::vec2 worldOf(const georef::BlocSpace& space, const core::vec2& cell)
{
    const core::vec3 world = core::transform(space.fromBlockToWorld(), {cell.x, cell.y, 0.0});
    return {world.x, world.y};
}

/// The places of the traces, in cells.
std::vector<core::vec2> placesAlong(const georef::BlocSpace& space, const std::vector<core::vec2>& nodes,
                                    double spacing)
{
    std::vector<core::vec2> places{nodes.front()};
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        const core::vec2& from = nodes[i - 1];
        const core::vec2& to = nodes[i];
        const double cells = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
        const double steps = spacing > 0.0 ? distance(worldOf(space, from), worldOf(space, to)) / spacing : cells;
        // A hair more than a whole number is that number.
        const double count = std::ceil(steps - 1e-6);
        if (!(count + static_cast<double>(places.size()) <= g_mostTraces))
            return {};
        for (double step = 1.0; step <= count; ++step)
            places.push_back({from.x + (to.x - from.x) * step / count, from.y + (to.y - from.y) * step / count});
    }
    return places;
}

/// One trace of a section after the other.
class TraceMaker
{
public:
    TraceMaker(const VolumeFile& volume, Interpolation interpolation)
        : m_volume(volume), m_header(volume.header()), m_interpolation(interpolation),
          m_samples(static_cast<std::size_t>(m_header.sampleCount()))
    {
        for (std::vector<float>& corner : m_corners)
            corner.resize(m_samples);
    }

    Result<void> make(const core::vec2& place, float* out)
    {
        std::fill_n(out, m_samples, m_header.noValue);
        const double x = std::round(place.x);
        const double y = std::round(place.y);
        if (!isInside(x, y))
            return {};
        if (auto read = readTrace(x, y, out); !read || m_interpolation == Interpolation::Nearest)
            return read;
        return blend(place, out);
    }

private:
    bool isInside(double x, double y) const
    {
        return x >= 0.0 && y >= 0.0 && x < m_header.crosslines() && y < m_header.inlines();
    }
    Result<void> readTrace(double x, double y, float* out) const
    {
        return m_volume.readTraces(static_cast<int>(y), static_cast<int>(x), static_cast<int>(x) + 1, out);
    }
    bool hasValue(float sample) const { return sample != m_header.noValue && sample == sample; }

    /// `out` holds the nearest trace.
    Result<void> blend(const core::vec2& place, float* out)
    {
        const double left = std::floor(place.x);
        const double below = std::floor(place.y);
        std::array<double, 4> weights{};
        for (std::size_t i = 0; i < 4; ++i) {
            const double x = left + static_cast<double>(i % 2);
            const double y = below + static_cast<double>(i / 2);
            weights[i] = (1.0 - std::abs(place.x - x)) * (1.0 - std::abs(place.y - y));
            if (!isInside(x, y) || weights[i] <= 0.0)
                weights[i] = 0.0;
            else if (auto read = readTrace(x, y, m_corners[i].data()); !read)
                return read;
        }
        for (std::size_t k = 0; k < m_samples; ++k) {
            if (!hasValue(out[k]))
                continue;
            double sum = 0.0;
            double weight = 0.0;
            for (std::size_t i = 0; i < 4; ++i)
                if (weights[i] > 0.0 && hasValue(m_corners[i][k])) {
                    sum += weights[i] * m_corners[i][k];
                    weight += weights[i];
                }
            out[k] = static_cast<float>(sum / weight);
        }
        return {};
    }

    const VolumeFile& m_volume;
    const VolumeHeader& m_header;
    const Interpolation m_interpolation;
    const std::size_t m_samples;
    std::array<std::vector<float>, 4> m_corners;
};

} // namespace

Result<LineSection> sectionAlong(const VolumeFile& volume, const RandomLine& line, Interpolation interpolation,
                                 double spacing, JobContext* context)
{
    const georef::BlocSpace& space = volume.header().space;
    if (const QString fault = line.fault(); !fault.isEmpty())
        return Failure(QStringLiteral("Unable to cut a section: %1.").arg(fault));
    if (!(spacing >= 0.0) || std::isinf(spacing))
        return Failure(QStringLiteral("Unable to cut a section: the spacing of its traces is not a positive number."));
    const std::vector<core::vec2> places = placesAlong(space, line.inBlock(space), spacing);
    if (places.empty())
        return Failure(QStringLiteral("Unable to cut a section: it would have more than %1 traces.")
                           .arg(static_cast<int>(g_mostTraces)));
    LineSection section;
    core::vec2 before = worldOf(space, places.front());
    double walked = 0.0;
    for (const core::vec2& place : places) {
        const core::vec2 world = worldOf(space, place);
        const core::vec3 survey = core::transform(space.fromBlockToSurvey(), {place.x, place.y, 0.0});
        walked += distance(before, world);
        section.traces.push_back({walked, survey.x, survey.y, world.x, world.y});
        before = world;
    }
    const auto samples = static_cast<std::size_t>(volume.header().sampleCount());
    auto rows = img::Image2d::createUninitialized(static_cast<int>(samples), static_cast<int>(places.size()));
    section.image = img::Image2d::createUninitialized(static_cast<int>(places.size()), static_cast<int>(samples));
    if (!rows || !section.image)
        return Failure(QStringLiteral("Unable to cut a section: there is not enough memory."));
    if (context)
        context->setSteps(static_cast<std::int64_t>(places.size()));
    TraceMaker maker(volume, interpolation);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (context && context->cancelled())
            return JobContext::stopped();
        if (auto made = maker.make(places[i], rows->data() + i * samples); !made)
            return made.failure();
        if (context)
            context->advance();
    }
    img::transpose(rows->data(), section.image->data(), samples, places.size());
    section.image->setName(line.name);
    return section;
}

} // namespace hv
