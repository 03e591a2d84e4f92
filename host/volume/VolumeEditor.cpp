#include "host/volume/VolumeEditor.h"

#include "host/img/Rearrange.h"
#include "host/jobs/JobContext.h"
#include "host/volume/OrderCopy.h"
#include "host/volume/StatisticsCollector.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hv {

using georef::ScanOrientation;

namespace {

/// Of the samples of volumes whose statistics are made anew by the way.
constexpr std::int64_t g_statisticsBytes = std::int64_t(128) << 20;
/// Changed regions that are kept apart.
constexpr std::size_t g_mostRegions = 256;

using FileId = std::pair<dev_t, ino_t>;

/// The editors that somebody keeps.
struct Editors
{
    std::mutex mutex;
    std::map<FileId, std::weak_ptr<VolumeEditor>> all;

    static Editors& instance()
    {
        static Editors editors;
        return editors;
    }
};

std::int64_t cells(const CellRegion& region)
{
    return std::int64_t(region.endInline - region.firstInline) * (region.endCrossline - region.firstCrossline) *
           (region.endSample - region.firstSample);
}

/// Adds a region to others; joined with the last one where that adds no cells.
void add(std::vector<CellRegion>& regions, const CellRegion& region)
{
    if (!regions.empty()) {
        const CellRegion both = regions.back().united(region);
        if (cells(both) <= cells(regions.back()) + cells(region)) {
            regions.back() = both;
            return;
        }
    }
    regions.push_back(region);
    if (regions.size() <= g_mostRegions)
        return;
    CellRegion all = regions.front();
    for (const CellRegion& each : regions)
        all = all.united(each);
    regions.assign(1, all);
}

} // namespace

Result<std::shared_ptr<VolumeEditor>> VolumeEditor::open(const QString& path, JobContext* context)
{
    FileDescriptor file = FileDescriptor::open(path, O_RDWR | O_NONBLOCK);
    struct stat status
    {};
    if (!file || fstat(file.number(), &status) != 0)
        return cannotWrite(path, systemFailure(errno));
    Editors& editors = Editors::instance();
    const std::lock_guard lock(editors.mutex);
    std::weak_ptr<VolumeEditor>& known = editors.all[{status.st_dev, status.st_ino}];
    if (auto editor = known.lock())
        return editor;
    if (flock(file.number(), LOCK_EX | LOCK_NB) != 0) {
        Failure busy(QStringLiteral("another program is writing it"));
        busy.systemError = errno;
        return cannotWrite(path, busy);
    }
    std::shared_ptr<VolumeEditor> editor(new VolumeEditor(path));
    std::int64_t fileSize = 0;
    auto head = readVolumeHead(file.number(), fileSize);
    if (!head)
        return cannotWrite(path, head.failure());
    editor->m_head = std::move(*head);
    editor->m_file = std::move(file);
    bool isWhole = true;
    for (const ScanOrientation orientation : scanOrientations)
        if (const auto& order = editor->m_head.layout.order(orientation))
            isWhole = isWhole && order->isWhole;
    if (!isWhole) {
        editor->m_changed = {editor->everything()};
        if (auto flushed = editor->flush(context); !flushed) {
            editor->m_changed.clear(); // not once more in the destructor
            return flushed.failure();
        }
    }
    known = editor;
    return editor;
}

VolumeEditor::~VolumeEditor()
{
    // What fails leaves the marks, which is all that has to be right.
    if (auto flushed = flush(); !flushed)
        m_changed.clear();
}

Failure VolumeEditor::failed(const Failure& reason) const
{
    return reason.sentence.isEmpty() ? reason : cannotWrite(m_path, reason);
}

VolumeHeader VolumeEditor::header() const
{
    const std::lock_guard lock(m_mutex);
    return m_head.header;
}

CellRegion VolumeEditor::everything() const
{
    const VolumeHeader& header = m_head.header;
    return {0, header.inlines(), 0, header.crosslines(), 0, header.sampleCount()};
}

// Samples -------------------------------------------------------------------------------------------------------------

Result<void> VolumeEditor::writeFrame(ScanOrientation orientation, int index, const float* frame)
{
    const std::lock_guard lock(m_mutex);
    const FrameShape shape = frameShape(m_head.header.space, orientation);
    if (index < 0 || index >= shape.count)
        return failed(Failure(QStringLiteral("it has no frame %1").arg(index)));
    const CellRegion region = frameRegion(m_head.header.space, orientation, index);
    if (auto begun = beginChange(region); !begun)
        return begun;
    if (orientation == ScanOrientation::Inline)
        return writeRows(region, index, frame);
    const auto width = static_cast<std::size_t>(shape.width);
    std::vector<float> column(static_cast<std::size_t>(shape.height));
    for (int i = 0; i < m_head.header.inlines(); ++i) {
        const float* rows = frame + static_cast<std::size_t>(i) * width;
        if (orientation == ScanOrientation::Crossline) {
            img::gather(frame + i, width, column.data(), column.size());
            rows = column.data();
        }
        if (auto written = writeRows(region, i, rows); !written)
            return written;
    }
    return {};
}

