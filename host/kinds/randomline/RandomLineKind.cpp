#include "host/kinds/randomline/RandomLineKind.h"

#include "host/kinds/demo/SyntheticSurvey.h"
#include "host/kinds/randomline/RandomLinePicture.h"

#include <QObject>

#include <cmath>

namespace hv {

const ObjectKindInfo& RandomLineKind::info() const
{
    static const ObjectKindInfo info{ObjectKind::RandomLine, "Random Line", "Random Lines",
                                     "random-lines",         "randomline",  "2dlinesmall"};
    return info;
}

Result<ObjectValue> RandomLineKind::parse(const QByteArray& text) const
{
    auto line = parseRandomLine(text);
    if (!line)
        return line.failure();
    return ObjectValue::of(RandomLineText{text, std::move(*line)});
}

const QByteArray* RandomLineKind::textOf(const ObjectValue& value) const
{
    const auto line = value.as<RandomLineText>();
    return line ? &line->text : nullptr;
}

std::unique_ptr<ObjectPicture> RandomLineKind::picture(const ObjectValue& value) const
{
    const auto line = value.as<RandomLineText>();
    return line ? std::make_unique<RandomLinePicture>(line) : nullptr;
}

std::vector<Description> RandomLineKind::describe(const ObjectValue& value) const
{
    const auto held = value.as<RandomLineText>();
    if (!held)
        return {};
    const RandomLine& line = held->line;
    const bool isWorld = line.frame == RandomLine::Frame::World;
    std::vector<Description> rows{{QObject::tr("Nodes"), QObject::tr("%1, by %2")
                                                             .arg(line.nodes.size())
                                                             .arg(isWorld ? QObject::tr("map coordinates")
                                                                          : QObject::tr("inline and crossline"))}};
    const auto text = [](const core::vec2& node) {
        return QStringLiteral("%1 %2").arg(node.x, 0, 'f', 1).arg(node.y, 0, 'f', 1);
    };
    rows.push_back({QObject::tr("Ends"), text(line.nodes.front()) + QStringLiteral(", ") + text(line.nodes.back())});
    if (isWorld) {
        double length = 0.0;
        for (std::size_t i = 1; i < line.nodes.size(); ++i)
            length += std::hypot(line.nodes[i].x - line.nodes[i - 1].x, line.nodes[i].y - line.nodes[i - 1].y);
        rows.push_back({QObject::tr("Length"), QString::number(length, 'f', 1)});
        rows.push_back(
            {QObject::tr("Reference System"), line.crs.isNull() ? QObject::tr("not stated") : line.crs.name()});
    }
    return rows;
}

std::vector<DemoObject> RandomLineKind::demo() const
{
    using Survey = demo::SyntheticSurvey;
    constexpr int lastInline = Survey::firstInline + Survey::inlineCount - 1;
    const georef::Crs crs = georef::orNull(georef::Crs::fromAuthority(Survey::crsAuthority(), Survey::crsCode()));
    // Map coordinates in decimetres: what remains is the same on every machine.
    const auto node = [](double inlineNumber, double crossline) {
        const auto [x, y] = Survey::position(inlineNumber, crossline);
        return core::vec2{std::round(x * 10.0) / 10.0, std::round(y * 10.0) / 10.0};
    };
    RandomLine channel{QStringLiteral("Along Channel"), RandomLine::Frame::World, {}, crs};
    for (int i = Survey::firstInline; i <= lastInline; i += 10)
        channel.nodes.push_back(node(i, Survey::channelCrossline(i)));
    const RandomLine wells{QStringLiteral("S-1 to S-2"),
                           RandomLine::Frame::World,
                           {node(1010, 5020), node(1064, 5056), node(1136, 5171), node(1150, 5230)},
                           crs};
    return {{channel.name, ObjectValue::of(RandomLineText::of(channel))},
            {wells.name, ObjectValue::of(RandomLineText::of(wells))}};
}

} // namespace hv
