#include "host/segy/PositionGuess.h"

#include "host/segy/SurveyFit.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace hv::segy {

namespace {

constexpr std::int64_t g_groups = 16;
constexpr std::int64_t g_groupTraces = 128;
/// A volume is not so empty that fewer of its cells have traces.
constexpr double g_leastCoverage = 0.02;
/// Each cell has its own trace, but for some that are doubled ...
constexpr double g_leastDistinct = 0.5;
/// ... or the file has many traces everywhere.
constexpr double g_fold = 1.5;

struct Pair
{
    Position inlineNumber;
    Position crosslineNumber;
    /// For habits of the field.
    double bonus;
    const char* habit;
};

constexpr Position g_none{0, 4};
constexpr std::array g_pairs{
    Pair{{189}, {193}, 1.0, "the bytes of the standard"},
    Pair{{9}, {21}, 0.6, "common in files of revision 0"},
    Pair{{189}, {21}, 0.4, nullptr},
    Pair{{9}, {193}, 0.3, nullptr},
    Pair{{181}, {185}, 0.3, nullptr},
    Pair{{17}, {21}, 0.2, nullptr},
    Pair{{9}, {13}, 0.1, nullptr},
    Pair{{9}, {25}, 0.1, nullptr},
    Pair{{9}, {17}, 0.1, nullptr},
    Pair{g_none, {193}, -0.9, "a single line"},
    Pair{g_none, {21}, -1.0, "a single line"},
    Pair{g_none, {17}, -1.1, "a single line"},
};

/// Headers of traces that follow each other in the file, group after group.
struct Sampled
{
    std::vector<std::array<std::byte, g_headerBytes>> headers;
    /// How many traces a group has.
    std::int64_t group = 0;
    std::int64_t tracesOfFile = 0;
    ByteOrder order = ByteOrder::Big;

