#pragma once

#include "host/volume/VolumeLayout.h"

namespace hv {

class JobContext;

/// Samples of one order of a file written to their places in another one of the same file, in bounded memory: 64 MB
/// whatever the size. `file` is open for reading and writing, `from` and `to` are where the orders begin.
struct OrderCopy
{
    int file;
    georef::BlocSpace space;
    georef::ScanOrientation fromOrder;
    std::int64_t from;
    georef::ScanOrientation toOrder;
    std::int64_t to;
    std::int64_t bufferBytes = std::int64_t(32) << 20; ///< of each of two; a block of it takes less than 0.1 s

    /// `region` is within the extents. From the inline order to the others, and from the crossline to the inline order.
    /// A failure is the reason alone; part of the samples may be written then. `context` may be null.
    Result<void> run(const CellRegion& region, JobContext* context) const;
};

} // namespace hv
