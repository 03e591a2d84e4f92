#pragma once

#include "host/kinds/ObjectPicture.h"
#include "host/kinds/culture/CultureKind.h"

#include <QTransform>

namespace hv {

/// A page unit is a map unit; the page begins at the north-west corner, so that large coordinates keep their digits.
class CulturePicture final : public ObjectPicture
{
public:
    explicit CulturePicture(std::shared_ptr<const Culture> culture);

    QRectF page() const override { return m_page; }
    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override;
    QString positionText(QPointF position) const override;

private:
    std::shared_ptr<const Culture> m_culture;
    QTransform m_toPage;
    QRectF m_page;
};

} // namespace hv
