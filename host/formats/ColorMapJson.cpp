#include "host/formats/ColorBarFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace display {

namespace {

const struct
{
    const char* name;
    ColorSpace space;
} g_spaces[] = {
    {"RGB", ColorSpace::RGB},
    {"HSV", ColorSpace::HSVUnwrapped},
    {"Lab", ColorSpace::Lab},
    {"CIELAB", ColorSpace::Lab},
    // The ways of this formula and of plain Lab differ by less than a viewer can show.
    {"Lab/CIEDE2000", ColorSpace::Lab},
    {"Diverging", ColorSpace::Diverging},
    {"Step", ColorSpace::Step},
};

QRgb withAlpha(QRgb color, int alpha)
{
    return (color & RGB_MASK) | static_cast<QRgb>(alpha) << 24;
}

/// Reads one colour map; the first failure is kept and everything after it does nothing.
class MapReader
{
public:
    explicit MapReader(const QJsonObject& map) : m_map(map) {}

    hv::Result<ColorBar> read()
    {
        ColorBar bar;
        bar.setName(m_map[QLatin1String("Name")].toString());
        if (m_map.contains(QLatin1String("RGBPoints")))
            readPoints(bar);
        else if (m_map.contains(QLatin1String("IndexedColors")))
            readIndexed(bar);
        else
            fail(QStringLiteral("it has neither RGBPoints nor IndexedColors"));
        readSpecialColors(bar);
        if (m_hasFailed)
            return hv::Failure(m_error);
        return bar;
    }

private:
    void fail(const QString& reason)
    {
        if (!m_hasFailed)
            m_error = QStringLiteral("colour map \"%1\": %2").arg(m_map[QLatin1String("Name")].toString(), reason);
        m_hasFailed = true;
    }

    /// The numbers of `key`, in groups of `width`.
    QVector<double> numbers(const char* key, int width, int smallestCount)
    {
        const QJsonArray array = m_map[QLatin1String(key)].toArray();
        QVector<double> all;
        for (const QJsonValue value : array) {
            if (!value.isDouble() || !std::isfinite(value.toDouble()))
                fail(QStringLiteral("%1 holds something that is not a number").arg(QLatin1String(key)));
            all.append(value.toDouble());
        }
        if (all.size() % width != 0 || all.size() < width * smallestCount)
            fail(QStringLiteral("%1 needs %2 or more groups of %3 numbers")
                     .arg(QLatin1String(key))
                     .arg(smallestCount)
                     .arg(width));
        return m_hasFailed ? QVector<double>() : all;
    }

    QRgb color(const char* key, const double* rgb, double opacity = 1)
    {
        const auto component = [&](double value) {
            if (!(value >= 0 && value <= 1))
                fail(QStringLiteral("%1: %2 is not a colour component of 0 to 1")
                         .arg(QLatin1String(key), numberText(value)));
            return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
        };
        return qRgba(component(rgb[0]), component(rgb[1]), component(rgb[2]), component(opacity));
    }

    ColorSpace space()
    {
        const QString name = m_map[QLatin1String("ColorSpace")].toString(QStringLiteral("RGB"));
        for (const auto& each : g_spaces) {
            if (name.compare(QLatin1String(each.name), Qt::CaseInsensitive) == 0)
                return each.space == ColorSpace::HSVUnwrapped && isOn("HSVWrap") ? ColorSpace::HSV : each.space;
        }
        fail(QStringLiteral("unknown ColorSpace \"%1\"").arg(name));
        return ColorSpace::RGB;
    }

    bool isOn(const char* key) const
    {
        const QJsonValue value = m_map[QLatin1String(key)];
        return value.toBool() || value.toDouble() != 0;
    }

    void readPoints(ColorBar& bar)
    {
        const QVector<double> values = numbers("RGBPoints", 4, 2);
        const ColorSpace way = space();
        if (m_hasFailed)
            return;
        QVector<ColorPoint> points;
        const double minimum = values[0];
        const double maximum = values[values.size() - 4];
        if (!bar.setRange(minimum, maximum))
            return fail(QStringLiteral("the values of RGBPoints do not ascend"));
        for (int i = 0; i < values.size(); i += 4) {
            const bool isLast = i == values.size() - 4;
            points.append(
                {isLast ? 1 : (values[i] - minimum) / (maximum - minimum), color("RGBPoints", &values[i + 1])});
        }
        if (!bar.setPoints(points, way))
            return fail(QStringLiteral("the values of RGBPoints do not ascend"));
        if (m_map.contains(QLatin1String("Points")))
            readOpacities(bar, values);
    }

