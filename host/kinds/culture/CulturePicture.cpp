#include "host/kinds/culture/CulturePicture.h"

#include <QPainter>
#include <QPalette>

namespace hv {

CulturePicture::CulturePicture(std::shared_ptr<const Culture> culture) : m_culture(std::move(culture))
{
    QRectF bounds = m_culture->outline.bounds;
    // A point, and a line along an axis, have an extent to be seen in too.
    const double least = std::max({bounds.width(), bounds.height(), 1e-6}) * 0.05;
    const double margin = std::max(least, 1e-9);
    bounds.adjust(-margin, -margin, margin, margin);
    m_toPage = QTransform(1, 0, 0, -1, -bounds.left(), bounds.bottom());
    m_page = {0, 0, bounds.width(), bounds.height()};
}

void CulturePicture::paint(QPainter& painter, const QFont& /*font*/, const QPalette& palette) const
{
    const MapOutline& outline = m_culture->outline;
    painter.setRenderHint(QPainter::Antialiasing);
    QPen line(palette.color(QPalette::Highlight), 1.5);
    line.setCosmetic(true);
    QColor fill = palette.color(QPalette::Highlight);
    fill.setAlpha(50);
    painter.setPen(line);
    painter.setBrush(fill);
    painter.drawPath(m_toPage.map(outline.areas));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(m_toPage.map(outline.lines));
    line.setWidthF(5);
    line.setCapStyle(Qt::RoundCap);
    painter.setPen(line);
    for (const QPointF& point : outline.points)
        painter.drawPoint(m_toPage.map(point));
}

QString CulturePicture::positionText(QPointF position) const
{
    const QPointF map = m_toPage.inverted().map(position);
    return QStringLiteral("X %1   Y %2").arg(map.x(), 0, 'f', 1).arg(map.y(), 0, 'f', 1);
}

} // namespace hv
