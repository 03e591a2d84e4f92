#include "host/georef/PointConversion.h"

#include "host/core/Transform.h"
#include "host/georef/BlocSpace.h"

#include <algorithm>

namespace georef {

namespace {

const core::mat4* toBlock(const BlocSpace& space, Frame from)
{
    return from == Frame::Survey  ? &space.fromSurveyToBlock()
           : from == Frame::World ? &space.fromWorldToBlock()
                                  : nullptr;
}

const core::mat4* fromBlock(const BlocSpace& space, Frame to)
{
    return to == Frame::Survey ? &space.fromBlockToSurvey() : to == Frame::World ? &space.fromBlockToWorld() : nullptr;
}

} // namespace

core::vec3 convertPoint(const BlocSpace& space, Frame from, Frame to, const core::vec3& point)
{
    core::vec3 result = point;
    if (from == to)
        return result;
    if (const core::mat4* first = toBlock(space, from))
        result = transform(*first, result);
    if (const core::mat4* second = fromBlock(space, to))
        result = transform(*second, result);
    return result;
}

void convertPoints(const BlocSpace& space, Frame from, Frame to, const core::vec3* in, core::vec3* out,
                   std::size_t count)
{
    const core::mat4* first = from == to ? nullptr : toBlock(space, from);
    const core::mat4* second = from == to ? nullptr : fromBlock(space, to);
    // Pieces that stay in the cache: the second matrix finds the points of the first there.
    constexpr std::size_t Piece = 512;
    for (std::size_t i = 0; i < count; i += Piece) {
        const std::size_t n = std::min(Piece, count - i);
        const core::vec3* source = in + i;
        if (first) {
            transformPoints(*first, source, out + i, n);
            source = out + i;
        }
        if (second)
            transformPoints(*second, source, out + i, n);
        else if (!first && in != out)
            std::copy_n(source, n, out + i);
    }
}

} // namespace georef
