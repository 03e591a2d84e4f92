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
    Result<ColorBar> bar = display::readColorBar(path, {});
    if (!bar)
        return Failure(
            QStringLiteral("Unable to read '%1': %2.").arg(QDir::toNativeSeparators(path), bar.failure().sentence),
            path, bar.failure().line);
    return ObjectValue::of(std::move(*bar));
}

Result<void> ColorBarKind::write(const ObjectValue& value, const QString& path) const
{
    const auto bar = value.as<ColorBar>();
    const Result<void> written =
        bar ? display::writeColorBar(*bar, path) : Failure(QStringLiteral("it is no colour bar"));
    if (written)
        return {};
    return Failure(
        QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(path), written.failure().sentence),
        path);
}

std::unique_ptr<ObjectPicture> ColorBarKind::makePicture(std::shared_ptr<const ColorBar> bar) const
{
    return std::make_unique<ColorBarPicture>(std::move(bar));
}

std::vector<Description> ColorBarKind::rows(const ColorBar& bar) const
{
    return {{QObject::tr("Range"),
             QObject::tr("%1 to %2").arg(QString::number(bar.minimum()), QString::number(bar.maximum()))}};
}

} // namespace hv
