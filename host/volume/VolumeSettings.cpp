#include "host/volume/VolumeSettings.h"

#include <QSettings>

namespace hv {

VolumeOrders preferredOrders(const georef::BlocSpace& space)
{
    constexpr double gigabyte = 1e9;
    const double most = QSettings().value(QStringLiteral("Volumes/all_orders_below"), 8.0).toDouble() * gigabyte;
    const bool isSmall = double(sampleBytes(space).value_or(0)) < most;
    return {isSmall, isSmall};
}

} // namespace hv
