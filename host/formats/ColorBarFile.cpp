#include "host/formats/ColorBarFile.h"

#include "host/formats/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace display {

namespace {

/// Thousands of colour maps fit; anything larger was opened by mistake.
constexpr qint64 g_largestFile = 32 << 20;

} // namespace

hv::Result<ColorBar> readColorBar(const QString& filename, const QString& name)
{
    using hv::Failure;
    QFile file(filename);
    const QFileInfo source(filename);
    if (source.exists() && !source.isFile())
        return Failure(QStringLiteral("it is not an ordinary file"));
    if (!file.open(QIODevice::ReadOnly))
        return Failure(file.errorString());
    const QByteArray content = file.read(g_largestFile + 1);
    if (file.error() != QFileDevice::NoError)
        return Failure(file.errorString());
    if (content.size() > g_largestFile)
        return Failure(QStringLiteral("it is too large for a colour bar"));
    const QByteArray start = content.trimmed();
    const bool isJson = start.startsWith('[') || start.startsWith('{');
    hv::Result<ColorBar> bar = isJson ? readColorMap(content, name) : readPaletteTable(content);
    if (bar && bar->name().isEmpty())
        bar->setName(source.completeBaseName());
    return bar;
}

hv::Result<void> writeColorBar(const ColorBar& bar, const QString& filename)
{
    const bool isPaletteTable = QFileInfo(filename).suffix().compare(QLatin1String("cpt"), Qt::CaseInsensitive) == 0;
    return hv::writeWholeFile(filename, isPaletteTable ? writePaletteTable(bar) : writeColorMap(bar));
}

QVector<ColorPoint> storedPoints(const ColorBar& bar)
{
    if (!bar.points().isEmpty())
        return bar.points();
    QVector<ColorPoint> points;
    for (int entry = 0; entry < ColorBar::Count; ++entry)
        points.append(
            {entry / static_cast<double>(ColorBar::Count - 1), bar.colors()[static_cast<std::size_t>(entry)]});
    return points;
}

QString numberText(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace display
