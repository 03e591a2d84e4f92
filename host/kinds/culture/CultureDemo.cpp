#include "host/kinds/culture/CultureKind.h"
#include "host/kinds/demo/SyntheticSurvey.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace hv {

namespace {

using Survey = demo::SyntheticSurvey;

/// Map coordinates in decimetres: what remains is the same on every machine.
QJsonArray coordinates(double inlineNumber, double crossline)
{
    const auto [x, y] = Survey::position(inlineNumber, crossline);
    return {std::round(x * 10.0) / 10.0, std::round(y * 10.0) / 10.0};
}

QJsonObject feature(const QString& name, const QString& type, const QJsonArray& points)
{
    return {{QStringLiteral("type"), QStringLiteral("Feature")},
            {QStringLiteral("properties"), QJsonObject{{QStringLiteral("name"), name}}},
            {QStringLiteral("geometry"),
             QJsonObject{{QStringLiteral("type"), type}, {QStringLiteral("coordinates"), points}}}};
}

/// GeoJSON with a named reference system, as in the 2008 format and as GDAL reads and writes it; RFC 7946 knows
/// geographic coordinates only.
QByteArray geoJson(const QJsonObject& theFeature)
{
    const QString system = QStringLiteral("urn:ogc:def:crs:%1::%2").arg(Survey::crsAuthority(), Survey::crsCode());
    const QJsonObject collection{{QStringLiteral("type"), QStringLiteral("FeatureCollection")},
                                 {QStringLiteral("crs"), QJsonObject{{QStringLiteral("type"), QStringLiteral("name")},
                                                                     {QStringLiteral("properties"),
                                                                      QJsonObject{{QStringLiteral("name"), system}}}}},
                                 {QStringLiteral("features"), QJsonArray{theFeature}}};
    return QJsonDocument(collection).toJson(QJsonDocument::Indented);
}

/// The last live crossline of an inline.
int lastCrossline(int inlineNumber)
{
    int crossline = Survey::firstCrossline + Survey::crosslineCount - 1;
    while (!Survey::isLive(inlineNumber, crossline))
        --crossline;
    return crossline;
}

} // namespace

std::vector<DemoObject> CultureKind::demo() const
{
    constexpr int lastInline = Survey::firstInline + Survey::inlineCount - 1;
    QJsonArray outline{coordinates(lastInline, Survey::firstCrossline),
                       coordinates(Survey::firstInline, Survey::firstCrossline)};
    for (int line = Survey::firstInline; line <= lastInline; ++line)
        // A straight edge needs its ends only.
        if (line == Survey::firstInline || line == lastInline || lastCrossline(line) != lastCrossline(line - 1) ||
            lastCrossline(line) != lastCrossline(line + 1))
            outline.append(coordinates(line, lastCrossline(line)));
    outline.append(outline.first());
    QJsonArray axis;
    for (int line = Survey::firstInline; line <= lastInline; line += 5)
        axis.append(coordinates(line, Survey::channelCrossline(line)));
    const auto object = [this](const QString& name, const QString& type, const QJsonArray& points) {
        return DemoObject{name, *parse(geoJson(feature(name, type, points)))};
    };
    return {object(QStringLiteral("Survey Outline"), QStringLiteral("Polygon"), QJsonArray{outline}),
            object(QStringLiteral("Channel Axis"), QStringLiteral("LineString"), axis)};
}

} // namespace hv
