#include "host/kinds/colorbar/ColorBarPicture.h"

#include <QPainter>
#include <QPalette>

namespace hv {

ColorBarPicture::ColorBarPicture(std::shared_ptr<const display::ColorBar> bar)
    : m_bar(std::move(bar)), m_image(display::ColorBar::Count, 1, QImage::Format_ARGB32)
{
    for (int entry = 0; entry < display::ColorBar::Count; ++entry)
        m_image.setPixel(entry, 0, m_bar->colors()[static_cast<std::size_t>(entry)]);
}

void ColorBarPicture::paint(QPainter& painter, const QFont& font, const QPalette& palette) const
{
    constexpr double height = 40;
    const QRectF bar(0, 0, display::ColorBar::Count, height);
    // Squares under colours that let through.
    for (int x = 0; x < display::ColorBar::Count; x += 8)
        for (int y = 0; y < height; y += 8)
            painter.fillRect(x, y, 8, 8, (x + y) / 8 % 2 ? QColor(0xcc, 0xcc, 0xcc) : QColor(Qt::white));
    painter.drawImage(bar, m_image);
    QPen line(palette.color(QPalette::Text));
    line.setCosmetic(true);
    painter.setPen(line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bar);
    QFont small = font;
    small.setPixelSize(11);
    painter.setFont(small);
    painter.drawText(QRectF(0, -22, bar.width(), 18), Qt::AlignCenter, m_bar->name());
    constexpr int ticks = 4;
    for (int tick = 0; tick <= ticks; ++tick) {
        const double place = static_cast<double>(tick) / ticks;
        const double x = place * bar.width();
        painter.drawLine(QPointF(x, height), QPointF(x, height + 4));
        const double value = m_bar->minimum() + place * (m_bar->maximum() - m_bar->minimum());
        painter.drawText(QRectF(x - 32, height + 5, 64, 16), Qt::AlignHCenter | Qt::AlignTop,
                         QString::number(value, 'g', 4));
    }
}

QString ColorBarPicture::positionText(QPointF position) const
{
    const double place = position.x() / display::ColorBar::Count;
    if (place < 0 || place >= 1)
        return {};
    const QRgb color = m_bar->colors()[static_cast<std::size_t>(display::ColorBar::entryAt(place))];
    return QStringLiteral("%1   %2").arg(
        QString::number(m_bar->minimum() + place * (m_bar->maximum() - m_bar->minimum()), 'g', 5),
        QColor(color).name());
}

} // namespace hv
