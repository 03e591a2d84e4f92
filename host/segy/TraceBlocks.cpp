#include "host/segy/TraceBlocks.h"

#include <algorithm>
#include <future>

namespace hv::segy {

namespace {

/// In the file.
constexpr std::int64_t g_blockBytes = 4 << 20;
constexpr std::int16_t g_dead = 2;

/// Whole lines where several fit into a block: the volume's writer takes them as they are.
std::int64_t tracesPerBlock(const Scan& scan)
{
    const std::int64_t most = std::max<std::int64_t>(1, g_blockBytes / scan.file->layout().traceBytes);
    const std::int64_t line = scan.sorting == Sorting::Crosslines ? scan.inlines.count() : scan.crosslines.count();
    if (scan.missing() == 0 && scan.counts.doubled == 0 && line <= 2 * most)
        return line * std::max<std::int64_t>(1, most / line);
    return most;
}

} // namespace

TraceBlocks::TraceBlocks(const Scan& scan, const TracePart& part)
    : m_scan(scan), m_part(part), m_inlines(part.inlines), m_blockTraces(tracesPerBlock(scan)),
      m_isWholeTrace(part.samples.count() == scan.samples()),
      m_bytes(static_cast<std::size_t>(m_blockTraces * scan.file->layout().traceBytes)),
      m_trace(m_isWholeTrace ? 0 : static_cast<std::size_t>(scan.samples()))
{
    if (scan.counts.doubled > 0)
        m_isFilled.assign(static_cast<std::size_t>(part.inlines.count() * part.crosslines.count()), false);
}

bool TraceBlocks::mayHold(const TraceIndex::Zone& zone) const
{
    return zone.lastInline >= m_inlines.first && zone.firstInline <= m_inlines.last &&
           zone.lastCrossline >= m_part.crosslines.first && zone.firstCrossline <= m_part.crosslines.last;
}

/// The next traces from `from` on that may be of the part; count 0 at the end.
TraceBlocks::Span TraceBlocks::nextSpan(std::int64_t from) const
{
    const std::int64_t traces = m_scan.file->layout().traces;
    const std::int64_t perZone = m_scan.index.tracesPerZone();
    const auto& zones = m_scan.index.zones();
    const auto zoneOf = [&](std::int64_t trace) { return static_cast<std::size_t>(trace / perZone); };
    while (from < traces && !mayHold(zones[zoneOf(from)]))
        from = (from / perZone + 1) * perZone;
    std::int64_t end = from;
    while (end < std::min(traces, from + m_blockTraces) && mayHold(zones[zoneOf(end)]))
        end = (end / perZone + 1) * perZone;
    return {from, std::max<std::int64_t>(0, std::min({end, traces, from + m_blockTraces}) - from)};
}

Result<void> TraceBlocks::readAll(JobContext& context, const std::function<Result<void>(const TraceBlock&)>& use)
{
    const std::int64_t traces = m_scan.file->layout().traces;
    context.setSteps(traces);
    TraceBlock current;
    TraceBlock next;
    Span span = nextSpan(0);
    if (Result<void> got = read(span, current); !got)
        return got;
    std::int64_t told = 0;
    while (span.count > 0) {
        if (context.cancelled())
            return JobContext::stopped();
        const Span after = nextSpan(span.first + span.count);
        std::future<Result<void>> ahead = std::async(std::launch::async, [&] { return read(after, next); });
        const Result<void> used = use(current);
        const Result<void> got = ahead.get();
        if (!used)
            return used;
        if (!got)
            return got;
        context.advance(span.first + span.count - told);
        told = span.first + span.count;
        span = after;
        std::swap(current, next);
    }
    context.advance(traces - told);
    return {};
}

Result<void> TraceBlocks::read(const Span& span, TraceBlock& block)
{
    block.cells.clear();
    if (span.count == 0)
        return {};
    if (Result<void> got = m_scan.file->readTraces(span.first, span.count, m_bytes.data()); !got)
        return got;
    const Layout& layout = m_scan.file->layout();
    const auto samples = static_cast<std::size_t>(m_part.samples.count());
    block.samples.resize(static_cast<std::size_t>(span.count) * samples);
    for (std::int64_t i = 0; i < span.count; ++i) {
        const std::byte* const trace = m_bytes.data() + i * layout.traceBytes;
        const std::int32_t inlineNumber = m_scan.inlineOf(trace);
        const std::int32_t crosslineNumber = m_scan.crosslineOf(span.first + i, trace);
        if (!m_inlines.contains(inlineNumber) || !m_part.crosslines.contains(crosslineNumber))
            continue;
        const TraceBlock::Cell cell{static_cast<int>(m_part.inlines.index(inlineNumber)),
                                    static_cast<int>(m_part.crosslines.index(crosslineNumber))};
        if (!m_isFilled.empty()) {
            auto filled =
                m_isFilled[static_cast<std::size_t>(cell.inlineIndex * m_part.crosslines.count() + cell.crossline)];
            if (filled) {
                ++m_counts.doubled;
                continue;
            }
            filled = true;
        }
        if (isEmptyTrace(trace)) {
            ++m_counts.dead;
            continue;
        }
        decodeTrace(trace, block.samples.data() + block.cells.size() * samples);
        block.cells.push_back(cell);
        ++m_counts.read;
    }
    return {};
}

bool TraceBlocks::isEmptyTrace(const std::byte* trace) const
{
    const Layout& layout = m_scan.file->layout();
    return valueAt(trace, at::traceId, layout.order) == g_dead &&
           std::all_of(trace + layout.headerBytes, trace + layout.traceBytes,
                       [](std::byte each) { return each == std::byte(0); });
}

void TraceBlocks::decodeTrace(const std::byte* trace, float* target)
{
    const Layout& layout = m_scan.file->layout();
    float* const whole = m_isWholeTrace ? target : m_trace.data();
    decode(layout.format, layout.order, trace + layout.headerBytes, whole, static_cast<std::size_t>(layout.samples));
    if (m_isWholeTrace)
        return;
    for (std::int64_t i = 0; i < m_part.samples.count(); ++i)
        target[i] = whole[m_part.samples.number(i)];
}

} // namespace hv::segy
