#include "host/viewers/ObjectPicture.h"

#include "host/formats/ColorBarFile.h"
#include "host/formats/MapOutline.h"
#include "host/services/HVIconStore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QTextCodec>

namespace {

constexpr qint64 g_largestCulture = 16 * 1024 * 1024;
constexpr qint64 g_textBytes = 4096;
constexpr int g_textLines = 24;
constexpr int g_lineCharacters = 96;

/// The bar over a scale with its values. A page unit is an entry of the table.
class ColorBarPicture final : public ObjectPicture
{
public:
    explicit ColorBarPicture(display::ColorBar bar)
        : m_bar(std::move(bar)), m_image(display::ColorBar::Count, 1, QImage::Format_ARGB32)
    {
        for (int entry = 0; entry < display::ColorBar::Count; ++entry)
            m_image.setPixel(entry, 0, m_bar.colors()[static_cast<std::size_t>(entry)]);
    }

    QRectF page() const override { return {-14, -26, display::ColorBar::Count + 28, 92}; }

    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override
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
        painter.drawText(QRectF(0, -22, bar.width(), 18), Qt::AlignCenter, m_bar.name());
        constexpr int ticks = 4;
        for (int tick = 0; tick <= ticks; ++tick) {
            const double place = static_cast<double>(tick) / ticks;
            const double x = place * bar.width();
            painter.drawLine(QPointF(x, height), QPointF(x, height + 4));
            const double value = m_bar.minimum() + place * (m_bar.maximum() - m_bar.minimum());
            painter.drawText(QRectF(x - 32, height + 5, 64, 16), Qt::AlignHCenter | Qt::AlignTop,
                             QString::number(value, 'g', 4));
        }
    }

    QString positionText(QPointF position) const override
    {
        const double place = position.x() / display::ColorBar::Count;
        if (place < 0 || place >= 1)
            return {};
        const QRgb color = m_bar.colors()[static_cast<std::size_t>(display::ColorBar::entryAt(place))];
        return QStringLiteral("%1   %2").arg(
            QString::number(m_bar.minimum() + place * (m_bar.maximum() - m_bar.minimum()), 'g', 5),
            QColor(color).name());
    }

private:
    display::ColorBar m_bar;
    QImage m_image;
};

/// A page unit is a map unit; the page begins at the north-west corner, so that large coordinates keep their digits.
class MapPicture final : public ObjectPicture
{
public:
    explicit MapPicture(MapOutline outline) : m_outline(std::move(outline))
    {
        QRectF bounds = m_outline.bounds;
        // A point, and a line along an axis, have an extent to be seen in too.
        const double least = std::max({bounds.width(), bounds.height(), 1e-6}) * 0.05;
        const double margin = std::max(least, 1e-9);
        bounds.adjust(-margin, -margin, margin, margin);
        m_toPage = QTransform(1, 0, 0, -1, -bounds.left(), bounds.bottom());
        m_page = {0, 0, bounds.width(), bounds.height()};
    }

    QRectF page() const override { return m_page; }

    void paint(QPainter& painter, const QFont& /*font*/, const QPalette& palette) const override
    {
        painter.setRenderHint(QPainter::Antialiasing);
        QPen line(palette.color(QPalette::Highlight), 1.5);
        line.setCosmetic(true);
        QColor fill = palette.color(QPalette::Highlight);
        fill.setAlpha(50);
        painter.setPen(line);
        painter.setBrush(fill);
        painter.drawPath(m_toPage.map(m_outline.areas));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(m_toPage.map(m_outline.lines));
        line.setWidthF(5);
        line.setCapStyle(Qt::RoundCap);
        painter.setPen(line);
        for (const QPointF& point : m_outline.points)
            painter.drawPoint(m_toPage.map(point));
    }

    QString positionText(QPointF position) const override
    {
        const QPointF map = m_toPage.inverted().map(position);
        return QStringLiteral("X %1   Y %2").arg(map.x(), 0, 'f', 1).arg(map.y(), 0, 'f', 1);
    }

private:
    MapOutline m_outline;
    QTransform m_toPage;
    QRectF m_page;
};

