#pragma once

#include "host/volume/VolumeHeaderText.h"

#include <array>
#include <memory>

namespace hv {

class JobContext;

/// Statistics of samples that come in pieces, in any order: exact extremes, mean and deviation; percentiles from a
/// table of how often each of 65,536 classes occurs, whose bounds are 1/128 of their value apart.
class StatisticsCollector
{
public:
    /// `rows` of so many samples are to come in all; of more than 16 million samples the table takes a choice of rows.
    StatisticsCollector(float noValue, std::int64_t rows, std::int64_t rowLength);

    /// Whole rows, from row `first` of all on, which decides which are chosen.
    void add(const float* samples, std::int64_t first, std::int64_t rows);
    VolumeStatistics result() const;

private:
    void count(const float* samples, std::int64_t count);
    float valueAt(double rank) const;

    static constexpr std::size_t g_classes = 65536;

    const float m_noValue;
    const std::int64_t m_rowLength;
    std::int64_t m_everyRow;
    VolumeStatistics m_sums;
    double m_squares = 0.0; // of the distances from the mean
    std::unique_ptr<std::array<std::int64_t, g_classes>> m_table;
    std::int64_t m_counted = 0;
};

/// Of a whole file, read once. `context` may be null; a failure is the reason alone.
Result<VolumeStatistics> volumeStatistics(int file, const VolumeFileHead& head, JobContext* context);

} // namespace hv
