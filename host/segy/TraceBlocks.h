#pragma once

#include "host/segy/Import.h"

#include <functional>

namespace hv::segy {

/// Lines and samples that are read.
struct TracePart
{
    LineRange inlines, crosslines;
    /// Indices.
    LineRange samples;
    friend bool operator==(const TracePart&, const TracePart&) = default;
};

/// Some traces of a part, decoded.
struct TraceBlock
{
    struct Cell
    {
        /// Indices in the part.
        int inlineIndex;
        int crossline;
    };
    std::vector<Cell> cells;
    /// Trace after trace.
    std::vector<float> samples;
};

/// Reads the traces of a part in blocks, in the order of the file. Of several traces of one cell the first counts; dead
/// ones without samples do not. While one block is used the next is read and decoded on another thread.
class TraceBlocks
{
public:
    TraceBlocks(const Scan& scan, const TracePart& part);

    const TracePart& part() const { return m_part; }
    /// Only these inlines from now on; a regular piece of those of the part.
    void limitTo(const LineRange& inlines) { m_inlines = inlines; }

    /// Where no trace of the part can be is not read. Steps are those of the file's traces.
    Result<void> readAll(JobContext& context, const std::function<Result<void>(const TraceBlock&)>& use);

    /// Of all that was read so far; `empty` is not filled.
    const ImportCounts& counts() const { return m_counts; }

private:
    struct Span
    {
        std::int64_t first = 0;
        std::int64_t count = 0;
    };
    Span nextSpan(std::int64_t from) const;
    bool mayHold(const TraceIndex::Zone& zone) const;
    Result<void> read(const Span& span, TraceBlock& block);
    void decodeTrace(const std::byte* trace, float* target);
    bool isEmptyTrace(const std::byte* trace) const;

    const Scan& m_scan;
    const TracePart m_part;
    LineRange m_inlines;
    const std::int64_t m_blockTraces;
    const bool m_isWholeTrace;
    std::vector<std::byte> m_bytes;
    std::vector<float> m_trace;
    std::vector<bool> m_isFilled; // per cell; empty when no cell has two traces
    ImportCounts m_counts;
};

} // namespace hv::segy
