#include "host/display/Contouring.h"

#include <algorithm>
#include <cmath>

namespace display {

Contouring::Contouring(QObject* parent) : QObject(parent), m_pen(Qt::black, 1) {}

void Contouring::setVisible(bool isVisible)
{
    m_isVisible = isVisible;
    Q_EMIT changed();
}

void Contouring::setLimited(bool isLimited)
{
    m_isLimited = isLimited;
    Q_EMIT changed();
}

void Contouring::setMinimum(double minimum)
{
    m_minimum = minimum;
    Q_EMIT changed();
}

void Contouring::setMaximum(double maximum)
{
    m_maximum = maximum;
    Q_EMIT changed();
}

void Contouring::setMode(ContouringMode mode)
{
    m_mode = mode;
    Q_EMIT changed();
}

bool Contouring::setStep(double step)
{
    if (!(step > 0)) // also refuses not-a-number
        return false;
    m_step = step;
    Q_EMIT changed();
    return true;
}

void Contouring::setPen(const QPen& pen)
{
    m_pen = pen;
    Q_EMIT changed();
}

void Contouring::setValueRange(double minimum, double maximum)
{
    m_valueMinimum = minimum;
    m_valueMaximum = maximum;
    Q_EMIT changed();
}

std::vector<double> Contouring::levels(int most) const
{
    const double low = m_isLimited ? std::max(m_valueMinimum, m_minimum) : m_valueMinimum;
    const double high = m_isLimited ? std::min(m_valueMaximum, m_maximum) : m_valueMaximum;
    std::vector<double> levels;
    if (!(low <= high) || !std::isfinite(high / 2 - low / 2) || !std::isfinite(m_step))
        return levels;
    // Beyond the second bound neighbouring multiples are no longer different numbers.
    const double farthest = std::max(std::abs(low), std::abs(high));
    double step = m_step;
    while (std::floor(high / step) - std::ceil(low / step) >= most || farthest / step > 1e15)
        step *= 10;
    // Counted, not added up: the hundredth line lies where the hundredth multiple is.
    for (double multiple = std::ceil(low / step); multiple * step <= high; ++multiple)
        levels.push_back(multiple * step);
    return levels;
}

} // namespace display
