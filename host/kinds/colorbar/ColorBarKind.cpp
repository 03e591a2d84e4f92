#include "host/kinds/colorbar/ColorBarKind.h"

#include "host/formats/ColorBarFile.h"
#include "host/kinds/colorbar/ColorBarPicture.h"

#include <QDir>
#include <QObject>

namespace hv {

using display::ColorBar;

const ObjectKindInfo& ColorBarKind::info() const
{
    static const ObjectKindInfo info{ObjectKind::ColorBar, "Color Bar", "Color Bars",
                                     "color-bars",         "json cpt",  "color_bar_24"};
    return info;
}

Result<ObjectValue> ColorBarKind::read(const QString& path) const
{
    QString reason;
    std::optional<ColorBar> bar = display::readColorBar(path, {}, reason);
    if (!bar)
        return Failure(QStringLiteral("Unable to read '%1': %2.").arg(QDir::toNativeSeparators(path), reason), path);
    return ObjectValue::of(std::move(*bar));
}

Result<void> ColorBarKind::write(const ObjectValue& value, const QString& path) const
{
    const auto bar = value.as<ColorBar>();
    QString reason(QStringLiteral("it is no colour bar"));
    if (bar && display::writeColorBar(*bar, path, reason))
        return {};
    return Failure(QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), reason), path);
}

std::unique_ptr<ObjectPicture> ColorBarKind::picture(const ObjectValue& value) const
{
    const auto bar = value.as<ColorBar>();
    return bar ? std::make_unique<ColorBarPicture>(bar) : nullptr;
}

std::vector<Description> ColorBarKind::describe(const ObjectValue& value) const
{
    const auto bar = value.as<ColorBar>();
    if (!bar)
        return {};
    return {{QObject::tr("Range"),
             QObject::tr("%1 to %2").arg(QString::number(bar->minimum()), QString::number(bar->maximum()))}};
}

} // namespace hv
