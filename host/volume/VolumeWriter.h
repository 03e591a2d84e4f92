#pragma once

#include "host/core/AlignedBuffer.h"
#include "host/formats/PartFile.h"
#include "host/volume/StatisticsCollector.h"
#include "host/volume/VolumeHeaderText.h"

#include <memory>
#include <vector>

namespace hv {

class JobContext;

/// Makes a volume file: beside its place, with the disk's room taken at the start, and put there by finish() when it is
/// whole. Without finish() nothing is left behind and what was at the place stays.
///
/// Samples come trace by trace or frame by frame, in any order; what never comes is noValue. Fastest are whole lines,
/// and traces that come line after line in the given sorting; a trace of another line than the one before costs the
/// writing of a line. Holds two lines in memory, and 64 MB in finish().
///
/// For one thread at a time, any thread. Failures are sentences that name the file.
class VolumeWriter
{
public:
    /// The lines after which the traces come.
    enum class Sorting
    {
        Inline,
        Crossline,
    };

    /// `header` may have no statistics: finish() makes them. Refused when there is no room on the disk.
    static Result<std::unique_ptr<VolumeWriter>> create(const QString& path, VolumeHeader header,
                                                        const VolumeOrders& orders, Sorting sorting = Sorting::Inline);
    ~VolumeWriter();
    VolumeWriter(const VolumeWriter&) = delete;
    VolumeWriter& operator=(const VolumeWriter&) = delete;

    /// Everything but the extents and the matrices may be changed until finish(): the history, above all.
    VolumeHeader& header() { return m_head.header; }
    const VolumeHeader& header() const { return m_head.header; }

    /// `count` traces, one after the other, of one inline, from a crossline on; indices from 0.
    Result<void> writeTraces(int inlineIndex, int firstCrossline, int count, const float* traces);
    /// The same of one crossline, from an inline on.
    Result<void> writeCrosslineTraces(int crossline, int firstInline, int count, const float* traces);
    /// An inline's frame, as Image3d::frame() has it.
    Result<void> writeInline(int inlineIndex, const float* frame);

    /// The further orders, the statistics, and the file in its place. After it the writer is of no use, whatever the
    /// result. `context` may be null.
    Result<void> finish(JobContext* context);

private:
    explicit VolumeWriter(QString path) : m_path(std::move(path)) {}

    Result<void> prepare(const VolumeOrders& orders, Sorting sorting);
    Result<void> writePart(int line, int first, int count, const float* traces);
    Result<void> turnTo(int line);
    Result<void> putLine();
    Result<void> writeLine(int line, const float* frame);
    Result<void> fillMissing();
    Result<void> readStatistics(JobContext* context);
    Result<void> makeOrders(JobContext* context);
    Result<void> writeHeader();
    std::int64_t placeOf(int line) const { return m_offset + line * m_lines.bytes(); }
    Failure failed(const Failure& reason) const;

    QString m_path;
    PartFile m_part;
    VolumeFileHead m_head;
    // The order that traces are written in first: the inline order, or the crossline order, which lies behind all
    // others when the file is to have none.
    Sorting m_sorting = Sorting::Inline;
    std::int64_t m_offset = 0;
    FrameShape m_lines;
    std::vector<bool> m_isWritten; // per line
    int m_line = -1;               // whose traces are in m_traces
    core::AlignedBuffer m_traces;
    core::AlignedBuffer m_frame;
    std::unique_ptr<StatisticsCollector> m_statistics; // null once a line was written twice
};

} // namespace hv
