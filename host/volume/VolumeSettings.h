#pragma once

#include "host/volume/VolumeLayout.h"

namespace hv {

/// The orders that a new file gets unless somebody asks for others: all three below the size of samples that the user's
/// setting "Volumes/all_orders_below" names, in gigabytes (8 unless stated), else inlines only.
VolumeOrders preferredOrders(const georef::BlocSpace& space);

} // namespace hv
