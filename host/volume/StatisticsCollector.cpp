#include "host/volume/StatisticsCollector.h"

#include "host/core/AlignedBuffer.h"
#include "host/img/Statistics.h"
#include "host/jobs/JobContext.h"
#include "host/volume/VolumeIo.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <vector>

namespace hv {

namespace {

constexpr std::int64_t g_mostCounted = 16'000'000;
constexpr std::array<double, 13> g_percents{0.1, 1, 2, 5, 10, 25, 50, 75, 90, 95, 98, 99, 99.9};

/// The bits of floats in the order of the numbers.
std::uint32_t rankOf(float value)
{
    const auto bits = std::bit_cast<std::uint32_t>(value);
    return bits & 0x80000000u ? ~bits : bits | 0x80000000u;
}

float ofRank(std::uint32_t rank)
{
    return std::bit_cast<float>(rank & 0x80000000u ? rank & 0x7FFFFFFFu : ~rank);
}

} // namespace

StatisticsCollector::StatisticsCollector(float noValue, std::int64_t rows, std::int64_t rowLength)
    : m_noValue(noValue), m_rowLength(rowLength),
      // Odd, so that a choice does not always meet the same samples of traces of an even number of them.
      m_everyRow(std::max<std::int64_t>(1, rows * rowLength / g_mostCounted) | 1),
      m_table(std::make_unique<std::array<std::int64_t, g_classes>>())
{}

void StatisticsCollector::add(const float* samples, std::int64_t first, std::int64_t rows)
{
    const float* counted = samples;
    std::vector<float> replaced;
    if (m_noValue != img::NoValue) {
        replaced.assign(samples, samples + rows * m_rowLength);
        std::replace(replaced.begin(), replaced.end(), m_noValue, img::NoValue);
        counted = replaced.data();
    }
    const img::Statistics part = img::statistics(counted, rows * m_rowLength);
    if (part.count > 0) {
        // See img::statistics() for the formula.
        const auto partCount = static_cast<double>(part.count);
        const auto before = static_cast<double>(m_sums.count);
        const double distance = part.mean - m_sums.mean;
        m_sums.minimum = m_sums.count ? std::min(m_sums.minimum, part.minimum) : part.minimum;
        m_sums.maximum = m_sums.count ? std::max(m_sums.maximum, part.maximum) : part.maximum;
        m_sums.count += part.count;
        const auto total = static_cast<double>(m_sums.count);
        m_sums.mean += distance * (partCount / total);
        m_squares += part.deviation * part.deviation * partCount + distance * distance * (before * partCount / total);
    }
    const std::int64_t skipped = first % m_everyRow == 0 ? 0 : m_everyRow - first % m_everyRow;
    for (std::int64_t row = skipped; row < rows; row += m_everyRow)
        count(samples + row * m_rowLength, m_rowLength);
}

void StatisticsCollector::count(const float* samples, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i)
        if (samples[i] != m_noValue && samples[i] == samples[i]) {
            ++(*m_table)[rankOf(samples[i]) >> 16];
            ++m_counted;
        }
}

float StatisticsCollector::valueAt(double rank) const
{
    double before = 0.0;
    for (std::uint32_t each = 0; each < g_classes; ++each) {
        const auto here = static_cast<double>((*m_table)[each]);
        if (here > 0.0 && before + here >= rank) {
            // Within a class the samples are taken to lie evenly.
            const double lowest = ofRank(each << 16);
            const double highest = ofRank((each << 16) | 0xFFFFu);
            const double value = lowest + (highest - lowest) * std::clamp((rank - before) / here, 0.0, 1.0);
            return std::clamp(static_cast<float>(value), m_sums.minimum, m_sums.maximum);
        }
        before += here;
    }
    return m_sums.maximum;
}

VolumeStatistics StatisticsCollector::result() const
{
    VolumeStatistics result = m_sums;
    if (result.count > 0)
        result.deviation = std::sqrt(std::max(0.0, m_squares / static_cast<double>(result.count)));
    // Infinite samples have no place in a text of JSON.
    const bool isFinite = std::isfinite(result.mean) && std::isfinite(result.deviation) &&
                          std::isfinite(result.minimum) && std::isfinite(result.maximum);
    if (!isFinite)
        return {};
    if (m_counted > 0)
        for (const double percent : g_percents)
            result.percentiles.emplace_back(percent, valueAt(percent / 100.0 * static_cast<double>(m_counted)));
    return result;
}

Result<VolumeStatistics> volumeStatistics(int file, const VolumeFileHead& head, JobContext* context)
{
    constexpr std::int64_t piece = std::int64_t(8) << 20;
    const georef::BlocSpace& space = head.header.space;
    const std::int64_t rows = std::int64_t(space.height()) * space.length();
    const std::int64_t rowBytes = std::int64_t(space.width()) * static_cast<std::int64_t>(sizeof(float));
    const std::int64_t rowsAtOnce = std::clamp<std::int64_t>(piece / rowBytes, 1, rows);
    const core::AlignedBuffer buffer = core::AlignedBuffer::allocate(rowsAtOnce * rowBytes);
    if (!buffer)
        return systemFailure(ENOMEM);
    StatisticsCollector collector(head.header.noValue, rows, space.width());
    const std::int64_t offset = head.layout.order(georef::ScanOrientation::Inline)->offset;
    for (std::int64_t row = 0; row < rows; row += rowsAtOnce) {
        if (context && context->cancelled())
            return JobContext::stopped();
        const std::int64_t count = std::min(rowsAtOnce, rows - row);
        if (auto read = readAt(file, buffer.as<float>(), count * rowBytes, offset + row * rowBytes); !read)
            return read.failure();
        collector.add(buffer.as<float>(), row, count);
    }
    return collector.result();
}

} // namespace hv
