#include "host/segy/Scan.h"

#include "host/segy/HeaderWalk.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace hv::segy {

namespace {

/// A volume with more cells per trace comes of wrong numbers, unless it is small.
constexpr std::int64_t g_cellsPerTrace = 64;
constexpr std::int64_t g_smallVolume = 4096;
/// Of the bitmap: 128 MB.
constexpr std::int64_t g_mostCells = std::int64_t(1) << 30;
constexpr int g_largestExtent = std::numeric_limits<std::int32_t>::max();
constexpr double g_microPerMilli = 1000.0;
constexpr std::int16_t g_dead = 2;

QString digits(double value)
{
    return QString::number(value, 'g', 6);
}

QString rangeText(const LineRange& range)
{
    if (range.count() == 1)
        return QString::number(range.first);
    return QStringLiteral("%1 to %2 by %3 (%4)").arg(range.first).arg(range.last).arg(range.step).arg(range.count());
}

/// One walk over the file: everything that running sums can tell.
class Survey
{
public:
    explicit Survey(Scan& scan) : m_scan(scan), m_order(scan.file->layout().order) {}

    void see(std::int64_t trace, const std::byte* header)
    {
        const std::int32_t inlineNumber = m_scan.inlineOf(header);
        const std::int32_t crosslineNumber = m_scan.crosslineOf(trace, header);
        m_scan.index.add(trace, inlineNumber, crosslineNumber);
        if (!isInside(inlineNumber, crosslineNumber))
            return;
        ScanCounts& counts = m_scan.counts;
        m_inlines.add(inlineNumber);
        m_crosslines.add(crosslineNumber);
        const std::int32_t offset = valueAt(header, at::offset, m_order);
        if (counts.inside == 0) {
            m_length = valueAt(header, at::samples, m_order);
            m_delay = valueAt(header, at::delay, m_order);
            m_timeScalar = valueAt(header, at::timeScalar, m_order);
            m_units = valueAt(header, at::coordinateUnits, m_order);
            counts.leastOffset = counts.largestOffset = offset;
        } else {
            m_alongInlines += inlineNumber == m_lastInline && crosslineNumber != m_lastCrossline;
            m_alongCrosslines += crosslineNumber == m_lastCrossline && inlineNumber != m_lastInline;
        }
        m_lastInline = inlineNumber;
        m_lastCrossline = crosslineNumber;
        ++counts.inside;
        counts.dead += valueAt(header, at::traceId, m_order) == g_dead;
        counts.leastOffset = std::min(counts.leastOffset, offset);
        counts.largestOffset = std::max(counts.largestOffset, offset);
        const auto length = static_cast<std::uint16_t>(valueAt(header, at::samples, m_order));
        counts.otherLength += length != 0 && length != static_cast<std::uint16_t>(m_scan.file->layout().samples);
        m_variesInLength |= length != static_cast<std::uint16_t>(m_length);
        const std::int32_t interval = valueAt(header, at::interval, m_order);
        counts.otherInterval += interval != 0 && interval != static_cast<std::int32_t>(m_scan.file->interval());
        counts.otherStart += valueAt(header, at::delay, m_order) != m_delay;
        seeCoordinates(header, inlineNumber, crosslineNumber);
    }

    LineRange inlines() const { return m_inlines.range(); }
    LineRange crosslines() const { return m_crosslines.range(); }
    const SurveyFit& fit() const { return m_fit; }
    bool variesInLength() const { return m_variesInLength; }
    std::int32_t units() const { return m_units; }
    double largestCoordinate() const { return m_largestCoordinate; }
    /// Of the first sample, in milliseconds.
    double start() const { return m_delay * scalarFactor(m_timeScalar); }

    Sorting sorting() const
    {
        if (inlines().count() == 1 || crosslines().count() == 1)
            return Sorting::SingleLine;
        const std::int64_t most = std::max(m_alongInlines, m_alongCrosslines);
        if (2 * most < m_scan.counts.inside)
            return Sorting::Unsorted;
        return m_alongInlines >= m_alongCrosslines ? Sorting::Inlines : Sorting::Crosslines;
    }

private:
    bool isInside(std::int32_t inlineNumber, std::int32_t crosslineNumber) const
    {
        const auto isIn = [](const std::optional<LineRange>& range, std::int32_t number) {
            return !range || (number >= range->first && number <= range->last);
        };
        return isIn(m_scan.choice.inlines, inlineNumber) && isIn(m_scan.choice.crosslines, crosslineNumber);
    }

