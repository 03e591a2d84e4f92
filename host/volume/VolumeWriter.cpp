#include "host/volume/VolumeWriter.h"

#include "host/img/Rearrange.h"
#include "host/jobs/JobContext.h"
#include "host/volume/OrderCopy.h"
#include "host/volume/VolumeIo.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace hv {

using georef::ScanOrientation;

Result<std::unique_ptr<VolumeWriter>> VolumeWriter::create(const QString& path, VolumeHeader header,
                                                           const VolumeOrders& orders, Sorting sorting)
{
    std::unique_ptr<VolumeWriter> writer(new VolumeWriter(path));
    writer->m_head.header = std::move(header);
    if (auto prepared = writer->prepare(orders, sorting); !prepared)
        return prepared.failure();
    return writer;
}

VolumeWriter::~VolumeWriter() = default;

Failure VolumeWriter::failed(const Failure& reason) const
{
    return reason.sentence.isEmpty() ? reason : cannotWrite(m_path, reason); // stopped: nobody reads it
}

Result<void> VolumeWriter::prepare(const VolumeOrders& orders, Sorting sorting)
{
    const georef::BlocSpace& space = m_head.header.space;
    const auto bytes = sampleBytes(space);
    if (!bytes)
        return failed(Failure(QStringLiteral("a volume of %1 x %2 x %3 samples cannot be stored")
                                  .arg(space.height())
                                  .arg(space.width())
                                  .arg(space.length())));
    m_head.layout = VolumeLayout::make(space, orders);
    // Longer than it can be in the end, so that its faults show now.
    if (const auto text = volumeHeaderText(m_head); !text)
        return failed(text.failure());
    m_sorting = sorting;
    const auto own = sorting == Sorting::Inline ? ScanOrientation::Inline : ScanOrientation::Crossline;
    m_lines = frameShape(space, own);
    std::int64_t end = m_head.layout.fileSize(space);
    if (const auto& order = m_head.layout.order(own)) {
        m_offset = order->offset;
    } else {
        m_offset = toVolumePage(end);
        end = m_offset + *bytes;
    }
    m_isWritten.assign(static_cast<std::size_t>(m_lines.count), false);
    m_traces = core::AlignedBuffer::allocate(m_lines.bytes());
    m_frame = core::AlignedBuffer::allocate(m_lines.bytes());
    if (!m_traces || !m_frame)
        return failed(systemFailure(ENOMEM));
    m_statistics = std::make_unique<StatisticsCollector>(m_head.header.noValue,
                                                         std::int64_t(m_lines.count) * m_lines.height, m_lines.width);
    if (const auto opened = m_part.open(m_path); !opened)
        return failed(opened.failure());
    if (auto reserved = reserveRoom(m_part.descriptor(), end); !reserved)
        return failed(reserved.failure());
    return {};
}

// Lines ---------------------------------------------------------------------------------------------------------------

Result<void> VolumeWriter::writeTraces(int inlineIndex, int firstCrossline, int count, const float* traces)
{
    if (m_sorting == Sorting::Inline)
        return writePart(inlineIndex, firstCrossline, count, traces);
    for (int i = 0; i < count; ++i)
        if (auto written = writePart(firstCrossline + i, inlineIndex, 1, traces + std::int64_t(i) * m_lines.height);
            !written)
            return written;
    return {};
}

Result<void> VolumeWriter::writeCrosslineTraces(int crossline, int firstInline, int count, const float* traces)
{
    if (m_sorting == Sorting::Crossline)
        return writePart(crossline, firstInline, count, traces);
    for (int i = 0; i < count; ++i)
        if (auto written = writePart(firstInline + i, crossline, 1, traces + std::int64_t(i) * m_lines.height);
            !written)
            return written;
    return {};
}

Result<void> VolumeWriter::writePart(int line, int first, int count, const float* traces)
{
    if (line < 0 || line >= m_lines.count || first < 0 || count < 0 || count > m_lines.width - first)
        return failed(Failure(QStringLiteral("a trace lies outside of the volume")));
    const auto samples = static_cast<std::size_t>(m_lines.height);
    if (line != m_line && count == m_lines.width) {
        if (auto put = putLine(); !put)
            return put;
        img::transpose(traces, samples, m_frame.as<float>(), static_cast<std::size_t>(count), samples,
                       static_cast<std::size_t>(count));
        return writeLine(line, m_frame.as<float>());
    }
    if (auto turned = turnTo(line); !turned)
        return turned;
    std::copy_n(traces, std::int64_t(count) * m_lines.height,
                m_traces.as<float>() + std::int64_t(first) * m_lines.height);
    return {};
}

Result<void> VolumeWriter::turnTo(int line)
{
    if (line == m_line)
        return {};
    if (auto put = putLine(); !put)
        return put;
    if (m_isWritten[static_cast<std::size_t>(line)]) {
        if (auto read = readAt(m_part.descriptor(), m_frame.as<float>(), m_lines.bytes(), placeOf(line)); !read)
            return failed(read.failure());
        img::transpose(m_frame.as<float>(), m_traces.as<float>(), static_cast<std::size_t>(m_lines.width),
                       static_cast<std::size_t>(m_lines.height));
    } else {
        std::fill_n(m_traces.as<float>(), m_lines.cells(), m_head.header.noValue);
    }
    m_line = line;
    return {};
}

