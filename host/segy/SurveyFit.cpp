#include "host/segy/SurveyFit.h"

#include <algorithm>
#include <cmath>

namespace hv::segy {

namespace {

constexpr std::size_t g_mostSamples = 8192;
/// Of the product of two lengths: below it two directions are one.
constexpr double g_parallel = 1e-6;

} // namespace

void SurveyFit::keep(const Sample& sample)
{
    if (m_count % m_every != 0)
        return;
    if (m_samples.size() == g_mostSamples) {
        for (std::size_t i = 0; 2 * i < m_samples.size(); ++i)
            m_samples[i] = m_samples[2 * i];
        m_samples.resize(g_mostSamples / 2);
        m_every *= 2;
        if (m_count % m_every != 0)
            return;
    }
    m_samples.push_back(sample);
}

void SurveyFit::add(double inlineNumber, double crosslineNumber, double x, double y)
{
    const Sample sample{inlineNumber, crosslineNumber, {x, y}};
    if (m_count == 0)
        m_origin = sample;
    keep(sample);
    ++m_count;
    const Sum i = inlineNumber - m_origin.inlineNumber;
    const Sum j = crosslineNumber - m_origin.crosslineNumber;
    const Sum dx = x - m_origin.point.x;
    const Sum dy = y - m_origin.point.y;
    m_i += i;
    m_j += j;
    m_x += dx;
    m_y += dy;
    m_ii += i * i;
    m_ij += i * j;
    m_jj += j * j;
    m_ix += i * dx;
    m_jx += j * dx;
    m_iy += i * dy;
    m_jy += j * dy;
    m_xx += dx * dx;
    m_yy += dy * dy;
}

std::optional<SurveyPlane> SurveyFit::solve() const
{
    if (m_count < 2)
        return {};
    const Sum n = static_cast<Sum>(m_count);
    const auto centred = [n](Sum product, Sum a, Sum b) { return product - a * b / n; };
    const Sum ii = centred(m_ii, m_i, m_i);
    const Sum ij = centred(m_ij, m_i, m_j);
    const Sum jj = centred(m_jj, m_j, m_j);
    const Sum ix = centred(m_ix, m_i, m_x);
    const Sum jx = centred(m_jx, m_j, m_x);
    const Sum iy = centred(m_iy, m_i, m_y);
    const Sum jy = centred(m_jy, m_j, m_y);
    SurveyPlane plane;
    if (const Sum determinant = ii * jj - ij * ij; determinant > g_parallel * ii * jj && ii > 0 && jj > 0) {
        plane.perInline = {double((ix * jj - jx * ij) / determinant), double((iy * jj - jy * ij) / determinant)};
        plane.perCrossline = {double((jx * ii - ix * ij) / determinant), double((jy * ii - iy * ij) / determinant)};
    } else if (ii <= 0 && jj > 0) {
        plane.isOneLine = true;
        plane.perCrossline = {double(jx / jj), double(jy / jj)};
        plane.perInline = {-plane.perCrossline.y, plane.perCrossline.x};
    } else if (jj <= 0 && ii > 0) {
        plane.isOneLine = true;
        plane.perInline = {double(ix / ii), double(iy / ii)};
        plane.perCrossline = {plane.perInline.y, -plane.perInline.x};
    } else {
        return {};
    }
    const double alongInline = std::hypot(plane.perInline.x, plane.perInline.y);
    const double alongCrossline = std::hypot(plane.perCrossline.x, plane.perCrossline.y);
    const double area = plane.perInline.x * plane.perCrossline.y - plane.perInline.y * plane.perCrossline.x;
    if (!std::isfinite(area) || std::abs(area) <= g_parallel * alongInline * alongCrossline)
        return {};

    const auto centre = [n](Sum sum, double origin) { return origin + double(sum / n); };
    const double i = centre(m_i, m_origin.inlineNumber);
    const double j = centre(m_j, m_origin.crosslineNumber);
    plane.origin = {centre(m_x, m_origin.point.x) - i * plane.perInline.x - j * plane.perCrossline.x,
                    centre(m_y, m_origin.point.y) - i * plane.perInline.y - j * plane.perCrossline.y};
    // Of one line the other direction explains nothing: its products are 0.
    const Sum left = centred(m_xx, m_x, m_x) - plane.perInline.x * ix - plane.perCrossline.x * jx +
                     centred(m_yy, m_y, m_y) - plane.perInline.y * iy - plane.perCrossline.y * jy;
    plane.rms = std::sqrt(std::max(0.0, double(left / n)));
    for (const Sample& sample : m_samples) {
        const Point place = plane.at(sample.inlineNumber, sample.crosslineNumber);
        plane.largest = std::max(plane.largest, std::hypot(place.x - sample.point.x, place.y - sample.point.y));
    }
    return plane;
}

} // namespace hv::segy