    void seeCoordinates(const std::byte* header, std::int32_t inlineNumber, std::int32_t crosslineNumber)
    {
        const Positions& positions = m_scan.positions;
        const std::int32_t x = valueAt(header, positions.x, m_order);
        const std::int32_t y = valueAt(header, positions.y, m_order);
        if (x == 0 && y == 0) {
            ++m_scan.counts.withoutCoordinates;
            return;
        }
        const double factor = scalarFactor(valueAt(header, positions.scalar, m_order));
        m_largestCoordinate = std::max({m_largestCoordinate, std::abs(x * factor), std::abs(y * factor)});
        m_fit.add(inlineNumber, crosslineNumber, x * factor, y * factor);
    }

    Scan& m_scan;
    const ByteOrder m_order;
    RangeFinder m_inlines, m_crosslines;
    SurveyFit m_fit;
    std::int32_t m_lastInline = 0, m_lastCrossline = 0;
    std::int64_t m_alongInlines = 0, m_alongCrosslines = 0;
    std::int32_t m_length = 0, m_delay = 0, m_timeScalar = 0, m_units = 0;
    double m_largestCoordinate = 0;
    bool m_variesInLength = false;
};

/// Which cells and lines have traces.
class Cells
{
public:
    explicit Cells(const Scan& scan)
        : m_scan(scan), m_cells(static_cast<std::size_t>(scan.cells())),
          m_inlines(static_cast<std::size_t>(scan.inlines.count())),
          m_crosslines(static_cast<std::size_t>(scan.crosslines.count()))
    {}

    void see(std::int64_t inlineNumber, std::int64_t crosslineNumber)
    {
        if (!m_scan.inlines.contains(inlineNumber) || !m_scan.crosslines.contains(crosslineNumber))
            return;
        const std::int64_t i = m_scan.inlines.index(inlineNumber);
        const std::int64_t j = m_scan.crosslines.index(crosslineNumber);
        auto cell = m_cells[static_cast<std::size_t>(i * m_scan.crosslines.count() + j)];
        (cell ? m_doubled : m_filled) += 1;
        cell = true;
        m_inlines[static_cast<std::size_t>(i)] = true;
        m_crosslines[static_cast<std::size_t>(j)] = true;
    }

