#include "host/kinds/randomline/RandomLinePicture.h"

#include <QObject>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace hv {

RandomLinePicture::RandomLinePicture(std::shared_ptr<const RandomLineText> line) : m_line(std::move(line))
{
    for (const core::vec2& node : m_line->line.nodes)
        m_nodes << QPointF(node.x, node.y);
    QRectF bounds = m_nodes.boundingRect();
    // A line along an axis has an extent to be seen in too.
    const double margin = std::max({bounds.width(), bounds.height(), 1e-6}) * 0.06;
    bounds.adjust(-margin, -margin, margin, margin);
    m_toPage = QTransform(1, 0, 0, -1, -bounds.left(), bounds.bottom());
    m_page = {0, 0, bounds.width(), bounds.height()};
}

void RandomLinePicture::paint(QPainter& painter, const QFont& /*font*/, const QPalette& palette) const
{
    QPen pen(palette.color(QPalette::Highlight), 2);
    pen.setCosmetic(true);
    painter.setPen(pen);
    const QPolygonF nodes = m_toPage.map(m_nodes);
    painter.drawPolyline(nodes);
    pen.setCapStyle(Qt::RoundCap);
    for (int i = 0; i < nodes.size(); ++i) {
        pen.setWidthF(i == 0 ? 10 : 6);
        painter.setPen(pen);
        painter.drawPoint(nodes[i]);
    }
}

QString RandomLinePicture::positionText(QPointF position) const
{
    const QPointF map = m_toPage.inverted().map(position);
    const bool isWorld = m_line->line.frame == RandomLine::Frame::World;
    return (isWorld ? QObject::tr("X %1   Y %2") : QObject::tr("Inline %1   Crossline %2"))
        .arg(map.x(), 0, 'f', 1)
        .arg(map.y(), 0, 'f', 1);
}

} // namespace hv