Result<void> VolumeEditor::writeRegion(const CellRegion& region, const float* samples)
{
    const std::lock_guard lock(m_mutex);
    const CellRegion all = everything();
    const bool isInside = region.firstInline >= 0 && region.firstInline < region.endInline &&
                          region.firstCrossline >= 0 && region.firstCrossline < region.endCrossline &&
                          region.firstSample >= 0 && region.firstSample < region.endSample && all.united(region) == all;
    if (!isInside)
        return failed(Failure(QStringLiteral("the region is not within it")));
    if (auto begun = beginChange(region); !begun)
        return begun;
    const auto width = static_cast<std::size_t>(region.endCrossline - region.firstCrossline);
    const auto height = static_cast<std::size_t>(region.endSample - region.firstSample);
    std::vector<float> rows(width * height);
    for (int i = region.firstInline; i < region.endInline; ++i) {
        img::transpose(samples, height, rows.data(), width, height, width);
        samples += width * height;
        if (auto written = writeRows(region, i, rows.data()); !written)
            return written;
    }
    return {};
}

Result<void> VolumeEditor::writeRows(const CellRegion& region, int inlineIndex, const float* rows)
{
    constexpr std::int64_t size = sizeof(float);
    const VolumeHeader& header = m_head.header;
    const std::int64_t offset = m_head.layout.order(ScanOrientation::Inline)->offset;
    const auto place = [&](int sample) {
        return offset + ((std::int64_t(inlineIndex) * header.sampleCount() + sample) * header.crosslines() +
                         region.firstCrossline) *
                            size;
    };
    const int width = region.endCrossline - region.firstCrossline;
    // Whole rows follow each other without a gap.
    const int rowsAtOnce = width == header.crosslines() ? region.endSample - region.firstSample : 1;
    for (int sample = region.firstSample; sample < region.endSample; sample += rowsAtOnce) {
        auto written = writeAt(m_file.number(), rows, std::int64_t(rowsAtOnce) * width * size, place(sample));
        if (!written)
            return failed(written.failure());
        rows += std::int64_t(rowsAtOnce) * width;
    }
    return {};
}

Result<void> VolumeEditor::beginChange(const CellRegion& region)
{
    // On the disk before the first change: after a failure of the power nobody knows which writes came to it.
    if (m_changed.empty() && hasFurtherOrders()) {
        if (auto marked = mark(false); !marked)
            return marked;
        if (auto synced = syncData(m_file.number()); !synced)
            return failed(synced.failure());
    }
    add(m_changed, region);
    return {};
}

// Orders --------------------------------------------------------------------------------------------------------------

Result<void> VolumeEditor::mark(bool isWhole)
{
    VolumeFileHead head = m_head;
    for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice})
        if (auto& order = head.layout.order(orientation))
            order->isWhole = isWhole;
    // Five letters each, which the system writes as one.
    auto text = volumeHeaderText(m_head);
    if (!text)
        return failed(text.failure());
    for (int copy = volumeHeaderCopies - 1; copy >= 0; --copy)
        for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice}) {
            const int at = volumeMarkPosition(*text, orientation);
            if (at < 0)
                continue;
            const QByteArray letters = volumeMark(isWhole);
            auto written = writeAt(m_file.number(), letters.constData(), letters.size(), copy * volumeHeaderBytes + at);
            if (!written)
                return failed(written.failure());
        }
    m_head = std::move(head);
    return {};
}

Result<void> VolumeEditor::copyTo(ScanOrientation orientation, const std::vector<CellRegion>& regions,
                                  JobContext* context)
{
    const OrderCopy copy{m_file.number(),
                         m_head.header.space,
                         ScanOrientation::Inline,
                         m_head.layout.order(ScanOrientation::Inline)->offset,
                         orientation,
                         m_head.layout.order(orientation)->offset};
    if (context)
        context->setSteps(static_cast<std::int64_t>(regions.size()));
    for (const CellRegion& region : regions) {
        std::optional<JobContext> part;
        if (context)
            part.emplace(*context, 1);
        if (auto copied = copy.run(region, part ? &*part : nullptr); !copied)
            return failed(copied.failure());
    }
    return {};
}

Result<void> VolumeEditor::bringUpToDate(const std::vector<CellRegion>& regions, JobContext* context)
{
    if (context)
        context->setSteps(m_head.layout.orders().count());
    for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice}) {
        if (!m_head.layout.order(orientation))
            continue;
        std::optional<JobContext> part;
        if (context)
            part.emplace(*context, 1);
        if (auto copied = copyTo(orientation, regions, part ? &*part : nullptr); !copied)
            return copied;
    }
    return {};
}

