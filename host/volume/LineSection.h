#pragma once

#include "host/img/Image2d.h"
#include "host/volume/RandomLine.h"
#include "host/volume/VolumeFile.h"

namespace hv {

class JobContext;

/// How a trace between the traces of a volume is made.
enum class Interpolation
{
    Nearest, ///< the trace of the nearest bin
    Linear,  ///< from the four around it; those without a value do not count, but the nearest has to have one
};

/// A place of a section.
struct SectionTrace
{
    double distance; ///< along the line from its first node, in the unit of the world's coordinates
    double inlineNumber;
    double crossline; ///< survey numbers, not rounded
    double x;
    double y; ///< world
};

/// A vertical section of a volume along a line: trace by trace in x, samples downwards in y.
struct LineSection
{
    std::vector<SectionTrace> traces;
    std::unique_ptr<img::Image2d> image; ///< as wide as there are traces; the volume's noValue outside of it
};

/// `spacing` of the traces in the unit of the distance; 0 takes a trace for every bin that is crossed in the direction
/// in which the line crosses more of them. Nodes are always traces. Any thread; `context` may be null. Refused for more
/// than 1,000,000 traces.
Result<LineSection> sectionAlong(const VolumeFile& volume, const RandomLine& line, Interpolation interpolation,
                                 double spacing = 0.0, JobContext* context = nullptr);

} // namespace hv
