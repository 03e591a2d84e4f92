#pragma once

#include "host/core/Matrix.h"

namespace core {

/// The homogeneous rule: a point gets the extra coordinate 1, is multiplied by the matrix and the result is divided by
/// its last coordinate. That coordinate is not tested against zero: points on the vanishing plane become infinite or
/// not-a-number.
constexpr vec2 transform(const mat3& m, const vec2& p)
{
    const double w = m[2].x * p.x + m[2].y * p.y + m[2].z;
    return {(m[0].x * p.x + m[0].y * p.y + m[0].z) / w, (m[1].x * p.x + m[1].y * p.y + m[1].z) / w};
}

constexpr vec3 transform(const mat4& m, const vec3& p)
{
    const double w = m[3].x * p.x + m[3].y * p.y + m[3].z * p.z + m[3].w;
    return {(m[0].x * p.x + m[0].y * p.y + m[0].z * p.z + m[0].w) / w,
            (m[1].x * p.x + m[1].y * p.y + m[1].z * p.z + m[1].w) / w,
            (m[2].x * p.x + m[2].y * p.y + m[2].z * p.z + m[2].w) / w};
}

/// The homogeneous rule with the transposed matrix, as a row vector on the left of `m`.
constexpr vec2 transformTransposed(const mat3& m, const vec2& p)
{
    return transform(m.transposed(), p);
}

constexpr vec3 transformTransposed(const mat4& m, const vec3& p)
{
    return transform(m.transposed(), p);
}

/// transform() of `count` points, bit for bit. `out` may be `in` itself but must not overlap it otherwise.
/// Thread-safe; a million points cost what reading and writing their memory costs.
void transformPoints(const mat4& m, const vec3* in, vec3* out, std::size_t count);

} // namespace core
