#include "host/icons/HVSvgIconEngine.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

HVSvgIconEngine::HVSvgIconEngine(QString file, QString accent) : m_file(std::move(file)), m_accent(std::move(accent)) {}

void HVSvgIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    QPixmap drawn = pixmap(rect.size() * ratio, mode, state);
    drawn.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect, drawn);
}

QPixmap HVSvgIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/)
{
    if (size.isEmpty())
        return {};
    const QColor pen = colour(mode);
    const QString cacheKey =
        QStringLiteral("%1 %2 %3x%4")
            .arg(m_file, pen.name(QColor::HexArgb), QString::number(size.width()), QString::number(size.height()));
    QPixmap result;
    if (QPixmapCache::find(cacheKey, &result))
        return result;

    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QSvgRenderer renderer(file.readAll().replace("currentColor", pen.name().toLatin1()));
    result = QPixmap(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(pen.alphaF());
    const qreal side = std::min(size.width(), size.height());
    renderer.render(&painter, {(size.width() - side) / 2, (size.height() - side) / 2, side, side});
    painter.end();
    QPixmapCache::insert(cacheKey, result);
    return result;
}

QIconEngine* HVSvgIconEngine::clone() const
{
    return new HVSvgIconEngine(*this);
}

QString HVSvgIconEngine::key() const
{
    return QStringLiteral("HVSvgIconEngine");
}

QString HVSvgIconEngine::iconName() const
{
    return QFileInfo(m_file).baseName();
}

QColor HVSvgIconEngine::colour(QIcon::Mode mode) const
{
    const QPalette palette = QGuiApplication::palette();
    QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
    switch (mode) {
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Disabled:
        text.setAlphaF(0.35);
        return text;
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    if (m_accent.isEmpty())
        return text;
    const bool dark = palette.color(QPalette::Button).lightness() < 128;
    return {m_accent.section(QLatin1Char('/'), dark ? 1 : 0, dark ? 1 : 0)};
}
