#pragma once

#include "host/segy/LineRange.h"
#include "host/segy/SegyFile.h"

namespace hv::segy {

/// Where in the trace headers the survey stands. What is not set: no inline number means a single line, neither number
/// that the traces are counted along one; no coordinates, the scalar 1.
struct Positions
{
    Position inlineNumber{189, 4};
    Position crosslineNumber{193, 4};
    Position x{181, 4};
    Position y{185, 4};
    Position scalar{71, 2};
    friend bool operator==(const Positions&, const Positions&) = default;
};

/// What the user says about positions; the others are guessed.
struct PositionChoice
{
    std::optional<Position> inlineNumber, crosslineNumber, x, y, scalar;
};

/// One possible reading of the line numbers.
struct LineGuess
{
    Position inlineNumber;
    Position crosslineNumber;
    /// The best one comes first. Below 0: it cannot be.
    double score = 0;
    /// Why, for the user.
    QString reason;
};

struct PositionGuess
{
    Positions positions;
    /// All that were compared, the best first. None that can be: the positions are not to be relied on.
    std::vector<LineGuess> lines;
    QString coordinateReason;

    bool isFound() const { return !lines.empty() && lines.front().score >= 0; }
};

/// Looks at some 2000 traces, in groups from the whole file.
Result<PositionGuess> guessPositions(const SegyFile& file, const PositionChoice& choice);

/// The factor that a scalar of the trace header stands for: 10 multiplies by 10, -10 divides by it, 0 stands for 1.
double scalarFactor(std::int32_t scalar);

} // namespace hv::segy
