#include "host/georef/BlocSpace.h"

#include "host/core/Transform.h"

#include <algorithm>
#include <cmath>

namespace georef {

namespace {

bool isFinite(const core::vec3& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

bool isFinite(const core::mat4& m)
{
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            if (!std::isfinite(m[r][c]))
                return false;
    return true;
}

/// The three axes enclose a volume: judged by the sine-like ratio of the enclosed volume to the product of the lengths,
/// so it is independent of the units. Map coordinates of 1e7 leave errors near 1e-12 in that ratio.
bool spanVolume(core::vec3 x, core::vec3 y, core::vec3 z)
{
    constexpr double SmallestRatio = 1e-9;
    return std::fabs(dot(cross(x.normalize(), y.normalize()), z.normalize())) > SmallestRatio;
}

} // namespace

BlocSpace::TransformPair BlocSpace::swappedAxes()
{
    // Its own inverse.
    const core::mat4 swap({0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1});
    return {swap, swap};
}

void BlocSpace::setExtents(int width, int height, int length)
{
    m_width = width;
    m_height = height;
    m_length = length;
}

BlocSpace::Refusal BlocSpace::setPair(TransformPair& pair, const core::mat4& forward)
{
    const auto backward = forward.inverse();
    if (!backward || !isFinite(forward) || !isFinite(*backward))
        return "the matrix is not invertible";
    pair = {forward, *backward};
    return {};
}

BlocSpace::Refusal BlocSpace::setFromPoints(TransformPair& pair, const core::vec3& origin, const core::vec3& endX,
                                            const core::vec3& endY, const core::vec3& endZ) const
{
    if (!isValid())
        return "the dimensions of the block can not be less than 1";
    if (!isFinite(origin) || !isFinite(endX) || !isFinite(endY) || !isFinite(endZ))
        return "the reference points must be finite";
    const core::vec3 x = endX - origin;
    const core::vec3 y = endY - origin;
    const core::vec3 z = endZ - origin;
    if (!spanVolume(x, y, z))
        return "the four reference points must not lie on one plane";
    // The matrix of the four given points times the inverse of the matrix of the four block points, multiplied out:
    // each column is the step of one cell. This way the last row is exactly 0 0 0 1.
    const double dx = std::max(m_width - 1, 1);
    const double dy = std::max(m_height - 1, 1);
    const double dz = std::max(m_length - 1, 1);
    return setPair(pair, core::mat4({x.x / dx, y.x / dy, z.x / dz, origin.x}, {x.y / dx, y.y / dy, z.y / dz, origin.y},
                                    {x.z / dx, y.z / dy, z.z / dz, origin.z}, {0.0, 0.0, 0.0, 1.0}));
}

BlocSpace::Refusal BlocSpace::setSurveySpace(const core::vec3& origin, const core::vec3& endX, const core::vec3& endY,
                                             const core::vec3& endZ)
{
    return setFromPoints(m_survey, origin, endX, endY, endZ);
}

BlocSpace::Refusal BlocSpace::setWorldSpace(const core::vec3& origin, const core::vec3& endX, const core::vec3& endY,
                                            const core::vec3& endZ)
{
    return setFromPoints(m_world, origin, endX, endY, endZ);
}

BlocSpace::Refusal BlocSpace::setSurveySpace(double firstCrossline, double lastCrossline, double firstInline,
                                             double lastInline, double firstSample, double lastSample)
{
    const auto last = [](int extent, double first, double given) {
        return extent == 1 && given == first ? first + 1.0 : given;
    };
    return setSurveySpace({firstInline, firstCrossline, firstSample},
                          {firstInline, last(m_width, firstCrossline, lastCrossline), firstSample},
                          {last(m_height, firstInline, lastInline), firstCrossline, firstSample},
                          {firstInline, firstCrossline, last(m_length, firstSample, lastSample)});
}

BlocSpace::Refusal BlocSpace::setFromBlockToSurvey(const core::mat4& matrix)
{
    return setPair(m_survey, matrix);
}

BlocSpace::Refusal BlocSpace::setFromBlockToWorld(const core::mat4& matrix)
{
    return setPair(m_world, matrix);
}

BlocSpace::Refusal BlocSpace::setFromSurveyToBlock(const core::mat4& matrix)
{
    TransformPair pair;
    Refusal refusal = setPair(pair, matrix);
    if (refusal.empty())
        m_survey = {pair.backward, pair.forward};
    return refusal;
}

BlocSpace::Refusal BlocSpace::setFromWorldToBlock(const core::mat4& matrix)
{
    TransformPair pair;
    Refusal refusal = setPair(pair, matrix);
    if (refusal.empty())
        m_world = {pair.backward, pair.forward};
    return refusal;
}

float BlocSpace::resolution(const core::vec3& step) const
{
    const core::vec3 cell = transform(m_survey.forward, step) - transform(m_survey.forward, core::vec3());
    return static_cast<float>(cell.length());
}

} // namespace georef
