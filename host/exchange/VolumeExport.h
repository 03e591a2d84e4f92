#pragma once

#include "host/jobs/JobContext.h"
#include "host/volume/VolumeFile.h"

namespace hv {

/// What a volume is written as for other programs.
enum class ExportFormat
{
    SegyIbm,
    SegyIeee,
    Numpy,
    Zarr,
};

/// "npy", without a dot.
QString suffixOf(ExportFormat format);

/// Writes a volume to a place of which the user has said that it may be replaced; a folder is not replaced. Gives a
/// sentence about what was written. A failed or cancelled export leaves what was there.
Result<QString> exportVolume(const VolumeFile& volume, const QString& name, ExportFormat format, const QString& path,
                             JobContext& context);

} // namespace hv
