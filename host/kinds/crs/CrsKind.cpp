#include "host/kinds/crs/CrsKind.h"

#include <QObject>

namespace hv {

const ObjectKindInfo& CrsKind::info() const
{
    static const ObjectKindInfo info{ObjectKind::Crs,     "Reference System", "Reference Systems",
                                     "reference-systems", "wkt prj",          "web_24"};
    return info;
}

Result<ObjectValue> CrsKind::parse(const QByteArray& text) const
{
    const auto crs = georef::Crs::fromWkt(QString::fromUtf8(text));
    if (!crs)
        return crs.failure();
    return ObjectValue::of(ReferenceSystem{text, *crs});
}

std::vector<Description> CrsKind::rows(const ReferenceSystem& system) const
{
    std::vector<Description> rows{{QObject::tr("Name"), system.crs.name()}};
    if (!system.crs.authority().isEmpty())
        rows.push_back({QObject::tr("Registered as"), system.crs.authority() + ':' + system.crs.authorityCode()});
    return rows;
}

} // namespace hv
