#pragma once

#include "host/arrays/ArrayVolume.h"

namespace hv::arrays {

/// Writes a volume as a folder of Zarr (version 2 of its specification, https://zarr-specs.readthedocs.io), a group
/// that zarr, xarray and Dask open: the array `samples` with the dimensions inline, crossline and time (or depth), the
/// numbers along these, and where there are coordinates `x` and `y` of each trace. The group's attributes hold
/// reference system, units, history, and what readZarr() needs to put the volume back where it was. Chunks without any
/// value are left out. The folder is made beside its place, which must be free.
Result<void> writeZarr(const VolumeFile& volume, const QString& path, bool compresses, JobContext& context);

/// Makes a volume of such a folder, or of one with a single array of three dimensions. Chunks are plain or compressed
/// with zlib. Places and units are taken from the attributes of writeZarr(); others leave lines that count from 0.
Result<void> readZarr(const QString& path, const QString& volume, const VolumeOrders& orders, JobContext& context);

} // namespace hv::arrays
