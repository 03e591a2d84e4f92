#include "host/volume/VolumeLayout.h"

#include <algorithm>

namespace hv {

using georef::ScanOrientation;

VolumeLayout VolumeLayout::make(const georef::BlocSpace& space, const VolumeOrders& orders)
{
    VolumeLayout layout;
    const std::int64_t step = toVolumePage(sampleBytes(space).value_or(0));
    std::int64_t offset = volumeHeaderBytes * volumeHeaderCopies;
    const auto place = [&](ScanOrientation orientation) {
        layout.order(orientation) = VolumeOrder{offset};
        offset += step;
    };
    place(ScanOrientation::Inline);
    if (orders.crossline)
        place(ScanOrientation::Crossline);
    if (orders.timeslice)
        place(ScanOrientation::Timeslice);
    return layout;
}

std::int64_t VolumeLayout::fileSize(const georef::BlocSpace& space) const
{
    std::int64_t last = 0;
    for (const auto& each : m_orders)
        if (each)
            last = std::max(last, each->offset);
    return last + sampleBytes(space).value_or(0);
}

} // namespace hv
