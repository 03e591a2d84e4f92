#pragma once

#include "host/segy/Scan.h"
#include "host/volume/VolumeLayout.h"

namespace hv::segy {

/// A part of the lines or samples: those between two numbers, and of these every so-manieth.
struct PartChoice
{
    std::optional<std::int64_t> first, last;
    int every = 1;
};

/// Which part of a file becomes a volume, and what the file does not say.
struct ImportChoice
{
    /// By line numbers.
    PartChoice inlines, crosslines;
    /// By indices from 0.
    PartChoice samples;
    /// Well-known text of the coordinates' reference system; empty when it is not known.
    QString crs;
    VolumeOrders orders;
};

/// What became of the traces.
struct ImportCounts
{
    std::int64_t read = 0;
    std::int64_t doubled = 0;
    std::int64_t dead = 0;
    std::int64_t empty = 0; ///< cells without a trace
};

/// What the volume will be: extents, place, units and a history that says what was assumed. Fails when the part is
/// empty or the file cannot be imported.
Result<VolumeHeader> volumeHeader(const Scan& scan, const ImportChoice& choice);

/// Reads the file once, from its beginning to its end unless the traces are in no order, and makes the volume file at
/// `path`. Cells without a trace become noValue. Holds less than 200 MB. A failed or cancelled import leaves nothing
/// behind.
Result<ImportCounts> importSegy(const Scan& scan, const ImportChoice& choice, const QString& path, JobContext& context);

} // namespace hv::segy