    /// Opacity has points of its own (value, opacity, midpoint, sharpness); the ways between them are read as straight.
    void readOpacities(ColorBar& bar, const QVector<double>& colorValues)
    {
        const QVector<double> values = numbers("Points", 4, 2);
        QVector<ColorPoint> opacities;
        bool isOpaque = true;
        bool isAtColorPoints = values.size() == colorValues.size();
        for (int i = 0; i < values.size(); i += 4) {
            const double black[] = {0, 0, 0};
            opacities.append({values[i], color("Points", black, values[i + 1])});
            isOpaque = isOpaque && qAlpha(opacities.last().color) == 255;
            isAtColorPoints = isAtColorPoints && values[i] == colorValues[i];
            if (i > 0 && values[i] < values[i - 4])
                fail(QStringLiteral("the values of Points do not ascend"));
        }
        if (m_hasFailed || isOpaque)
            return;
        QVector<ColorPoint> points = bar.points();
        if (isAtColorPoints && points.size() == opacities.size()) {
            for (int i = 0; i < points.size(); ++i)
                points[i].color = withAlpha(points[i].color, qAlpha(opacities[i].color));
            bar.setPoints(points);
            return;
        }
        ColorBar::Colors colors = bar.colors();
        for (std::size_t i = 0; i < colors.size(); ++i) {
            const double place = static_cast<double>(i) / (ColorBar::Count - 1);
            colors[i] =
                withAlpha(colors[i], alphaAt(opacities, bar.minimum() + place * (bar.maximum() - bar.minimum())));
        }
        bar.setColors(colors);
    }

    static int alphaAt(const QVector<ColorPoint>& opacities, double value)
    {
        const auto* const next = std::find_if(opacities.begin(), opacities.end(),
                                              [value](const ColorPoint& point) { return point.position > value; });
        if (next == opacities.begin())
            return qAlpha(next->color);
        const ColorPoint& before = *(next - 1);
        if (next == opacities.end())
            return qAlpha(before.color);
        const double t = (value - before.position) / (next->position - before.position);
        return qAlpha(mix(before.color, next->color, t, ColorSpace::RGB));
    }

    void readIndexed(ColorBar& bar)
    {
        const QVector<double> values = numbers("IndexedColors", 3, 1);
        QVector<QRgb> bands;
        for (int i = 0; i < values.size(); i += 3)
            bands.append(color("IndexedColors", &values[i]));
        if (!m_hasFailed && !bar.setBands(bands))
            fail(QStringLiteral("more than %1 IndexedColors").arg(ColorBar::Count));
    }

    void readSpecialColors(ColorBar& bar)
    {
        const auto special = [this](const char* key, double opacity) -> std::optional<QRgb> {
            const QVector<double> rgb = numbers(key, 3, 1);
            return m_hasFailed ? std::nullopt : std::optional(color(key, rgb.data(), opacity));
        };
        if (m_map.contains(QLatin1String("NanColor")))
            bar.setNoValueColor(special("NanColor", m_map[QLatin1String("NanOpacity")].toDouble(1)).value_or(0));
        if (isOn("UseBelowRangeColor"))
            bar.setBelowColor(special("BelowRangeColor", 1));
        if (isOn("UseAboveRangeColor"))
            bar.setAboveColor(special("AboveRangeColor", 1));
    }

    const QJsonObject& m_map;
    QString m_error;
    bool m_hasFailed = false;
};

void appendRgb(QJsonArray& array, QRgb color)
{
    array.append(qRed(color) / 255.0);
    array.append(qGreen(color) / 255.0);
    array.append(qBlue(color) / 255.0);
}

QJsonArray rgbOf(QRgb color)
{
    QJsonArray array;
    appendRgb(array, color);
    return array;
}

} // namespace

hv::Result<ColorBar> readColorMap(const QByteArray& json, const QString& name)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        const int line = json.left(parseError.offset).count('\n') + 1;
        return hv::Failure(QStringLiteral("line %1: %2").arg(line).arg(parseError.errorString()), {}, line);
    }
    const QJsonArray maps = document.isArray() ? document.array() : QJsonArray{document.object()};
    for (const QJsonValue map : maps) {
        if (map.isObject() && (name.isEmpty() || map[QLatin1String("Name")].toString() == name))
            return MapReader(map.toObject()).read();
    }
    return hv::Failure(name.isEmpty() ? QStringLiteral("it holds no colour map")
                                      : QStringLiteral("it holds no colour map \"%1\"").arg(name));
}

QByteArray writeColorMap(const ColorBar& bar)
{
    const QVector<ColorPoint> points = storedPoints(bar);
    QJsonArray colors;
    QJsonArray opacities;
    bool isOpaque = true;
    for (const ColorPoint& point : points) {
        const double value =
            point.position == 1 ? bar.maximum() : bar.minimum() + point.position * (bar.maximum() - bar.minimum());
        colors.append(value);
        appendRgb(colors, point.color);
        for (const double number : {value, qAlpha(point.color) / 255.0, 0.5, 0.0})
            opacities.append(number);
        isOpaque = isOpaque && qAlpha(point.color) == 255;
    }
    QJsonObject map{
        {QStringLiteral("Name"), bar.name()},
        {QStringLiteral("ColorSpace"), QStringLiteral("RGB")},
        {QStringLiteral("RGBPoints"), colors},
        {QStringLiteral("NanColor"), rgbOf(bar.noValueColor())},
        {QStringLiteral("NanOpacity"), qAlpha(bar.noValueColor()) / 255.0},
    };
    if (!isOpaque)
        map[QStringLiteral("Points")] = opacities;
    const auto addSpecial = [&map](const QString& key, const std::optional<QRgb>& color) {
        if (!color)
            return;
        map[QStringLiteral("Use") + key] = 1;
        map[key] = rgbOf(*color);
    };
    addSpecial(QStringLiteral("BelowRangeColor"), bar.belowColor());
    addSpecial(QStringLiteral("AboveRangeColor"), bar.aboveColor());
    return QJsonDocument(QJsonArray{map}).toJson();
}

} // namespace display
