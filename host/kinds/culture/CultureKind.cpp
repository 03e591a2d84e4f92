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

std::unique_ptr<ObjectPicture> CultureKind::makePicture(std::shared_ptr<const Culture> culture) const
{
    return std::make_unique<CulturePicture>(std::move(culture));
}

std::vector<Description> CultureKind::rows(const Culture& culture) const
{
    const QRectF bounds = culture.outline.bounds;
    const auto range = [](double from, double to) {
        return QObject::tr("%1 to %2").arg(QString::number(from, 'f', 1), QString::number(to, 'f', 1));
    };
    return {{QObject::tr("X"), range(bounds.left(), bounds.right())},
            {QObject::tr("Y"), range(bounds.top(), bounds.bottom())}};
}

} // namespace hv