Result<void> VolumeWriter::putLine()
{
    if (m_line < 0)
        return {};
    img::transpose(m_traces.as<float>(), m_frame.as<float>(), static_cast<std::size_t>(m_lines.height),
                   static_cast<std::size_t>(m_lines.width));
    return writeLine(std::exchange(m_line, -1), m_frame.as<float>());
}

Result<void> VolumeWriter::writeLine(int line, const float* frame)
{
    if (auto written = writeAt(m_part.descriptor(), frame, m_lines.bytes(), placeOf(line)); !written)
        return failed(written.failure());
    const auto index = static_cast<std::size_t>(line);
    if (m_isWritten[index])
        m_statistics.reset();
    if (m_statistics)
        m_statistics->add(frame, std::int64_t(line) * m_lines.height, m_lines.height);
    m_isWritten[index] = true;
    return {};
}

Result<void> VolumeWriter::writeInline(int inlineIndex, const float* frame)
{
    const FrameShape inlines = frameShape(m_head.header.space, ScanOrientation::Inline);
    if (inlineIndex < 0 || inlineIndex >= inlines.count)
        return failed(Failure(QStringLiteral("a frame lies outside of the volume")));
    if (m_sorting == Sorting::Inline) {
        if (auto put = putLine(); !put)
            return put;
        return writeLine(inlineIndex, frame);
    }
    std::vector<float> trace(static_cast<std::size_t>(inlines.height));
    for (int x = 0; x < inlines.width; ++x) {
        img::gather(frame + x, static_cast<std::size_t>(inlines.width), trace.data(), trace.size());
        if (auto written = writePart(x, inlineIndex, 1, trace.data()); !written)
            return written;
    }
    return {};
}

// The end -------------------------------------------------------------------------------------------------------------

Result<void> VolumeWriter::finish(JobContext* context)
{
    // Steps: the orders, each as long as the other, and a little for the rest.
    const VolumeOrders orders = m_head.layout.orders();
    if (context)
        context->setSteps(orders.count() + 2);
    auto done = putLine();
    if (done)
        done = fillMissing();
    if (done)
        done = makeOrders(context);
    if (done)
        done = readStatistics(context);
    if (done)
        done = writeHeader();
    if (!done) {
        m_part.discard();
        return done;
    }
    if (const auto placed = m_part.putInPlace(); !placed)
        return failed(placed.failure());
    return {};
}

Result<void> VolumeWriter::fillMissing()
{
    std::fill_n(m_frame.as<float>(), m_lines.cells(), m_head.header.noValue);
    for (int line = 0; line < m_lines.count; ++line)
        if (!m_isWritten[static_cast<std::size_t>(line)])
            if (auto written = writeLine(line, m_frame.as<float>()); !written)
                return written;
    return {};
}

Result<void> VolumeWriter::makeOrders(JobContext* context)
{
    const georef::BlocSpace& space = m_head.header.space;
    const CellRegion everything{0, space.height(), 0, space.width(), 0, space.length()};
    const std::int64_t inlineOffset = m_head.layout.order(ScanOrientation::Inline)->offset;
    const auto copy = [&](ScanOrientation from, std::int64_t fromOffset, ScanOrientation to,
                          std::int64_t toOffset) -> Result<void> {
        std::optional<JobContext> part;
        if (context)
            part.emplace(*context, 1);
        const OrderCopy orderCopy{m_part.descriptor(), space, from, fromOffset, to, toOffset};
        auto copied = orderCopy.run(everything, part ? &*part : nullptr);
        return copied ? Result<void>() : failed(copied.failure());
    };
    if (m_sorting == Sorting::Crossline)
        if (auto copied = copy(ScanOrientation::Crossline, m_offset, ScanOrientation::Inline, inlineOffset); !copied)
            return copied;
    for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice}) {
        const auto& order = m_head.layout.order(orientation);
        if (!order || order->offset == m_offset)
            continue;
        if (auto copied = copy(ScanOrientation::Inline, inlineOffset, orientation, order->offset); !copied)
            return copied;
    }
    if (ftruncate(m_part.descriptor(), m_head.layout.fileSize(space)) != 0)
        return failed(systemFailure(errno));
    return {};
}

Result<void> VolumeWriter::readStatistics(JobContext* context)
{
    if (!m_statistics) {
        auto read = volumeStatistics(m_part.descriptor(), m_head, context);
        if (!read)
            return failed(read.failure());
        m_head.header.statistics = *read;
        return {};
    }
    m_head.header.statistics = m_statistics->result();
    return {};
}

Result<void> VolumeWriter::writeHeader()
{
    auto text = volumeHeaderText(m_head);
    if (!text)
        return failed(text.failure());
    for (int copy = 0; copy < volumeHeaderCopies; ++copy)
        if (auto written = writeAt(m_part.descriptor(), text->constData(), text->size(), copy * volumeHeaderBytes);
            !written)
            return failed(written.failure());
    return {};
}

} // namespace hv