    void tell(ScanCounts& counts) const
    {
        counts.cells = m_filled;
        counts.doubled = m_doubled;
        counts.missingInlines = std::count(m_inlines.begin(), m_inlines.end(), false);
        counts.missingCrosslines = std::count(m_crosslines.begin(), m_crosslines.end(), false);
    }

private:
    const Scan& m_scan;
    std::vector<bool> m_cells, m_inlines, m_crosslines;
    std::int64_t m_filled = 0, m_doubled = 0;
};

Result<void> countCells(Scan& scan, JobContext& context)
{
    Cells cells(scan);
    JobContext part(context, scan.file->layout().traces);
    part.setSteps(scan.file->layout().traces);
    if (scan.index.tracesPerZone() == 1) {
        for (const TraceIndex::Zone& zone : scan.index.zones())
            cells.see(zone.firstInline, zone.firstCrossline);
    } else {
        const Result<void> walked = walkHeaders(*scan.file, 0, scan.file->layout().traces, part,
                                                [&](std::int64_t trace, const std::byte* header) {
                                                    cells.see(scan.inlineOf(header), scan.crosslineOf(trace, header));
                                                });
        if (!walked)
            return walked;
    }
    cells.tell(scan.counts);
    return {};
}

void judgePositions(Scan& scan)
{
    const Positions& at = scan.positions;
    const LineGuess& line = scan.guess.lines.front();
    Remarks& remarks = scan.remarks;
    const bool isGiven = scan.choice.positions.inlineNumber && scan.choice.positions.crosslineNumber;
    const QString where = at.inlineNumber.isSet() ? QStringLiteral("Line numbers are read from the bytes %1 and %2")
                                                        .arg(textOf(at.inlineNumber), textOf(at.crosslineNumber))
                          : at.crosslineNumber.isSet()
                              ? QStringLiteral("The traces are taken as one line, numbered by the bytes %1")
                                    .arg(textOf(at.crosslineNumber))
                              : QStringLiteral("The traces are taken as one line and counted along it");
    if (isGiven)
        remarks.found(QStringLiteral("%1, as was asked for.").arg(where));
    else if (scan.guess.isFound())
        remarks.assumed(QStringLiteral("%1: %2.").arg(where, line.reason));
    else
        remarks.prevents(
            QStringLiteral("No bytes of the trace headers hold line numbers (bytes %1 and %2: %3). Say which "
                           "ones do; 0 for both counts the traces along a single line.")
                .arg(textOf(line.inlineNumber), textOf(line.crosslineNumber), line.reason));
}

void judgeLines(Scan& scan)
{
    const ScanCounts& counts = scan.counts;
    Remarks& remarks = scan.remarks;
    remarks.found(QStringLiteral("%1 traces, sorted by %2; inlines %3, crosslines %4.")
                      .arg(scan.file->layout().traces)
                      .arg(nameOf(scan.sorting), rangeText(scan.inlines), rangeText(scan.crosslines)));
    if (const std::int64_t outside = scan.file->layout().traces - counts.inside; outside > 0)
        remarks.found(QStringLiteral("%1 traces lie outside of the lines that were asked for.").arg(outside));
    if (counts.missingInlines > 0)
        remarks.assumed(QStringLiteral("The steps between inlines are irregular: %1 of the numbers have no trace.")
                            .arg(counts.missingInlines));
    if (counts.missingCrosslines > 0)
        remarks.assumed(QStringLiteral("The steps between crosslines are irregular: %1 of the numbers have no trace.")
                            .arg(counts.missingCrosslines));
    if (scan.missing() > 0)
        remarks.found(QStringLiteral("%1 of %2 cells have no trace.").arg(scan.missing()).arg(scan.cells()));
    if (counts.doubled > 0)
        remarks.assumed(
            QStringLiteral("%1 traces have the line numbers of an earlier one; the first of each cell is kept%2.")
                .arg(counts.doubled)
                .arg(counts.leastOffset != counts.largestOffset ? QStringLiteral(", whatever its offset (%1 to %2)")
                                                                      .arg(counts.leastOffset)
                                                                      .arg(counts.largestOffset)
                                                                : QString()));
    if (counts.dead > 0)
        remarks.found(QStringLiteral("%1 traces are marked as dead; those that are 0 throughout count as missing.")
                          .arg(counts.dead));
}

void judgeTraces(Scan& scan, const Survey& survey)
{
    const ScanCounts& counts = scan.counts;
    if (counts.otherLength > 0 && !scan.choice.format.samples) {
        if (survey.variesInLength() && scan.file->layout().restBytes > 0)
            scan.remarks.prevents(
                QStringLiteral("%1 traces name another length than %2 samples, and the size of the file "
                               "is no multiple of it: the traces differ in length, or the file is damaged.")
                    .arg(counts.otherLength)
                    .arg(scan.samples()));
        else
            scan.remarks.assumed(
                QStringLiteral("%1 traces name another length than %2 samples; they are read with that.")
                    .arg(counts.otherLength)
                    .arg(scan.samples()));
    }
    if (counts.otherInterval > 0)
        scan.remarks.doubtful(QStringLiteral("%1 traces name another sample interval than %2, which is used for all.")
                                  .arg(counts.otherInterval)
                                  .arg(scan.file->interval()));
    if (counts.otherStart > 0)
        scan.remarks.doubtful(
            QStringLiteral("%1 traces begin at another time than the first one; all are read as if they began with it.")
                .arg(counts.otherStart));
}

void judgeSamples(Scan& scan, const Survey& survey)
{
    Remarks& remarks = scan.remarks;
    const bool isFeet = scan.file->isInFeet();
    scan.domain = scan.choice.domain.value_or(georef::Domain::Time);
    const bool isDepth = scan.domain == georef::Domain::Depth;
    scan.unit = !isDepth ? georef::Unit::Milliseconds : isFeet ? georef::Unit::Feet : georef::Unit::Meters;
    const QString unit = !isDepth ? QStringLiteral("ms") : isFeet ? QStringLiteral("ft") : QStringLiteral("m");
    scan.firstSample = scan.choice.firstSample.value_or(survey.start());
    scan.interval = scan.choice.interval.value_or(scan.file->interval() / g_microPerMilli);
    const QString samples = QStringLiteral("%1 samples from %2 %4 every %3 %4")
                                .arg(scan.samples())
                                .arg(digits(scan.firstSample), digits(scan.interval), unit);
    if (!(scan.interval > 0))
        remarks.prevents(QStringLiteral("The sample interval is %1. Say what it is.").arg(digits(scan.interval)));
    else if (scan.choice.domain)
        remarks.found(QStringLiteral("%1.").arg(samples));
    else
        remarks.assumed(QStringLiteral("%1: time, since no header tells time from depth.").arg(samples));
}

/// Whether numbers could be angles in the units that the first header names (2 seconds of arc, 3 degrees).
bool canBeAngles(std::int32_t units, double largest)
{
    constexpr double degrees = 360.0;
    constexpr double secondsOfArc = degrees * 3600.0;
    return (units == 2 && largest <= secondsOfArc) || (units == 3 && largest <= degrees) || units == 4;
}

void judgeCoordinates(Scan& scan, const Survey& survey)
{
    Remarks& remarks = scan.remarks;
    const Positions& at = scan.positions;
    if (!at.x.isSet() || !at.y.isSet() || survey.fit().count() == 0) {
        remarks.assumed(QStringLiteral("The traces have no coordinates; the volume stands in its line numbers."));
        return;
    }
    const QString where =
        QStringLiteral("Coordinates are read from the bytes %1 and %2 with the scalar in %3")
            .arg(textOf(at.x), textOf(at.y), at.scalar.isSet() ? textOf(at.scalar) : QStringLiteral("none"));
    if (scan.choice.positions.x && scan.choice.positions.y)
        remarks.found(QStringLiteral("%1, as was asked for.").arg(where));
    else
        remarks.assumed(QStringLiteral("%1: %2.").arg(where, scan.guess.coordinateReason));
    if (scan.counts.withoutCoordinates > 0)
        remarks.doubtful(QStringLiteral("%1 traces have coordinates of 0, which are passed over.")
                             .arg(scan.counts.withoutCoordinates));
    if (canBeAngles(survey.units(), survey.largestCoordinate()))
        remarks.doubtful(QStringLiteral(
            "The headers say that coordinates are angles; they are taken as they are, without a projection."));
    else if (survey.units() > 1)
        remarks.assumed(QStringLiteral(
            "The headers say that coordinates are angles, for which they are too large; they are taken as lengths."));
    const std::optional<SurveyPlane> plane = survey.fit().solve();
    if (!plane) {
        remarks.doubtful(QStringLiteral(
            "The coordinates do not change with both line numbers; the volume stands in its line numbers."));
        return;
    }
    const auto bin = [](const Point& step, const LineRange& range) {
        return std::hypot(step.x, step.y) * static_cast<double>(range.step);
    };
    const double alongCrosslines = bin(plane->perInline, scan.inlines);
    const double alongInlines = bin(plane->perCrossline, scan.crosslines);
    if (plane->rms > std::min(alongCrosslines, alongInlines) / 2) {
        remarks.doubtful(
            QStringLiteral("The coordinates do not go with straight lines: they lie %1 apart from them (root mean "
                           "square), with lines %2 and %3 apart; the volume stands in its line numbers.")
                .arg(digits(plane->rms), digits(alongCrosslines), digits(alongInlines)));
        return;
    }
    scan.survey = plane;
    remarks.found(
        QStringLiteral(
            "Inlines are %1 apart, crosslines %2; coordinates lie %3 from there (root mean square), at most %4.")
            .arg(digits(alongCrosslines), digits(alongInlines), digits(plane->rms), digits(plane->largest)));
    if (plane->isOneLine)
        remarks.assumed(
            QStringLiteral("There is one line; its direction is known, the one across it is taken at a right angle."));
}

/// False, with the reason in the remarks, when the lines make no volume.
bool judgeSize(Scan& scan)
{
    if (scan.counts.inside == 0) {
        scan.remarks.prevents(QStringLiteral("No trace has line numbers between those that were asked for."));
        return false;
    }
    const bool isTooLarge = scan.inlines.count() > g_largestExtent || scan.crosslines.count() > g_largestExtent;
    const double cells = static_cast<double>(scan.inlines.count()) * static_cast<double>(scan.crosslines.count());
    const auto most =
        static_cast<double>(std::min(g_mostCells, std::max(g_smallVolume, g_cellsPerTrace * scan.counts.inside)));
    if (!isTooLarge && cells <= most)
        return true;
    scan.remarks.prevents(
        QStringLiteral("The numbers in the bytes %1 and %2 (inlines %3, crosslines %4) would make a volume of %5 "
                       "cells for %6 traces. Name other bytes, or the lines that are to be read.")
            .arg(textOf(scan.positions.inlineNumber), textOf(scan.positions.crosslineNumber), rangeText(scan.inlines),
                 rangeText(scan.crosslines))
            .arg(cells, 0, 'g', 3)
            .arg(scan.counts.inside));
    return false;
}

} // namespace

