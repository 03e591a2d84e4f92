#include "host/volume/VolumeHeader.h"

#include <algorithm>

namespace hv {

using georef::BlocSpace;
using georef::ScanOrientation;

std::optional<float> VolumeStatistics::percentile(double percent) const
{
    if (percentiles.empty())
        return std::nullopt;
    const auto above = std::find_if(percentiles.begin(), percentiles.end(),
                                    [percent](const auto& each) { return each.first >= percent; });
    if (above == percentiles.begin())
        return above->second;
    if (above == percentiles.end())
        return percentiles.back().second;
    const auto below = above - 1;
    const double share = (percent - below->first) / (above->first - below->first);
    return static_cast<float>(below->second + share * (double(above->second) - below->second));
}

FrameShape frameShape(const BlocSpace& space, ScanOrientation orientation)
{
    switch (orientation) {
    case ScanOrientation::Inline:
        return {space.height(), space.width(), space.length()};
    case ScanOrientation::Crossline:
        return {space.width(), space.height(), space.length()};
    case ScanOrientation::Timeslice:
        return {space.length(), space.width(), space.height()};
    }
    return {};
}

CellRegion frameRegion(const BlocSpace& space, ScanOrientation orientation, int index)
{
    CellRegion region{0, space.height(), 0, space.width(), 0, space.length()};
    switch (orientation) {
    case ScanOrientation::Inline:
        region.firstInline = index;
        region.endInline = index + 1;
        break;
    case ScanOrientation::Crossline:
        region.firstCrossline = index;
        region.endCrossline = index + 1;
        break;
    case ScanOrientation::Timeslice:
        region.firstSample = index;
        region.endSample = index + 1;
        break;
    }
    return region;
}

std::optional<std::int64_t> sampleBytes(const BlocSpace& space)
{
    // Three orders and a header are to stay within an offset of 63 bits.
    constexpr std::int64_t most = std::int64_t(1) << 60;
    if (!space.isValid())
        return std::nullopt;
    const std::int64_t frame = std::int64_t(space.width()) * space.length();
    if (frame > most / space.height() / static_cast<std::int64_t>(sizeof(float)))
        return std::nullopt;
    return frame * space.height() * static_cast<std::int64_t>(sizeof(float));
}

void VolumeHeader::note(const QString& what)
{
    const qint64 seconds = QDateTime::currentSecsSinceEpoch();
    history.push_back({QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC), what});
}

} // namespace hv
