#pragma once

#include <algorithm>
#include <limits>

namespace hv {

/// Cells of a grid: ranges of line and sample indices from 0, each without its end. Everything unless stated.
struct CellRegion
{
    static constexpr int all = std::numeric_limits<int>::max();

    int firstInline = 0;
    int endInline = all;
    int firstCrossline = 0;
    int endCrossline = all;
    int firstSample = 0;
    int endSample = all;

    bool isEverything() const { return *this == CellRegion(); }
    /// The smallest region that holds both.
    CellRegion united(const CellRegion& other) const
    {
        return {std::min(firstInline, other.firstInline),       std::max(endInline, other.endInline),
                std::min(firstCrossline, other.firstCrossline), std::max(endCrossline, other.endCrossline),
                std::min(firstSample, other.firstSample),       std::max(endSample, other.endSample)};
    }

    friend bool operator==(const CellRegion&, const CellRegion&) = default;
};

} // namespace hv
