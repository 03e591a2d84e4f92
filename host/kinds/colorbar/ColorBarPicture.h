#pragma once

#include "host/display/ColorBar.h"
#include "host/kinds/ObjectPicture.h"

#include <QImage>

#include <memory>

namespace hv {

/// The bar over a scale with its values. A page unit is an entry of the table.
class ColorBarPicture final : public ObjectPicture
{
public:
    explicit ColorBarPicture(std::shared_ptr<const display::ColorBar> bar);

    QRectF page() const override { return {-14, -26, display::ColorBar::Count + 28, 92}; }
    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override;
    QString positionText(QPointF position) const override;

private:
    std::shared_ptr<const display::ColorBar> m_bar;
    QImage m_image;
};

} // namespace hv