/// Icon, name and kind over the properties of the file and the beginning of its text. A page unit is a pixel.
class PropertiesPicture final : public ObjectPicture
{
public:
    PropertiesPicture(ObjectKind kind, const QString& path, const QString& problem)
        : m_icon(HVIconStore::icon(QLatin1String(objectKindInfo(kind).icon)))
    {
        const QFileInfo file(path);
        m_name = file.completeBaseName();
        m_lines << QLatin1String(objectKindInfo(kind).singular);
        if (!file.isFile()) {
            m_lines << QObject::tr("The file is not there.");
        } else {
            m_lines << QObject::tr("%1, changed %2")
                           .arg(QLocale().formattedDataSize(file.size()),
                                QLocale().toString(file.lastModified(), QLocale::ShortFormat));
            if (!problem.isEmpty())
                m_lines << problem;
            readText(path);
        }
        const QFontMetrics metrics{QFont()};
        const QFontMetrics fixed(textFont());
        int width = headWidth() + metrics.horizontalAdvance(m_name) * 3 / 2;
        for (const QString& line : qAsConst(m_lines))
            width = std::max(width, headWidth() + metrics.horizontalAdvance(line));
        for (const QString& line : qAsConst(m_text))
            width = std::max(width, fixed.horizontalAdvance(line));
        const int rows = m_lines.size() + 2;
        m_textTop = g_margin + rows * metrics.lineSpacing() + metrics.lineSpacing() / 2;
        m_page = {0, 0, width + 2.0 * g_margin,
                  m_textTop + static_cast<double>(m_text.size()) * fixed.lineSpacing() + g_margin};
    }

    QRectF page() const override { return m_page; }
    bool isText() const override { return true; }

    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override
    {
        m_icon.paint(&painter, QRect(g_margin, g_margin, g_iconSize, g_iconSize));
        const QFontMetrics metrics{QFont()};
        QFont large = font;
        large.setBold(true);
        painter.setFont(large);
        painter.setPen(palette.color(QPalette::Text));
        double y = g_margin + metrics.ascent();
        painter.drawText(QPointF(g_margin + headWidth(), y), m_name);
        painter.setFont(font);
        for (const QString& line : m_lines)
            painter.drawText(QPointF(g_margin + headWidth(), y += metrics.lineSpacing()), line);
        painter.setFont(textFont());
        painter.setPen(palette.color(QPalette::Disabled, QPalette::Text));
        const QFontMetrics fixed(textFont());
        y = m_textTop + fixed.ascent();
        for (const QString& line : m_text) {
            painter.drawText(QPointF(g_margin, y), line);
            y += fixed.lineSpacing();
        }
    }

private:
    static constexpr int g_margin = 10;
    static constexpr int g_iconSize = 40;
    static int headWidth() { return g_iconSize + g_margin; }
    static QFont textFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

    void readText(const QString& path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            m_lines << QObject::tr("Unable to read it: %1.").arg(file.errorString());
            return;
        }
        const QByteArray beginning = file.read(g_textBytes);
        QTextCodec::ConverterState state;
        const QString text =
            QTextCodec::codecForName("UTF-8")->toUnicode(beginning.constData(), beginning.size(), &state);
        if (state.invalidChars > 0 || beginning.contains('\0'))
            return;
        m_text = text.split(QLatin1Char('\n')).mid(0, g_textLines);
        for (QString& line : m_text) {
            line.remove(QLatin1Char('\r')).replace(QLatin1Char('\t'), QLatin1String("    "));
            if (line.size() > g_lineCharacters)
                line = line.left(g_lineCharacters) + QChar(0x2026);
        }
    }

    QIcon m_icon;
    QString m_name;
    QStringList m_lines;
    QStringList m_text;
    QRectF m_page;
    double m_textTop = 0;
};

} // namespace

QString ObjectPicture::positionText(QPointF /*position*/) const
{
    return {};
}

std::unique_ptr<ObjectPicture> makeObjectPicture(ObjectKind kind, const QString& path)
{
    QString problem;
    if (kind == ObjectKind::ColorBar) {
        if (const auto bar = display::readColorBar(path, {}, problem))
            return std::make_unique<ColorBarPicture>(*bar);
    } else if (kind == ObjectKind::Culture && QFileInfo(path).size() <= g_largestCulture) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            if (auto outline = readMapOutline(file.readAll(), problem))
                return std::make_unique<MapPicture>(std::move(*outline));
    }
    return std::make_unique<PropertiesPicture>(kind, path, problem);
}
