#pragma once

#include "host/kinds/ObjectPicture.h"
#include "host/kinds/randomline/RandomLineKind.h"

#include <QPolygonF>
#include <QTransform>

namespace hv {

/// The line as it lies on the map, with its nodes; the first one is larger.
class RandomLinePicture final : public ObjectPicture
{
public:
    explicit RandomLinePicture(std::shared_ptr<const RandomLineText> line);

    QRectF page() const override { return m_page; }
    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override;
    QString positionText(QPointF position) const override;

private:
    std::shared_ptr<const RandomLineText> m_line;
    QPolygonF m_nodes;
    QTransform m_toPage;
    QRectF m_page;
};

} // namespace hv
