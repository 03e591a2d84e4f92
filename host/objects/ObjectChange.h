#pragma once

#include "host/objects/ObjectKey.h"

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

/// What has happened to an object.
struct ObjectChange
{
    enum class What
    {
        Content,
        Renamed, ///< `key` is the new one
        Removed,
        Restored, ///< is there again after it was removed
    };

    ObjectKey key;
    What what;
    quint64 revision = 0;   ///< the object's after the change; 0 of an object that nobody holds
    CellRegion region = {}; ///< of Content: what differs
};

} // namespace hv

Q_DECLARE_METATYPE(hv::ObjectChange)
