#pragma once

#include "host/core/Vector.h"

#include <cstddef>

namespace georef {

class BlocSpace;

/// The three frames of points; BlocSpace says what their components are.
enum class Frame
{
    Block,
    Survey,
    World,
};

/// The point of frame `from` in frame `to`. Between survey and world the way leads through the block.
core::vec3 convertPoint(const BlocSpace& space, Frame from, Frame to, const core::vec3& point);

/// convertPoint() of `count` points, bit for bit, at the speed of memory. `out` may be `in`.
void convertPoints(const BlocSpace& space, Frame from, Frame to, const core::vec3* in, core::vec3* out,
                   std::size_t count);

} // namespace georef
