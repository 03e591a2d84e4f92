#pragma once

#include "host/jobs/JobContext.h"
#include "host/segy/SampleFormat.h"
#include "host/volume/VolumeFile.h"

/// host/arrays: volumes as the arrays of other programs: NumPy's files and folders of Zarr. Element (inline, crossline,
/// sample), the last index running fastest.
namespace hv::arrays {

/// What the numbers of an array are, as NumPy writes it: "<f4", ">i2". Floats of 4 and 8 bytes and whole numbers of 1,
/// 2 and 4 are read.
struct NumberType
{
    segy::SampleFormat format = segy::SampleFormat::Ieee;
    segy::ByteOrder order = segy::ByteOrder::Little;

    static std::optional<NumberType> fromText(const QString& text);
    std::int64_t bytes() const { return static_cast<std::int64_t>(segy::bytesPerSample(format)); }
    void toFloats(const std::byte* source, float* target, std::int64_t count) const;
};

/// Inlines, crosslines, samples.
struct Extents
{
    std::int64_t inlines = 0, crosslines = 0, samples = 0;

    /// They can be those of a volume.
    bool isValid() const;
};

/// A header with these extents whose lines and samples count from 0; the history says where it came from.
VolumeHeader plainHeader(const Extents& extents, const QString& history);

/// Writes a volume as a file of NumPy (version 1.0 of the format, NEP 1): float32, little-endian. Names no lines and no
/// coordinates. Beside its place first; what was there is replaced.
Result<void> writeNumpy(const VolumeFile& volume, const QString& path, JobContext& context);
/// Makes a volume of such a file of two or three dimensions in C order.
Result<void> readNumpy(const QString& path, const QString& volume, const VolumeOrders& orders, JobContext& context);

} // namespace hv::arrays
