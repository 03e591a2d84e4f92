#include "host/core/Transform.h"

#include "host/core/Multiversion.h"

namespace core {

namespace {

/// One point at a time, its four results in the lanes of one register. `m` holds the matrix by columns.
///
/// A matrix with the last row 0 0 0 1 gives w = 1 for every finite point and not-a-number for the others; the product
/// then equals the quotient in every case and is much cheaper.
HV_MULTIVERSION void transformAffine(const double (&m)[4][4], const double* in, double* out, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, in += 3, out += 3) {
        const double x = in[0], y = in[1], z = in[2];
        double r[4];
        for (int lane = 0; lane < 4; ++lane)
            r[lane] = m[0][lane] * x + m[1][lane] * y + m[2][lane] * z + m[3][lane];
        const double w = r[3];
        for (int lane = 0; lane < 4; ++lane)
            r[lane] *= w;
        out[0] = r[0];
        out[1] = r[1];
        out[2] = r[2];
    }
}

HV_MULTIVERSION void transformProjective(const double (&m)[4][4], const double* in, double* out, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, in += 3, out += 3) {
        const double x = in[0], y = in[1], z = in[2];
        double r[4];
        for (int lane = 0; lane < 4; ++lane)
            r[lane] = m[0][lane] * x + m[1][lane] * y + m[2][lane] * z + m[3][lane];
        const double w = r[3];
        for (int lane = 0; lane < 4; ++lane)
            r[lane] /= w;
        out[0] = r[0];
        out[1] = r[1];
        out[2] = r[2];
    }
}

} // namespace

void transformPoints(const mat4& m, const vec3* in, vec3* out, std::size_t count)
{
    double columns[4][4];
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            columns[c][r] = m[r][c];
    const auto* from = reinterpret_cast<const double*>(in);
    auto* to = reinterpret_cast<double*>(out);
    if (m[3] == vec4(0.0, 0.0, 0.0, 1.0))
        transformAffine(columns, from, to, count);
    else
        transformProjective(columns, from, to, count);
}

} // namespace core
