#pragma once

#include "host/georef/Enumerations.h"
#include "host/jobs/JobContext.h"
#include "host/segy/PositionGuess.h"
#include "host/segy/SurveyFit.h"

namespace hv::segy {

/// How a file is to be looked at. Everything unset is found out.
struct ScanChoice
{
    FormatChoice format;
    PositionChoice positions;
    /// Numbers between which lines are looked at; traces outside do not count. Steps are not used.
    std::optional<LineRange> inlines, crosslines;
    /// Time unless it is said; no header tells.
    std::optional<georef::Domain> domain;
    /// In milliseconds, or units of depth.
    std::optional<double> interval;
    std::optional<double> firstSample;
};

/// In which lines the traces come.
enum class Sorting
{
    Inlines,
    Crosslines,
    SingleLine,
    Unsorted,
};

QString nameOf(Sorting sorting);

/// Which lines stand where in the file: the least and largest numbers of a number of traces in a row. Bounded to a few
/// megabytes whatever the size of the file.
class TraceIndex
{
public:
    struct Zone
    {
        std::int32_t firstInline, lastInline;
        std::int32_t firstCrossline, lastCrossline;
    };

    explicit TraceIndex(std::int64_t traces = 0);
    void add(std::int64_t trace, std::int32_t inlineNumber, std::int32_t crosslineNumber);

    std::int64_t tracesPerZone() const { return m_perZone; }
    const std::vector<Zone>& zones() const { return m_zones; }

private:
    std::int64_t m_perZone;
    std::vector<Zone> m_zones;
};

/// Counts of traces, unless said otherwise.
struct ScanCounts
{
    /// With numbers between which lines are looked at; the ones after these are among them.
    std::int64_t inside = 0;
    /// Cells with at least one trace, and traces beyond the first of a cell.
    std::int64_t cells = 0;
    std::int64_t doubled = 0;
    /// Marked as dead (trace identification 2).
    std::int64_t dead = 0;
    std::int64_t withoutCoordinates = 0;
    /// The header names a length, interval or start that is not that of the volume.
    std::int64_t otherLength = 0;
    std::int64_t otherInterval = 0;
    std::int64_t otherStart = 0;
    /// Line numbers of the regular range that no trace has.
    std::int64_t missingInlines = 0;
    std::int64_t missingCrosslines = 0;
    std::int32_t leastOffset = 0;
    std::int32_t largestOffset = 0;
};

/// What a SEG-Y file holds, from all of its trace headers. Immutable; any thread.
struct Scan
{
    std::shared_ptr<const SegyFile> file;
    ScanChoice choice;
    PositionGuess guess;
    Positions positions;
    LineRange inlines, crosslines;
    Sorting sorting = Sorting::Unsorted;
    ScanCounts counts;
    /// None: the file has no usable coordinates, lines stand in their numbers.
    std::optional<SurveyPlane> survey;
    georef::Domain domain = georef::Domain::Time;
    georef::Unit unit = georef::Unit::Milliseconds;
    /// In the unit.
    double firstSample = 0;
    double interval = 0;
    TraceIndex index;
    Remarks remarks;

    std::int64_t samples() const { return file->layout().samples; }
    std::int64_t cells() const { return inlines.count() * crosslines.count(); }
    std::int64_t missing() const { return cells() - counts.cells; }

    /// The line numbers of a trace of the file.
    std::int32_t inlineOf(const std::byte* header) const
    {
        return positions.inlineNumber.isSet() ? valueAt(header, positions.inlineNumber, file->layout().order) : 1;
    }
    std::int32_t crosslineOf(std::int64_t trace, const std::byte* header) const
    {
        return positions.crosslineNumber.isSet() ? valueAt(header, positions.crosslineNumber, file->layout().order)
                                                 : static_cast<std::int32_t>(trace + 1);
    }
};

/// Looks through the whole file. What is wrong with it but does not keep it from being read stands in the remarks.
Result<std::shared_ptr<const Scan>> scan(const QString& path, const ScanChoice& choice, JobContext& context);

/// Rows of label and text that describe the file: for `strativo info`, dialogs and tool tips.
std::vector<std::pair<QString, QString>> describe(const Scan& scan);

} // namespace hv::segy
