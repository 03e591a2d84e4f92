#include "host/formats/MapOutline.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPolygonF>

#include <limits>
#include <optional>

namespace {

constexpr int g_deepest = 16;

class Reader
{
public:
    MapOutline outline;

    bool isEmpty() const { return m_left > m_right; }
    QRectF bounds() const { return {QPointF(m_left, m_low), QPointF(m_right, m_high)}; }

    void read(const QJsonObject& object, int depth = 0)
    {
        if (depth > g_deepest)
            return;
        for (const QJsonValue& feature : object.value(QLatin1String("features")).toArray())
            read(feature.toObject(), depth + 1);
        for (const QJsonValue& geometry : object.value(QLatin1String("geometries")).toArray())
            read(geometry.toObject(), depth + 1);
        if (object.contains(QLatin1String("geometry")))
            read(object.value(QLatin1String("geometry")).toObject(), depth + 1);
        if (object.contains(QLatin1String("coordinates")))
            add(object.value(QLatin1String("coordinates")).toArray(),
                object.value(QLatin1String("type")).toString().endsWith(QLatin1String("Polygon")), depth);
    }

private:
    /// Geometries differ by how deep their positions are nested: a point, a line of points, rings and so on.
    void add(const QJsonArray& coordinates, bool isArea, int depth)
    {
        if (depth > g_deepest || coordinates.isEmpty())
            return;
        if (coordinates.first().isDouble()) {
            if (const auto point = position(coordinates))
                outline.points << *point;
            return;
        }
        const bool isLine = coordinates.first().toArray().first().isDouble();
        if (!isLine || coordinates.size() == 1) {
            for (const QJsonValue& part : coordinates)
                add(part.toArray(), isArea, depth + 1);
            return;
        }
        QPolygonF line;
        for (const QJsonValue& value : coordinates)
            if (const auto point = position(value.toArray()))
                line << *point;
        (isArea ? outline.areas : outline.lines).addPolygon(line);
    }

    std::optional<QPointF> position(const QJsonArray& coordinates)
    {
        const double x = coordinates.at(0).toDouble(std::numeric_limits<double>::quiet_NaN());
        const double y = coordinates.at(1).toDouble(std::numeric_limits<double>::quiet_NaN());
        if (!std::isfinite(x) || !std::isfinite(y))
            return std::nullopt;
        m_left = std::min(m_left, x);
        m_right = std::max(m_right, x);
        m_low = std::min(m_low, y);
        m_high = std::max(m_high, y);
        return QPointF(x, y);
    }

    double m_left = std::numeric_limits<double>::infinity();
    double m_right = -std::numeric_limits<double>::infinity();
    double m_low = std::numeric_limits<double>::infinity();
    double m_high = -std::numeric_limits<double>::infinity();
};

} // namespace

hv::Result<MapOutline> readMapOutline(const QByteArray& text)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (!document.isObject())
        return hv::Failure(QStringLiteral("This is no GeoJSON: %1.").arg(problem.errorString()));
    Reader reader;
    reader.read(document.object());
    if (reader.isEmpty())
        return hv::Failure(QStringLiteral("There are no coordinates in it."));
    reader.outline.bounds = reader.bounds();
    return std::move(reader.outline);
}