    std::vector<std::int64_t> values(Position position) const
    {
        std::vector<std::int64_t> all;
        all.reserve(headers.size());
        for (const auto& header : headers)
            all.push_back(valueAt(header.data(), position, order));
        return all;
    }
};

Result<Sampled> sample(const SegyFile& file)
{
    Sampled sampled;
    sampled.order = file.layout().order;
    sampled.tracesOfFile = file.layout().traces;
    const bool isAll = sampled.tracesOfFile <= g_groups * g_groupTraces;
    sampled.group = isAll ? sampled.tracesOfFile : g_groupTraces;
    const std::int64_t groups = isAll ? 1 : g_groups;
    for (std::int64_t group = 0; group < groups; ++group) {
        const std::int64_t first = isAll ? 0 : (sampled.tracesOfFile - sampled.group) * group / (groups - 1);
        for (std::int64_t i = 0; i < sampled.group; ++i)
            if (Result<void> read = file.readHeader(first + i, sampled.headers.emplace_back().data()); !read)
                return read.failure();
    }
    return sampled;
}

/// Without the outermost half per cent at either end: a few broken headers make no field implausible.
LineRange rangeOf(std::vector<std::int64_t> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t spare = values.size() / 200;
    RangeFinder finder;
    for (std::size_t i = spare; i < values.size() - spare; ++i)
        finder.add(values[i]);
    return finder.range();
}

double distinctPart(const std::vector<std::int64_t>& a, const std::vector<std::int64_t>& b)
{
    std::vector<std::pair<std::int64_t, std::int64_t>> pairs;
    for (std::size_t i = 0; i < a.size(); ++i)
        pairs.emplace_back(a[i], b[i]);
    std::sort(pairs.begin(), pairs.end());
    const auto end = std::unique(pairs.begin(), pairs.end());
    return static_cast<double>(end - pairs.begin()) / static_cast<double>(pairs.size());
}

/// The part of neighbouring traces of which exactly one number differs, as along a line.
double alongLines(const Sampled& sampled, const std::vector<std::int64_t>& a, const std::vector<std::int64_t>& b)
{
    std::int64_t along = 0;
    std::int64_t all = 0;
    for (std::size_t i = 1; i < a.size(); ++i) {
        if (static_cast<std::int64_t>(i) % sampled.group == 0)
            continue;
        ++all;
        along += (a[i] == a[i - 1]) != (b[i] == b[i - 1]);
    }
    return all == 0 ? 1 : static_cast<double>(along) / static_cast<double>(all);
}

QString lines(const LineRange& range, const QString& kind)
{
    if (range.count() == 1)
        return QStringLiteral("%1 %2 only").arg(kind).arg(range.first);
    return QStringLiteral("%1s %2 to %3%4")
        .arg(kind)
        .arg(range.first)
        .arg(range.last)
        .arg(range.step == 1 ? QString() : QStringLiteral(" by %1").arg(range.step));
}

LineGuess judge(const Sampled& sampled, const Pair& pair)
{
    const std::vector<std::int64_t> a = sampled.values(pair.inlineNumber);
    const std::vector<std::int64_t> b = sampled.values(pair.crosslineNumber);
    const LineRange inlines = rangeOf(a);
    const LineRange crosslines = rangeOf(b);
    LineGuess guess{pair.inlineNumber, pair.crosslineNumber, -1, {}};
    QStringList reason;
    if (pair.inlineNumber.isSet())
        reason << lines(inlines, QStringLiteral("inline"));
    reason << lines(crosslines, QStringLiteral("crossline"));
    const double distinct = distinctPart(a, b);
    const double cells = static_cast<double>(inlines.count()) * static_cast<double>(crosslines.count());
    const double coverage = static_cast<double>(sampled.tracesOfFile) / cells;
    const double along = alongLines(sampled, a, b);
    if (cells == 1 && sampled.tracesOfFile > 1) {
        reason << QStringLiteral("the same in all traces");
    } else if (coverage < g_leastCoverage) {
        reason << QStringLiteral("far more cells than traces");
    } else if (distinct < g_leastDistinct && coverage < g_fold) {
        reason << QStringLiteral("many traces share their numbers");
    } else {
        if (distinct == 1.0)
            reason << QStringLiteral("every trace has its own");
        if (distinct < g_leastDistinct)
            reason << QStringLiteral("several traces share their numbers");
        if (pair.habit)
            reason << QString::fromLatin1(pair.habit);
        guess.score = std::max(0.0, std::min(coverage, 1.0) + distinct + along + pair.bonus);
    }
    guess.reason = reason.join(QStringLiteral(", "));
    return guess;
}

std::vector<LineGuess> judgeLines(const Sampled& sampled, const PositionChoice& choice)
{
    std::vector<LineGuess> guesses;
    for (Pair pair : g_pairs) {
        const bool isChanged = choice.inlineNumber || choice.crosslineNumber;
        pair.inlineNumber = choice.inlineNumber.value_or(pair.inlineNumber);
        pair.crosslineNumber = choice.crosslineNumber.value_or(pair.crosslineNumber);
        if (isChanged)
            pair.habit = nullptr;
        const bool isKnown = std::any_of(guesses.begin(), guesses.end(), [&pair](const LineGuess& guess) {
            return guess.inlineNumber == pair.inlineNumber && guess.crosslineNumber == pair.crosslineNumber;
        });
        if (!isKnown && !(pair.inlineNumber == pair.crosslineNumber && pair.inlineNumber.isSet()))
            guesses.push_back(judge(sampled, pair));
    }
    std::stable_sort(guesses.begin(), guesses.end(),
                     [](const LineGuess& a, const LineGuess& b) { return a.score > b.score; });
    return guesses;
}

/// The coordinates among `candidates` that lie best on a plane with the lines.
void guessCoordinates(const Sampled& sampled, PositionGuess& guess)
{
    constexpr std::array<std::pair<int, int>, 3> candidates{{{181, 185}, {73, 77}, {81, 85}}};
    const std::vector<std::int64_t> a = sampled.values(guess.positions.inlineNumber);
    const std::vector<std::int64_t> b = sampled.values(guess.positions.crosslineNumber);
    double best = std::numeric_limits<double>::infinity();
    guess.positions.x = guess.positions.y = g_none;
    guess.coordinateReason = QStringLiteral("no bytes hold coordinates");
    for (const auto& [byteX, byteY] : candidates) {
        const Position x{byteX};
        const Position y{byteY};
        if (x == guess.positions.inlineNumber || y == guess.positions.crosslineNumber)
            continue;
        const std::vector<std::int64_t> xs = sampled.values(x);
        const std::vector<std::int64_t> ys = sampled.values(y);
        SurveyFit fit;
        for (std::size_t i = 0; i < a.size(); ++i) {
            const double factor =
                scalarFactor(valueAt(sampled.headers[i].data(), guess.positions.scalar, sampled.order));
            if (xs[i] != 0 || ys[i] != 0)
                fit.add(static_cast<double>(a[i]), static_cast<double>(b[i]), static_cast<double>(xs[i]) * factor,
                        static_cast<double>(ys[i]) * factor);
        }
        if (fit.count() == 0)
            continue;
        // Coordinates that fit no plane are still better named than none: the user sees what is wrong with them.
        const std::optional<SurveyPlane> plane = fit.solve();
        const double rms = plane ? plane->rms : std::numeric_limits<double>::max();
        if (rms < best * 0.5) {
            best = rms;
            guess.positions.x = x;
            guess.positions.y = y;
            guess.coordinateReason = plane ? QStringLiteral("the lines are straight in them")
                                           : QStringLiteral("the only ones that are not 0");
        }
    }
}

} // namespace

double scalarFactor(std::int32_t scalar)
{
    return scalar == 0 ? 1.0 : scalar > 0 ? scalar : -1.0 / scalar;
}

Result<PositionGuess> guessPositions(const SegyFile& file, const PositionChoice& choice)
{
    const Result<Sampled> sampled = sample(file);
    if (!sampled)
        return sampled.failure();
    PositionGuess guess;
    guess.positions.scalar = choice.scalar.value_or(guess.positions.scalar);
    guess.lines = judgeLines(*sampled, choice);
    guess.positions.inlineNumber = guess.lines.front().inlineNumber;
    guess.positions.crosslineNumber = guess.lines.front().crosslineNumber;
    guessCoordinates(*sampled, guess);
    guess.positions.x = choice.x.value_or(guess.positions.x);
    guess.positions.y = choice.y.value_or(guess.positions.y);
    return guess;
}

} // namespace hv::segy
