#include "host/kinds/ObjectPicture.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <algorithm>

QString ObjectPicture::positionText(QPointF /*position*/) const
{
    return {};
}

namespace hv {

QImage imageOf(const ObjectPicture& picture, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QRectF page = picture.page();
    const double scale = std::min(size.width() / page.width(), size.height() / page.height());
    painter.translate(size.width() / 2.0, size.height() / 2.0);
    painter.scale(scale, scale);
    painter.translate(-page.center());
    painter.setRenderHint(QPainter::Antialiasing);
    picture.paint(painter, QFont(), QPalette());
    return image;
}

} // namespace hv