QString nameOf(Sorting sorting)
{
    switch (sorting) {
    case Sorting::Inlines:
        return QStringLiteral("inlines");
    case Sorting::Crosslines:
        return QStringLiteral("crosslines");
    case Sorting::SingleLine:
        return QStringLiteral("a single line");
    case Sorting::Unsorted:
        break;
    }
    return QStringLiteral("neither inlines nor crosslines");
}

TraceIndex::TraceIndex(std::int64_t traces) : m_perZone(1)
{
    constexpr std::int64_t mostZones = std::int64_t(1) << 21;
    while (traces > m_perZone * mostZones)
        m_perZone *= 2;
    m_zones.reserve(static_cast<std::size_t>((traces + m_perZone - 1) / m_perZone));
}

void TraceIndex::add(std::int64_t trace, std::int32_t inlineNumber, std::int32_t crosslineNumber)
{
    if (trace % m_perZone == 0) {
        m_zones.push_back({inlineNumber, inlineNumber, crosslineNumber, crosslineNumber});
        return;
    }
    Zone& zone = m_zones.back();
    zone.firstInline = std::min(zone.firstInline, inlineNumber);
    zone.lastInline = std::max(zone.lastInline, inlineNumber);
    zone.firstCrossline = std::min(zone.firstCrossline, crosslineNumber);
    zone.lastCrossline = std::max(zone.lastCrossline, crosslineNumber);
}

