#include "host/kinds/well/WellPicture.h"

#include <QPainter>
#include <QPalette>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace hv {

namespace {

constexpr double g_track = 90; // page units, also the others
constexpr double g_gap = 10;
constexpr double g_height = 300;
constexpr double g_head = 36;
constexpr double g_margin = 8;
constexpr std::size_t g_mostTracks = 8;
/// More points than this in a track differ by less than a pixel.
constexpr std::size_t g_mostPoints = 2000;

std::size_t tracks(const Well& well)
{
    return std::min(g_mostTracks, well.log.curves.size() - 1);
}

} // namespace

WellPicture::Range WellPicture::rangeOf(const std::vector<double>& samples)
{
    Range range{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (const double value : samples)
        if (std::isfinite(value))
            range = {std::min(range.low, value), std::max(range.high, value)};
    return range;
}

bool WellPicture::canShow(const Well& well)
{
    if (well.log.curves.size() < 2)
        return false;
    const Range depth = rangeOf(well.log.samples.front());
    return depth.low < depth.high;
}

WellPicture::WellPicture(std::shared_ptr<const Well> well)
    : m_well(std::move(well)), m_depth(rangeOf(m_well->log.samples.front()))
{}

QRectF WellPicture::page() const
{
    const double width = static_cast<double>(tracks(*m_well)) * (g_track + g_gap) - g_gap;
    return {-g_margin, -g_head, width + 2 * g_margin, g_head + g_height + g_margin};
}

void WellPicture::paint(QPainter& painter, const QFont& font, const QPalette& palette) const
{
    QFont small = font;
    small.setPixelSize(11);
    painter.setFont(small);
    for (std::size_t track = 0; track < tracks(*m_well); ++track) {
        painter.save();
        painter.translate(static_cast<double>(track) * (g_track + g_gap), 0);
        paintTrack(painter, palette, track + 1);
        painter.restore();
    }
}

void WellPicture::paintTrack(QPainter& painter, const QPalette& palette, std::size_t curve) const
{
    const las::Log& log = m_well->log;
    QPen line(palette.color(QPalette::Text));
    line.setCosmetic(true);
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0, 0, g_track, g_height));
    painter.drawText(QRectF(0, -g_head, g_track, 16), Qt::AlignCenter, log.curves[curve].mnemonic);
    const std::vector<double>& values = log.samples[curve];
    const Range range = rangeOf(values);
    if (!(range.low <= range.high))
        return;
    painter.drawText(QRectF(0, -18, g_track, 16), Qt::AlignLeft | Qt::AlignVCenter, QString::number(range.low, 'g', 4));
    painter.drawText(QRectF(0, -18, g_track, 16), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(range.high, 'g', 4));
    line.setColor(palette.color(QPalette::Highlight));
    painter.setPen(line);
    const double width = range.high > range.low ? range.high - range.low : 1;
    const std::vector<double>& depths = log.samples.front();
    QPolygonF part;
    const std::size_t step = std::max<std::size_t>(1, values.size() / g_mostPoints);
    for (std::size_t i = 0; i < values.size(); i += step) {
        if (std::isfinite(values[i]) && std::isfinite(depths[i])) {
            part << QPointF((values[i] - range.low) / width * g_track,
                            (depths[i] - m_depth.low) / (m_depth.high - m_depth.low) * g_height);
            continue;
        }
        painter.drawPolyline(part);
        part.clear();
    }
    painter.drawPolyline(part);
}

QString WellPicture::positionText(QPointF position) const
{
    if (position.y() < 0 || position.y() > g_height)
        return {};
    const las::Item& first = m_well->log.curves.front();
    const double depth = m_depth.low + position.y() / g_height * (m_depth.high - m_depth.low);
    return QStringLiteral("%1 %2 %3").arg(first.mnemonic, QString::number(depth, 'f', 1), first.unit);
}

} // namespace hv
