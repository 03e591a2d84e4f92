#include "host/kinds/well/WellKind.h"

#include "host/kinds/well/WellPicture.h"

#include <QObject>
#include <QStringList>

namespace hv {

const ObjectKindInfo& WellKind::info() const
{
    static const ObjectKindInfo info{ObjectKind::Well, "Well", "Wells", "wells", "las", "well_24"};
    return info;
}

Result<ObjectValue> WellKind::parse(const QByteArray& text) const
{
    Result<las::Log> log = las::read(text);
    if (!log)
        return log.failure();
    return ObjectValue::of(Well{text, std::move(*log)});
}

std::unique_ptr<ObjectPicture> WellKind::makePicture(std::shared_ptr<const Well> well) const
{
    // Along a first curve of which nothing is known there is nothing to draw.
    return WellPicture::canShow(*well) ? std::make_unique<WellPicture>(std::move(well)) : nullptr;
}

std::vector<Description> WellKind::rows(const Well& well) const
{
    QStringList curves;
    for (const las::Item& curve : well.log.curves)
        curves << (curve.unit.isEmpty() ? curve.mnemonic : curve.mnemonic + QStringLiteral(" (%1)").arg(curve.unit));
    std::vector<Description> rows{{QObject::tr("Curves"), curves.join(QStringLiteral(", "))},
                                  {QObject::tr("Samples"), QString::number(well.log.samples.front().size())}};
    if (const QString field = well.log.wellValue("FLD"); !field.isEmpty())
        rows.push_back({QObject::tr("Field"), field});
    return rows;
}

} // namespace hv
