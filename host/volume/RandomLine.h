#pragma once

#include "host/core/Result.h"
#include "host/core/Vector.h"
#include "host/georef/BlocSpace.h"
#include "host/georef/Crs.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace hv {

/// A line on the map along which sections of volumes are cut: straight from node to node. A value.
///
/// Its file is a text of GeoJSON, a FeatureCollection with one LineString, whose reference system is named as in the
/// format of 2008. The feature's properties are "kind": "random line", "name", "frame" and, where no registered system
/// is meant, "wkt".
struct RandomLine
{
    /// What the two numbers of a node are.
    enum class Frame
    {
        World,  ///< "world": map x and y
        Survey, ///< "survey": inline and crossline
    };

    QString name;
    Frame frame = Frame::World;
    std::vector<core::vec2> nodes; ///< two or more, finite
    georef::Crs crs;               ///< of Frame::World; may be null

    /// A fault in one sentence; empty for a line that can be used.
    QString fault() const;
    /// The nodes in the cells of a block: x counts crosslines, y inlines.
    std::vector<core::vec2> inBlock(const georef::BlocSpace& space) const;
};

QByteArray randomLineText(const RandomLine& line);
/// A failure is the reason alone.
Result<RandomLine> parseRandomLine(const QByteArray& text);

} // namespace hv
