#include "host/segy/Import.h"

#include "host/segy/TraceBlocks.h"
#include "host/volume/VolumeWriter.h"

#include <QFileInfo>

#include <algorithm>

namespace hv::segy {

namespace {

/// Of the lines that are put together at once from traces in no order.
constexpr std::int64_t g_tileBytes = 64 << 20;
/// Shares of the work: the traces, and each order that is made of them.
constexpr int g_readShare = 4;
constexpr int g_orderShare = 3;

/// The part of a regular range; empty when nothing is left.
std::optional<LineRange> chosen(const LineRange& all, const PartChoice& choice)
{
    LineRange part = all;
    if (choice.first && *choice.first > all.first)
        part.first = all.number((*choice.first - all.first + all.step - 1) / all.step);
    if (choice.last && *choice.last < all.last)
        part.last = *choice.last;
    part.step *= std::max(1, choice.every);
    if (part.first > part.last)
        return {};
    part.last = part.number(part.count() - 1);
    return part;
}

Result<TracePart> partOf(const Scan& scan, const ImportChoice& choice)
{
    if (const QString obstacle = scan.remarks.obstacle(); !obstacle.isEmpty())
        return Failure(
            QStringLiteral("\"%1\" cannot be imported: %2").arg(QFileInfo(scan.file->path()).fileName(), obstacle));
    const auto inlines = chosen(scan.inlines, choice.inlines);
    const auto crosslines = chosen(scan.crosslines, choice.crosslines);
    const auto samples = chosen({0, scan.samples() - 1, 1}, choice.samples);
    if (!inlines || !crosslines || !samples)
        return Failure(QStringLiteral("There are no %1 between those that were asked for.")
                           .arg(!inlines      ? QStringLiteral("inlines")
                                : !crosslines ? QStringLiteral("crosslines")
                                              : QStringLiteral("samples")));
    return TracePart{*inlines, *crosslines, *samples};
}

/// Where the cells of the part lie. Refused for coordinates that span nothing, which a fitted survey does not have.
georef::BlocSpace::Refusal place(const Scan& scan, const TracePart& part, georef::BlocSpace& space)
{
    space = georef::BlocSpace(static_cast<int>(part.crosslines.count()), static_cast<int>(part.inlines.count()),
                              static_cast<int>(part.samples.count()));
    const auto time = [&scan](std::int64_t sample) {
        return scan.firstSample + static_cast<double>(sample) * scan.interval;
    };
    // An axis of one cell has a direction all the same.
    const auto second = [](const LineRange& range) {
        return static_cast<double>(std::max(range.last, range.first + range.step));
    };
    const auto first = [](const LineRange& range) { return static_cast<double>(range.first); };
    const double inlines[] = {first(part.inlines), second(part.inlines)};
    const double crosslines[] = {first(part.crosslines), second(part.crosslines)};
    const double times[] = {time(part.samples.first),
                            time(std::max(part.samples.last, part.samples.first + part.samples.step))};
    const auto world = [&scan](double inlineNumber, double crosslineNumber, double z) {
        const Point at =
            scan.survey ? scan.survey->at(inlineNumber, crosslineNumber) : Point{crosslineNumber, inlineNumber};
        return core::vec3(at.x, at.y, z);
    };
    if (auto refused =
            space.setSurveySpace({inlines[0], crosslines[0], times[0]}, {inlines[0], crosslines[1], times[0]},
                                 {inlines[1], crosslines[0], times[0]}, {inlines[0], crosslines[0], times[1]});
        !refused.empty())
        return refused;
    return space.setWorldSpace(world(inlines[0], crosslines[0], times[0]), world(inlines[0], crosslines[1], times[0]),
                               world(inlines[1], crosslines[0], times[0]), world(inlines[0], crosslines[0], times[1]));
}

Result<VolumeHeader> headerOf(const Scan& scan, const ImportChoice& choice, const TracePart& part)
{
    VolumeHeader header;
    if (const auto refused = place(scan, part, header.space); !refused.empty())
        return Failure(QStringLiteral("The survey of \"%1\" cannot be used: %2.")
                           .arg(QFileInfo(scan.file->path()).fileName(), QString::fromStdString(refused)));
    header.crs = choice.crs;
    header.horizontalUnit = scan.file->isInFeet() ? georef::Unit::Feet : georef::Unit::Meters;
    header.verticalUnit = scan.unit;
    header.domain = scan.domain;
    header.samples = QStringLiteral("Amplitude");
    header.note(QStringLiteral("Imported from the SEG-Y file \"%1\".").arg(QFileInfo(scan.file->path()).fileName()));
    for (const Remark& remark : scan.remarks.all())
        header.note(remark.text);
    if (!(part == TracePart{scan.inlines, scan.crosslines, {0, scan.samples() - 1, 1}}))
        header.note(
            QStringLiteral(
                "A part was imported: inlines %1 to %2 by %3, crosslines %4 to %5 by %6, samples %7 to %8 by %9.")
                .arg(part.inlines.first)
                .arg(part.inlines.last)
                .arg(part.inlines.step)
                .arg(part.crosslines.first)
                .arg(part.crosslines.last)
                .arg(part.crosslines.step)
                .arg(part.samples.first)
                .arg(part.samples.last)
                .arg(part.samples.step));
    return header;
}

/// Traces in the order of the file, which is about that of the volume's lines.
Result<void> importInOrder(TraceBlocks& blocks, bool isByCrosslines, VolumeWriter& writer, JobContext& context)
{
    const std::size_t samples = static_cast<std::size_t>(blocks.part().samples.count());
    return blocks.readAll(context, [&](const TraceBlock& block) -> Result<void> {
        for (std::size_t begin = 0; begin < block.cells.size();) {
            std::size_t end = begin + 1;
            const auto follows = [&](const TraceBlock::Cell& next, const TraceBlock::Cell& before) {
                return isByCrosslines
                           ? next.crossline == before.crossline && next.inlineIndex == before.inlineIndex + 1
                           : next.inlineIndex == before.inlineIndex && next.crossline == before.crossline + 1;
            };
            while (end < block.cells.size() && follows(block.cells[end], block.cells[end - 1]))
                ++end;
            const TraceBlock::Cell& cell = block.cells[begin];
            const float* const traces = block.samples.data() + begin * samples;
            const int count = static_cast<int>(end - begin);
            Result<void> written = isByCrosslines
                                       ? writer.writeCrosslineTraces(cell.crossline, cell.inlineIndex, count, traces)
                                       : writer.writeTraces(cell.inlineIndex, cell.crossline, count, traces);
            if (!written)
                return written;
            begin = end;
        }
        return {};
    });
}

/// Traces in no order: some lines at a time are collected from where they are in the file, or may be.
Result<void> importScattered(TraceBlocks& blocks, float noValue, VolumeWriter& writer, JobContext& context)
{
    const TracePart& part = blocks.part();
    const std::int64_t samples = part.samples.count();
    const std::int64_t width = part.crosslines.count();
    const std::int64_t lineFloats = samples * width;
    const std::int64_t lines =
        std::clamp<std::int64_t>(g_tileBytes / (lineFloats * std::int64_t(sizeof(float))), 1, part.inlines.count());
    std::vector<float> tile(static_cast<std::size_t>(lines * lineFloats));
    const std::int64_t tiles = (part.inlines.count() + lines - 1) / lines;
    context.setSteps(tiles);
    for (std::int64_t first = 0; first < part.inlines.count(); first += lines) {
        const std::int64_t end = std::min(first + lines, part.inlines.count());
        std::fill(tile.begin(), tile.end(), noValue);
        blocks.limitTo({part.inlines.number(first), part.inlines.number(end - 1), part.inlines.step});
        JobContext step(context, 1);
        const Result<void> read = blocks.readAll(step, [&](const TraceBlock& block) -> Result<void> {
            for (std::size_t i = 0; i < block.cells.size(); ++i)
                std::copy_n(block.samples.data() + static_cast<std::int64_t>(i) * samples, samples,
                            tile.data() + (block.cells[i].inlineIndex - first) * lineFloats +
                                block.cells[i].crossline * samples);
            return {};
        });
        if (!read)
            return read;
        for (std::int64_t line = first; line < end; ++line)
            if (auto written = writer.writeTraces(static_cast<int>(line), 0, static_cast<int>(width),
                                                  tile.data() + (line - first) * lineFloats);
                !written)
                return written;
    }
    return {};
}

} // namespace

Result<VolumeHeader> volumeHeader(const Scan& scan, const ImportChoice& choice)
{
    const Result<TracePart> part = partOf(scan, choice);
    if (!part)
        return part.failure();
    return headerOf(scan, choice, *part);
}

Result<ImportCounts> importSegy(const Scan& scan, const ImportChoice& choice, const QString& path, JobContext& context)
{
    const Result<TracePart> part = partOf(scan, choice);
    if (!part)
        return part.failure();
    Result<VolumeHeader> header = headerOf(scan, choice, *part);
    if (!header)
        return header.failure();
    const float noValue = header->noValue;
    const bool isByCrosslines =
        scan.sorting == Sorting::Crosslines || (scan.sorting == Sorting::SingleLine && part->inlines.count() > 1);
    auto writer =
        VolumeWriter::create(path, std::move(*header), choice.orders,
                             isByCrosslines ? VolumeWriter::Sorting::Crossline : VolumeWriter::Sorting::Inline);
    if (!writer)
        return writer.failure();
    const int endShare = g_orderShare * choice.orders.count();
    context.setSteps(g_readShare + endShare);
    TraceBlocks blocks(scan, *part);
    {
        JobContext reading(context, g_readShare);
        const Result<void> read = scan.sorting == Sorting::Unsorted
                                      ? importScattered(blocks, noValue, **writer, reading)
                                      : importInOrder(blocks, isByCrosslines, **writer, reading);
        if (!read)
            return read.failure();
    }
    if (Result<void> unchanged = scan.file->checkUnchanged(); !unchanged)
        return unchanged.failure();
    ImportCounts counts = blocks.counts();
    counts.empty = part->inlines.count() * part->crosslines.count() - counts.read;
    (*writer)->header().note(
        QStringLiteral("%1 traces were read, %2 cells have none.").arg(counts.read).arg(counts.empty));
    JobContext ending(context, endShare);
    if (Result<void> finished = (*writer)->finish(&ending); !finished)
        return finished.failure();
    return counts;
}

} // namespace hv::segy
