#include "host/kinds/culture/CultureKind.h"

#include "host/kinds/culture/CulturePicture.h"

#include <QObject>

namespace hv {

const ObjectKindInfo& CultureKind::info() const
{
    static const ObjectKindInfo info{ObjectKind::Culture, "Culture", "Cultures", "cultures", "geojson", "polygon_24"};
    return info;
}

Result<ObjectValue> CultureKind::parse(const QByteArray& text) const
{
    auto outline = readMapOutline(text);
    if (!outline)
        return outline.failure();
    return ObjectValue::of(Culture{text, std::move(*outline)});
}

std::unique_ptr<ObjectPicture> CultureKind::picture(const ObjectValue& value) const
{
    const auto culture = value.as<Culture>();
    return culture ? std::make_unique<CulturePicture>(culture) : nullptr;
}

std::vector<Description> CultureKind::describe(const ObjectValue& value) const
{
    const auto culture = value.as<Culture>();
    if (!culture)
        return {};
    const QRectF bounds = culture->outline.bounds;
    const auto range = [](double from, double to) {
        return QObject::tr("%1 to %2").arg(QString::number(from, 'f', 1), QString::number(to, 'f', 1));
    };
    return {{QObject::tr("X"), range(bounds.left(), bounds.right())},
            {QObject::tr("Y"), range(bounds.top(), bounds.bottom())}};
}

const QByteArray* CultureKind::textOf(const ObjectValue& value) const
{
    const auto culture = value.as<Culture>();
    return culture ? &culture->text : nullptr;
}

} // namespace hv