Result<void> VolumeEditor::flush(JobContext* context)
{
    const std::lock_guard lock(m_mutex);
    if (m_changed.empty())
        return {};
    // Many scattered pieces take longer than all of it in large blocks.
    std::int64_t changed = 0;
    for (const CellRegion& region : m_changed)
        changed += cells(region);
    const std::vector<CellRegion> regions = changed * 8 > cells(everything()) ? std::vector{everything()} : m_changed;
    if (auto copied = bringUpToDate(regions, context); !copied)
        return copied;
    VolumeFileHead head = m_head;
    head.header.statistics.reset();
    if (sampleBytes(head.header.space) <= g_statisticsBytes) {
        auto statistics = volumeStatistics(m_file.number(), head, nullptr);
        if (!statistics)
            return failed(statistics.failure());
        head.header.statistics = *statistics;
    }
    if (auto synced = syncData(m_file.number()); !synced)
        return failed(synced.failure());
    if (auto put = putHeader(head); !put)
        return put;
    if (hasFurtherOrders())
        if (auto marked = mark(true); !marked)
            return marked;
    m_changed.clear();
    return {};
}

Result<void> VolumeEditor::putHeader(const VolumeFileHead& head)
{
    auto text = volumeHeaderText(head);
    if (!text)
        return failed(text.failure());
    // The copy first and to the disk: one of the two can be read at any time.
    for (int copy = volumeHeaderCopies - 1; copy >= 0; --copy) {
        if (auto written = writeAt(m_file.number(), text->constData(), text->size(), copy * volumeHeaderBytes);
            !written)
            return failed(written.failure());
        if (auto synced = syncData(m_file.number()); !synced)
            return failed(synced.failure());
    }
    m_head = head;
    return {};
}

// The header ----------------------------------------------------------------------------------------------------------

Result<void> VolumeEditor::setHeader(const VolumeHeader& header)
{
    const std::lock_guard lock(m_mutex);
    if (header.space != m_head.header.space)
        return failed(Failure(QStringLiteral("its geometry cannot be changed")));
    VolumeFileHead head = m_head;
    head.header = header;
    return putHeader(head);
}

Result<void> VolumeEditor::makeStatistics(JobContext* context)
{
    const std::lock_guard lock(m_mutex);
    auto statistics = volumeStatistics(m_file.number(), m_head, context);
    if (!statistics)
        return failed(statistics.failure());
    VolumeFileHead head = m_head;
    head.header.statistics = *statistics;
    return putHeader(head);
}

Result<void> VolumeEditor::setOrders(const VolumeOrders& orders, JobContext* context)
{
    const std::lock_guard lock(m_mutex);
    if (auto flushed = flush(context); !flushed)
        return flushed;
    VolumeFileHead head = m_head;
    const std::int64_t bytes = sampleBytes(head.header.space).value_or(0);
    const auto want = [&](ScanOrientation orientation, bool isWanted) {
        auto& order = head.layout.order(orientation);
        if (!isWanted)
            order.reset();
        else if (!order) // behind all others, also those that are forgotten: others may still read them
            order = VolumeOrder{toVolumePage(std::max(m_head.layout.fileSize(head.header.space),
                                                      head.layout.fileSize(head.header.space))),
                                false};
    };
    want(ScanOrientation::Crossline, orders.crossline);
    want(ScanOrientation::Timeslice, orders.timeslice);
    if (head.layout == m_head.layout)
        return {};
    struct stat status
    {};
    if (fstat(m_file.number(), &status) != 0)
        return failed(systemFailure(errno));
    const std::int64_t end = std::max<std::int64_t>(head.layout.fileSize(head.header.space), status.st_size);
    if (auto reserved = reserveRoom(m_file.number(), end); !reserved)
        return failed(reserved.failure());
    const VolumeFileHead before = m_head;
    if (auto put = putHeader(head); !put)
        return put;
    std::vector<ScanOrientation> made;
    for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice})
        if (const auto& order = m_head.layout.order(orientation); order && !order->isWhole)
            made.push_back(orientation);
    if (context)
        context->setSteps(static_cast<std::int64_t>(made.size()));
    for (const ScanOrientation orientation : made) {
        std::optional<JobContext> part;
        if (context)
            part.emplace(*context, 1);
        if (auto copied = copyTo(orientation, {everything()}, part ? &*part : nullptr); !copied) {
            if (putHeader(before) && ftruncate(m_file.number(), status.st_size) != 0)
                return failed(systemFailure(errno));
            return copied;
        }
    }
    if (auto synced = syncData(m_file.number()); !synced)
        return failed(synced.failure());
    if (auto marked = mark(true); !marked)
        return marked;
    // What is behind the last array belongs to nobody. Arrays in between keep their room until then.
    const std::int64_t last = m_head.layout.fileSize(m_head.header.space);
    if (ftruncate(m_file.number(), std::max(last, bytes)) != 0)
        return failed(systemFailure(errno));
    return {};
}

} // namespace hv
