#include "host/viewers/ObjectPage.h"

#include "host/icons/HVIconStore.h"
#include "host/kinds/IObjectKind.h"
#include "host/kinds/ObjectPicture.h"
#include "host/objects/DataObject.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QTextCodec>

namespace {

/// A file that is larger is not read for a page alone, unless its value is no more than a way into it.
constexpr qint64 g_largest = 16 * 1024 * 1024;
constexpr qint64 g_textBytes = 4096;
constexpr int g_textLines = 24;
constexpr int g_lineCharacters = 96;

/// Icon, name and kind over the properties of the file and the beginning of its text. A page unit is a pixel.
class FilePicture final : public ObjectPicture
{
public:
    FilePicture(const hv::DataObject& object, const QString& problem, const std::vector<hv::Description>& rows)
        : m_icon(HVIconStore::icon(QLatin1String(objectKindInfo(object.key().kind).icon))), m_name(object.key().name)
    {
        const QString path = object.path();
        const QFileInfo file(path);
        m_lines << QLatin1String(objectKindInfo(object.key().kind).singular);
        if (!file.isFile()) {
            m_lines << QObject::tr("The file is not there.");
        } else {
            m_lines << QObject::tr("%1, changed %2")
                           .arg(QLocale().formattedDataSize(file.size()),
                                QLocale().toString(file.lastModified(), QLocale::ShortFormat));
            if (!problem.isEmpty())
                m_lines << problem;
            for (const hv::Description& row : rows)
                m_lines << QStringLiteral("%1: %2").arg(row.label, row.text);
            readText(path);
        }
        const QFontMetrics metrics{QFont()};
        const QFontMetrics fixed(textFont());
        int width = headWidth() + metrics.horizontalAdvance(m_name) * 3 / 2;
        for (const QString& line : qAsConst(m_lines))
            width = std::max(width, headWidth() + metrics.horizontalAdvance(line));
        for (const QString& line : qAsConst(m_text))
            width = std::max(width, fixed.horizontalAdvance(line));
        const int head = m_lines.size() + 2;
        m_textTop = g_margin + head * metrics.lineSpacing() + metrics.lineSpacing() / 2;
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

namespace hv {

std::unique_ptr<ObjectPicture> makeObjectPage(DataObject& object)
{
    const IObjectKind& kind = objectKind(object.key().kind);
    if (!kind.readsFile() && QFileInfo(object.path()).size() > g_largest)
        return std::make_unique<FilePicture>(object, QString(), std::vector<Description>());
    const Result<ObjectValue> value = object.value();
    if (!value)
        return std::make_unique<FilePicture>(object, value.failure().sentence, std::vector<Description>());
    if (auto picture = kind.picture(*value))
        return picture;
    return std::make_unique<FilePicture>(object, QString(), kind.describe(*value));
}

} // namespace hv
