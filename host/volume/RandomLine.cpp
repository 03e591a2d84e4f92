#include "host/volume/RandomLine.h"

#include "host/core/Transform.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace hv {

namespace {

const QLatin1String g_kind("random line");

QJsonObject namedCrs(const QString& name)
{
    return {{QStringLiteral("type"), QStringLiteral("name")},
            {QStringLiteral("properties"), QJsonObject{{QStringLiteral("name"), name}}}};
}

/// "urn:ogc:def:crs:EPSG::32631", with or without a version between the points.
georef::Crs crsOfName(const QString& name)
{
    static const QRegularExpression form(QStringLiteral("^urn:ogc:def:crs:([^:]+):[^:]*:([^:]+)$"));
    const auto match = form.match(name);
    return match.hasMatch() ? georef::orNull(georef::Crs::fromAuthority(match.captured(1), match.captured(2)))
                            : georef::Crs();
}

} // namespace

QString RandomLine::fault() const
{
    if (nodes.size() < 2)
        return QStringLiteral("a random line has two nodes or more");
    bool isSpread = false;
    for (const core::vec2& node : nodes) {
        if (!std::isfinite(node.x) || !std::isfinite(node.y))
            return QStringLiteral("the nodes of a random line are finite numbers");
        isSpread = isSpread || node.x != nodes.front().x || node.y != nodes.front().y;
    }
    return isSpread ? QString() : QStringLiteral("the nodes of a random line lie at one place");
}

std::vector<core::vec2> RandomLine::inBlock(const georef::BlocSpace& space) const
{
    // On the plane of the first sample, which the others lie straight above or below.
    const core::vec3 top = frame == Frame::World ? core::transform(space.fromBlockToWorld(), core::vec3())
                                                 : core::transform(space.fromBlockToSurvey(), core::vec3());
    const core::mat4& matrix = frame == Frame::World ? space.fromWorldToBlock() : space.fromSurveyToBlock();
    std::vector<core::vec2> cells;
    for (const core::vec2& node : nodes) {
        const core::vec3 cell = core::transform(matrix, {node.x, node.y, top.z});
        cells.push_back({cell.x, cell.y});
    }
    return cells;
}

QByteArray randomLineText(const RandomLine& line)
{
    QJsonArray coordinates;
    for (const core::vec2& node : line.nodes)
        coordinates.append(QJsonArray{node.x, node.y});
    const bool isWorld = line.frame == RandomLine::Frame::World;
    QJsonObject properties{{QStringLiteral("kind"), g_kind},
                           {QStringLiteral("name"), line.name},
                           {QStringLiteral("frame"), isWorld ? QStringLiteral("world") : QStringLiteral("survey")}};
    QJsonObject collection{{QStringLiteral("type"), QStringLiteral("FeatureCollection")}};
    if (isWorld && !line.crs.authority().isEmpty())
        collection.insert(
            QStringLiteral("crs"),
            namedCrs(QStringLiteral("urn:ogc:def:crs:%1::%2").arg(line.crs.authority(), line.crs.authorityCode())));
    else if (isWorld && !line.crs.isNull())
        properties.insert(QStringLiteral("wkt"), line.crs.toWkt());
    const QJsonObject geometry{{QStringLiteral("type"), QStringLiteral("LineString")},
                               {QStringLiteral("coordinates"), coordinates}};
    collection.insert(QStringLiteral("features"),
                      QJsonArray{QJsonObject{{QStringLiteral("type"), QStringLiteral("Feature")},
                                             {QStringLiteral("properties"), properties},
                                             {QStringLiteral("geometry"), geometry}}});
    return QJsonDocument(collection).toJson(QJsonDocument::Indented);
}

Result<RandomLine> parseRandomLine(const QByteArray& text)
{
    QJsonParseError problem{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        const int at = text.left(problem.offset).count('\n') + 1;
        return Failure(QStringLiteral("line %1, %2").arg(QString::number(at), problem.errorString()), {}, at);
    }
    const QJsonObject collection = document.object();
    const QJsonArray features = collection.value(QLatin1String("features")).toArray();
    const QJsonObject feature = features.at(0).toObject();
    const QJsonObject geometry = feature.value(QLatin1String("geometry")).toObject();
    if (features.size() != 1 || geometry.value(QLatin1String("type")) != QLatin1String("LineString"))
        return Failure(QStringLiteral("it does not hold one line"));
    const QJsonObject properties = feature.value(QLatin1String("properties")).toObject();
    RandomLine line;
    line.name = properties.value(QLatin1String("name")).toString();
    // Lines that other programs drew lie on the map.
    const QString frame = properties.value(QLatin1String("frame")).toString(QStringLiteral("world"));
    if (frame != QLatin1String("world") && frame != QLatin1String("survey"))
        return Failure(QStringLiteral("its \"frame\" is neither \"world\" nor \"survey\""));
    line.frame = frame == QLatin1String("world") ? RandomLine::Frame::World : RandomLine::Frame::Survey;
    for (const QJsonValue& each : geometry.value(QLatin1String("coordinates")).toArray()) {
        const QJsonArray node = each.toArray();
        if (!node.at(0).isDouble() || !node.at(1).isDouble())
            return Failure(QStringLiteral("a position is not two numbers"));
        line.nodes.push_back({node.at(0).toDouble(), node.at(1).toDouble()});
    }
    const QString crs = collection.value(QLatin1String("crs"))
                            .toObject()
                            .value(QLatin1String("properties"))
                            .toObject()
                            .value(QLatin1String("name"))
                            .toString();
    const QString wkt = properties.value(QLatin1String("wkt")).toString();
    line.crs = wkt.isEmpty() ? crsOfName(crs) : georef::orNull(georef::Crs::fromWkt(wkt));
    if (const QString fault = line.fault(); !fault.isEmpty())
        return Failure(fault);
    return line;
}

} // namespace hv
