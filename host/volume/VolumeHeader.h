#pragma once

#include "host/core/CellRegion.h"
#include "host/core/Result.h"
#include "host/georef/BlocSpace.h"

#include <QDateTime>
#include <QJsonObject>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

/// host/volume: the file of a volume: float samples on a grid of inlines, crosslines and samples, read at the speed of
/// memory in every direction and larger than memory when need be. docs/volume_format.rst describes the bytes.

namespace hv {

/// What the samples are to the program: one class of block for each.
enum class VolumeContent
{
    Seismic,  ///< amplitudes and what is derived from them
    Property, ///< velocity, porosity: a property of the rock
};

/// Of the samples that hold a value, and are numbers.
struct VolumeStatistics
{
    std::int64_t count = 0;
    double mean = 0.0; ///< this and the rest only count when `count` is not 0
    double deviation = 0.0;
    float minimum = 0.0f;
    float maximum = 0.0f;
    /// Per cent, rising, and the value that as many of the samples do not exceed. Taken from an even choice of rows of
    /// large volumes, and with a relative error below 1 %.
    std::vector<std::pair<double, float>> percentiles;

    /// Between its neighbours in the table on a straight line; empty without a table.
    std::optional<float> percentile(double percent) const;
    friend bool operator==(const VolumeStatistics&, const VolumeStatistics&) = default;
};

/// Something that was done to make a volume what it is, for the user.
struct HistoryEntry
{
    QDateTime when; ///< to the second
    QString what;
    friend bool operator==(const HistoryEntry&, const HistoryEntry&) = default;
};

/// The frames of one orientation. The images are as those of Image3d: rows of `width`.
struct FrameShape
{
    int count = 0;
    int width = 0;
    int height = 0;

    std::int64_t cells() const { return std::int64_t(width) * height; }
    std::int64_t bytes() const { return cells() * static_cast<std::int64_t>(sizeof(float)); }
};

FrameShape frameShape(const georef::BlocSpace& space, georef::ScanOrientation orientation);
/// What a frame's cells are.
CellRegion frameRegion(const georef::BlocSpace& space, georef::ScanOrientation orientation, int index);
/// Empty when a 64-bit file could not hold that many samples, or there are none.
std::optional<std::int64_t> sampleBytes(const georef::BlocSpace& space);

/// Everything about a volume but its samples. A value.
struct VolumeHeader
{
    georef::BlocSpace space; ///< width = crosslines, height = inlines, length = samples; matrices without perspective
    QString crs;             ///< well-known text of world x and y; empty when it is not known
    georef::Unit horizontalUnit = georef::Unit::Meters;
    georef::Unit verticalUnit = georef::Unit::Milliseconds;
    georef::Domain domain = georef::Domain::Time;
    float noValue = -9999.0f; ///< of samples that were not measured; finite
    VolumeContent content = VolumeContent::Seismic;
    QString samples; ///< what they are, for the user: "Amplitude"
    std::vector<HistoryEntry> history;
    std::optional<VolumeStatistics> statistics; ///< of the file as it is; none when they are not known
    QJsonObject further;                        ///< members of the file that are not listed here; kept

    int inlines() const { return space.height(); }
    int crosslines() const { return space.width(); }
    int sampleCount() const { return space.length(); }

    /// Adds to the history with the present time.
    void note(const QString& what);
};

} // namespace hv
