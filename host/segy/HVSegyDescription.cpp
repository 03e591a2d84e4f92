#include "host/segy/HVSegyDescription.h"

#include "host/core/Transform.h"
#include "host/segy/Fields.h"
#include "host/volume/VolumeHeader.h"

#include <QStringList>

#include <array>
#include <cmath>

namespace {

/// Of coordinates and line numbers that are the same but for rounding.
constexpr double g_same = 1e-6;

bool isSame(double a, double b)
{
    return std::abs(a - b) <= g_same * std::max({1.0, std::abs(a), std::abs(b)});
}

QString digits(double value)
{
    return QString::number(value, 'g', 10);
}

QString padded(const QString& text, int width)
{
    return text.rightJustified(width);
}

/// The number of lines, from the first to the last by a step.
QString lines(double first, double last, int count)
{
    const double step = count > 1 ? (last - first) / (count - 1) : 0;
    return QStringLiteral("%1 TO %2 BY %3 (%4)").arg(digits(first), digits(last), digits(step)).arg(count);
}

QString nameOf(georef::Unit unit)
{
    switch (unit) {
    case georef::Unit::Milliseconds:
        return QStringLiteral("MS");
    case georef::Unit::Seconds:
        return QStringLiteral("S");
    case georef::Unit::Feet:
    case georef::Unit::FeetUS:
        return QStringLiteral("FT");
    default:
        return QStringLiteral("M");
    }
}

} // namespace

HVSegyDescription::HVSegyDescription(const georef::BlocSpace& space, const QString& name, georef::Domain domain,
                                     georef::Unit verticalUnit, const georef::Crs& crs)
    : m_space(space), m_name(name), m_domain(domain), m_unit(verticalUnit), m_crs(crs)
{}

HVSegyDescription::HVSegyDescription(const hv::VolumeHeader& volume, const QString& name)
    : HVSegyDescription(volume.space, name, volume.domain, volume.verticalUnit,
                        georef::orNull(georef::Crs::fromWkt(volume.crs)))
{}

double HVSegyDescription::inlineNumber(int y) const
{
    return core::transform(m_space.fromBlockToSurvey(), {0, double(y), 0}).x;
}

double HVSegyDescription::crosslineNumber(int x) const
{
    return core::transform(m_space.fromBlockToSurvey(), {double(x), 0, 0}).y;
}

core::vec3 HVSegyDescription::position(int x, int y) const
{
    return core::transform(m_space.fromBlockToWorld(), {double(x), double(y), 0});
}

double HVSegyDescription::firstSample() const
{
    return core::transform(m_space.fromBlockToSurvey(), {0, 0, 0}).z;
}

double HVSegyDescription::interval() const
{
    return core::transform(m_space.fromBlockToSurvey(), {0, 0, 1}).z - firstSample();
}

bool HVSegyDescription::hasCoordinates() const
{
    // Both are affine, so that they agree everywhere when they agree at three places.
    bool isNumbers = true;
    bool isBlock = true;
    for (const auto& [x, y] : std::array<std::pair<int, int>, 3>{{{0, 0}, {1, 0}, {0, 1}}}) {
        const core::vec3 world = position(x, y);
        isNumbers = isNumbers && isSame(world.x, crosslineNumber(x)) && isSame(world.y, inlineNumber(y));
        isBlock = isBlock && isSame(world.x, x) && isSame(world.y, y);
    }
    return !isNumbers && !isBlock;
}

std::int64_t HVSegyDescription::sizeInBytes() const
{
    using namespace hv::segy;
    const std::int64_t traces = std::int64_t(m_space.width()) * m_space.height();
    const std::int64_t trace = g_headerBytes + std::int64_t(m_space.length()) * std::int64_t(bytesPerSample(m_format));
    return g_textBytes + g_binaryBytes + traces * trace;
}

QString HVSegyDescription::defaultTextualHeader() const
{
    const int lastX = m_space.width() - 1;
    const int lastY = m_space.height() - 1;
    const int lastZ = m_space.length() - 1;
    const QString unit = nameOf(m_unit);
    QStringList rows{
        QStringLiteral("WRITTEN BY STRATIVO"),
        QStringLiteral("VOLUME: %1").arg(m_name),
        QString(),
        QStringLiteral("INLINES:    %1").arg(lines(inlineNumber(0), inlineNumber(lastY), m_space.height())),
        QStringLiteral("CROSSLINES: %1").arg(lines(crosslineNumber(0), crosslineNumber(lastX), m_space.width())),
        QStringLiteral("SAMPLES:    %1 %2, %3")
            .arg(lines(firstSample(), firstSample() + lastZ * interval(), m_space.length()), unit,
                 m_domain == georef::Domain::Depth ? QStringLiteral("DEPTH") : QStringLiteral("TIME")),
        QStringLiteral("FORMAT:     REVISION 1, %1, BIG-ENDIAN").arg(hv::segy::nameOf(m_format).toUpper()),
        QString(),
    };
    if (hasCoordinates()) {
        rows << QStringLiteral("CORNERS:      INLINE   CROSSLINE                 X                 Y");
        for (const auto& [x, y] :
             std::array<std::pair<int, int>, 4>{{{0, 0}, {lastX, 0}, {0, lastY}, {lastX, lastY}}}) {
            const core::vec3 place = position(x, y);
            rows << padded(digits(inlineNumber(y)), 20) + padded(digits(crosslineNumber(x)), 12) +
                        padded(QString::number(place.x, 'f', 2), 18) + padded(QString::number(place.y, 'f', 2), 18);
        }
        rows << QStringLiteral("REFERENCE SYSTEM: %1").arg(m_crs.isNull() ? QStringLiteral("NOT KNOWN") : m_crs.name());
        if (!m_crs.isNull() && !m_crs.authority().isEmpty())
            rows << QStringLiteral("REFERENCE SYSTEM CODE: %1:%2").arg(m_crs.authority(), m_crs.authorityCode());
    } else {
        rows << QStringLiteral("THE TRACES HAVE NO COORDINATES.");
    }
    rows << QString() << QStringLiteral("TRACE HEADERS:") << QStringLiteral("  BYTES 189-192 INLINE, ALSO 9-12")
         << QStringLiteral("  BYTES 193-196 CROSSLINE, ALSO 21-24");
    if (hasCoordinates())
        rows << QStringLiteral("  BYTES 181-184 X, 185-188 Y, ALSO 73-76 AND 77-80; BYTES 71-72 THEIR SCALAR");
    rows << QStringLiteral("  BYTES 109-110 FIRST SAMPLE IN %1, BYTES 215-216 ITS SCALAR").arg(unit)
         << QStringLiteral("  BYTES 29-30 1: LIVE, 2: WITHOUT VALUES, SAMPLES OF 0");

    constexpr int textColumns = hv::segy::g_textColumns - 4;
    QStringList numbered;
    for (int row = 1; row <= hv::segy::g_textRows; ++row) {
        const QString text = row == hv::segy::g_textRows - 1 ? QStringLiteral("SEG Y REV1")
                             : row == hv::segy::g_textRows   ? QStringLiteral("END TEXTUAL HEADER")
                                                             : rows.value(row - 1);
        numbered << QStringLiteral("C%1 %2").arg(row, 2).arg(text.left(textColumns));
    }
    return numbered.join(QLatin1Char('\n'));
}
