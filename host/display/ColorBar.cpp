#include "host/display/ColorBar.h"

#include "host/img/Statistics.h"

#include <algorithm>
#include <cmath>

namespace display {

namespace {

/// Entry i stands for the place i / 255, so that both ends show their own colours.
double positionOf(int entry)
{
    return entry / static_cast<double>(ColorBar::Count - 1);
}

bool areBounds(int first, int last)
{
    return first >= 0 && first < last && last < ColorBar::Count;
}

} // namespace

ColorBar::ColorBar()
{
    setPoints({{0, qRgb(0, 0, 0)}, {1, qRgb(255, 255, 255)}});
}

void ColorBar::setColors(const Colors& colors)
{
    m_colors = colors;
    m_points.clear();
}

bool ColorBar::setColor(int entry, QRgb color)
{
    if (entry < 0 || entry >= Count)
        return false;
    m_colors[static_cast<std::size_t>(entry)] = color;
    m_points.clear();
    return true;
}

bool ColorBar::setBands(const QVector<QRgb>& bands)
{
    const int count = bands.size();
    if (count < 1 || count > Count)
        return false;
    QVector<ColorPoint> points;
    for (int band = 0; band < count; ++band) {
        points.append({band / static_cast<double>(count), bands[band]});
        points.append({(band + 1) / static_cast<double>(count), bands[band]});
    }
    return setPoints(points);
}

bool ColorBar::setPoints(const QVector<ColorPoint>& points, ColorSpace space)
{
    const auto isBefore = [](const ColorPoint& a, const ColorPoint& b) { return a.position < b.position; };
    if (points.size() < 2 || points.first().position != 0 || points.last().position != 1 ||
        !std::is_sorted(points.begin(), points.end(), isBefore))
        return false;
    // An edge belongs to the colour above it, also when its position was rounded on the way through a file.
    constexpr double rounding = 1e-9;
    int next = 1;
    for (int entry = 0; entry < Count; ++entry) {
        const double position = positionOf(entry);
        while (next < points.size() - 1 && points[next].position <= position + rounding)
            ++next;
        const ColorPoint& from = points[next - 1];
        const ColorPoint& to = points[next];
        const double width = to.position - from.position;
        m_colors[static_cast<std::size_t>(entry)] =
            mix(from.color, to.color, width > 0 ? (position - from.position) / width : 1, space);
    }
    m_points = space == ColorSpace::RGB ? points : QVector<ColorPoint>();
    return true;
}

bool ColorBar::setRange(double minimum, double maximum)
{
    if (!std::isfinite(maximum - minimum) || !(minimum < maximum))
        return false;
    m_minimum = minimum;
    m_maximum = maximum;
    return true;
}

int ColorBar::entryAt(double position)
{
    return static_cast<int>(std::clamp(std::floor(position * Count), 0.0, Count - 1.0));
}

QRgb ColorBar::colorOf(double value) const
{
    if (std::isnan(value) || value == static_cast<double>(img::NoValue))
        return m_noValueColor;
    if (value < m_minimum)
        return m_belowColor.value_or(m_colors.front());
    if (value > m_maximum)
        return m_aboveColor.value_or(m_colors.back());
    return m_colors[static_cast<std::size_t>(entryAt((value - m_minimum) / (m_maximum - m_minimum)))];
}

bool ColorBar::setBounds(int first, int last)
{
    if (!areBounds(first, last))
        return false;
    m_firstBound = first;
    m_lastBound = last;
    return true;
}

void ColorBar::interpolate()
{
    interpolate(m_firstBound, m_lastBound);
}

bool ColorBar::interpolate(int first, int last, ColorSpace space)
{
    if (!areBounds(first, last) || !isColorSpace(space))
        return false;
    const QRgb from = m_colors[static_cast<std::size_t>(first)];
    const QRgb to = m_colors[static_cast<std::size_t>(last)];
    for (int entry = first + 1; entry < last; ++entry)
        m_colors[static_cast<std::size_t>(entry)] =
            mix(from, to, (entry - first) / static_cast<double>(last - first), space);
    m_points.clear();
    return true;
}

bool ColorBar::stretch(int first, int last, bool blend)
{
    if (!areBounds(first, last))
        return false;
    const Colors old = m_colors;
    for (int entry = 0; entry < Count; ++entry) {
        const double place = first + positionOf(entry) * (last - first);
        const auto below = static_cast<std::size_t>(blend ? std::floor(place) : std::round(place));
        const QRgb next = old[std::min<std::size_t>(below + 1, Count - 1)];
        m_colors[static_cast<std::size_t>(entry)] =
            blend ? mix(old[below], next, place - static_cast<double>(below), ColorSpace::RGB) : old[below];
    }
    m_points.clear();
    return true;
}

} // namespace display
