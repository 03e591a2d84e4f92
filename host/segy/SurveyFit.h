#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace hv::segy {

struct Point
{
    double x = 0;
    double y = 0;
};

/// A plane survey: the map position of (inline, crossline) is origin + inline * perInline + crossline * perCrossline.
struct SurveyPlane
{
    Point origin;
    Point perInline;
    Point perCrossline;
    /// Distances of the given points from their places here: the root of the mean square, and the largest one of those
    /// that were looked at again (about 4000, evenly spread).
    double rms = 0;
    double largest = 0;
    /// All lines in one direction were the same one; the other direction was taken at a right angle, as far as this
    /// one.
    bool isOneLine = false;

    Point at(double inlineNumber, double crosslineNumber) const
    {
        return {origin.x + inlineNumber * perInline.x + crosslineNumber * perCrossline.x,
                origin.y + inlineNumber * perInline.y + crosslineNumber * perCrossline.y};
    }
};

/// Least squares over running sums: any number of points in a few kilobytes.
class SurveyFit
{
public:
    void add(double inlineNumber, double crosslineNumber, double x, double y);
    std::int64_t count() const { return m_count; }

    /// None when the points do not span a plane or a line with one number running, or coordinates do not change.
    std::optional<SurveyPlane> solve() const;

private:
    struct Sample
    {
        double inlineNumber, crosslineNumber;
        Point point;
    };
    void keep(const Sample& sample);

    /// Wide, so that the sums of a hundred million squares still give the residual.
    using Sum = long double;

    std::int64_t m_count = 0;
    Sample m_origin{};
    Sum m_i = 0, m_j = 0, m_x = 0, m_y = 0;
    Sum m_ii = 0, m_ij = 0, m_jj = 0;
    Sum m_ix = 0, m_jx = 0, m_iy = 0, m_jy = 0, m_xx = 0, m_yy = 0;
    std::vector<Sample> m_samples;
    std::int64_t m_every = 1;
};

} // namespace hv::segy