Result<std::shared_ptr<const Scan>> scan(const QString& path, const ScanChoice& choice, JobContext& context)
{
    Result<std::shared_ptr<const SegyFile>> file = SegyFile::open(path, choice.format);
    if (!file)
        return file.failure();
    auto made = std::make_shared<Scan>();
    made->file = *file;
    made->choice = choice;
    made->remarks = made->file->remarks();
    Result<PositionGuess> guess = guessPositions(*made->file, choice.positions);
    if (!guess)
        return guess.failure();
    made->guess = *guess;
    made->positions = guess->positions;
    judgePositions(*made);

    const std::int64_t traces = made->file->layout().traces;
    context.setSteps(2 * traces);
    made->index = TraceIndex(traces);
    Survey survey(*made);
    const auto see = [&survey](std::int64_t trace, const std::byte* header) { survey.see(trace, header); };
    if (Result<void> walked = walkHeaders(*made->file, 0, traces, context, see); !walked)
        return walked.failure();
    made->inlines = survey.inlines();
    made->crosslines = survey.crosslines();
    made->sorting = survey.sorting();
    if (judgeSize(*made)) {
        if (Result<void> counted = countCells(*made, context); !counted)
            return counted.failure();
        judgeLines(*made);
    }
    judgeTraces(*made, survey);
    judgeSamples(*made, survey);
    judgeCoordinates(*made, survey);
    if (Result<void> unchanged = made->file->checkUnchanged(); !unchanged)
        return unchanged.failure();
    return std::shared_ptr<const Scan>(std::move(made));
}

std::vector<std::pair<QString, QString>> describe(const Scan& scan)
{
    const Layout& layout = scan.file->layout();
    std::vector<std::pair<QString, QString>> rows{
        {QStringLiteral("File"), QFileInfo(scan.file->path()).fileName()},
        {QStringLiteral("Format"),
         QStringLiteral("SEG-Y revision %1.%2").arg(layout.majorRevision).arg(layout.minorRevision)},
        {QStringLiteral("Size"), QStringLiteral("%1 bytes").arg(layout.fileBytes)},
        {QStringLiteral("Traces"), QString::number(layout.traces)},
        {QStringLiteral("Samples"), QString::number(layout.samples)},
        {QStringLiteral("Inlines"), rangeText(scan.inlines)},
        {QStringLiteral("Crosslines"), rangeText(scan.crosslines)},
    };
    for (const Remark& remark : scan.remarks.all()) {
        const char* const label = remark.weight == Remark::Weight::Found      ? "Found"
                                  : remark.weight == Remark::Weight::Assumed  ? "Assumed"
                                  : remark.weight == Remark::Weight::Doubtful ? "Doubtful"
                                                                              : "Needed";
        rows.emplace_back(QString::fromLatin1(label), remark.text);
    }
    return rows;
}

} // namespace hv::segy
