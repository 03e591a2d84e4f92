#include "host/kinds/volume/VolumeKind.h"

#include "host/core/Transform.h"
#include "host/formats/FileCopy.h"
#include "host/formats/SettingNames.h"
#include "host/georef/Crs.h"
#include "host/kinds/volume/VolumePicture.h"

#include <QDir>
#include <QLocale>

namespace hv {

namespace {

QString number(double value)
{
    return QString::number(value, 'g', 8);
}

/// "1001 to 1200, step 1 (200)" of one axis.
QString axisText(double first, double step, int count, const QString& unit)
{
    const QString last = number(first + step * (count - 1));
    return count == 1 ? number(first) + unit
                      : QObject::tr("%1 to %2%3, step %4 (%5)").arg(number(first), last, unit, number(step)).arg(count);
}

QString cornerText(const georef::BlocSpace& space, double x, double y)
{
    const core::vec3 corner = core::transform(space.fromBlockToWorld(), {x, y, 0.0});
    return QStringLiteral("%1 %2").arg(corner.x, 0, 'f', 1).arg(corner.y, 0, 'f', 1);
}

void describeGeometry(const VolumeHeader& header, std::vector<Description>& rows)
{
    const georef::BlocSpace& space = header.space;
    const core::vec3 first = core::transform(space.fromBlockToSurvey(), {0.0, 0.0, 0.0});
    const core::vec3 next = core::transform(space.fromBlockToSurvey(), {1.0, 1.0, 1.0});
    const QString unit = QLatin1Char(' ') + unitName(header.verticalUnit).toLower();
    rows.push_back({QObject::tr("Inlines"), axisText(first.x, next.x - first.x, header.inlines(), {})});
    rows.push_back({QObject::tr("Crosslines"), axisText(first.y, next.y - first.y, header.crosslines(), {})});
    rows.push_back({domainName(header.domain), axisText(first.z, next.z - first.z, header.sampleCount(), unit)});
    if (!header.crs.isEmpty()) {
        const auto crs = georef::Crs::fromWkt(header.crs);
        rows.push_back({QObject::tr("Reference System"), crs ? crs->name() : QObject::tr("not readable")});
    }
    if (space.fromBlockToWorld() == core::mat4::identity())
        return;
    const double right = space.width() - 1;
    const double top = space.height() - 1;
    rows.push_back({QObject::tr("Corners"), QStringList{cornerText(space, 0, 0), cornerText(space, right, 0),
                                                        cornerText(space, right, top), cornerText(space, 0, top)}
                                                .join(QLatin1String(", "))});
}

void describeSamples(const VolumeHeader& header, std::vector<Description>& rows)
{
    if (!header.samples.isEmpty())
        rows.push_back({QObject::tr("Samples"), header.samples});
    if (!header.statistics)
        return;
    const VolumeStatistics& statistics = *header.statistics;
    if (statistics.count == 0) {
        rows.push_back({QObject::tr("Range"), QObject::tr("no values")});
        return;
    }
    rows.push_back(
        {QObject::tr("Range"), QObject::tr("%1 to %2").arg(number(statistics.minimum), number(statistics.maximum))});
    rows.push_back({QObject::tr("Mean"), number(statistics.mean)});
    rows.push_back({QObject::tr("Standard Deviation"), number(statistics.deviation)});
    const auto low = statistics.percentile(2);
    const auto high = statistics.percentile(98);
    if (low && high)
        rows.push_back({QObject::tr("2 to 98 %"), QObject::tr("%1 to %2").arg(number(*low), number(*high))});
    const std::int64_t all = std::int64_t(header.inlines()) * header.crosslines() * header.sampleCount();
    if (statistics.count < all)
        rows.push_back({QObject::tr("Without Value"),
                        QStringLiteral("%1 %").arg(100.0 * double(all - statistics.count) / double(all), 0, 'f', 1)});
}

QString ordersText(const VolumeLayout& layout)
{
    QStringList names{QObject::tr("inlines")};
    const auto add = [&](georef::ScanOrientation orientation, const QString& name) {
        if (const auto& order = layout.order(orientation))
            names << (order->isWhole ? name : QObject::tr("%1 (out of date)").arg(name));
    };
    add(georef::ScanOrientation::Crossline, QObject::tr("crosslines"));
    add(georef::ScanOrientation::Timeslice, QObject::tr("time slices"));
    return names.join(QLatin1String(", "));
}

} // namespace

const ObjectKindInfo& VolumeKind::info() const
{
    static const ObjectKindInfo info{ObjectKind::Volume, "Volume", "Volumes", "volumes", "svol", "volume_24"};
    return info;
}

Result<ObjectValue> VolumeKind::read(const QString& path) const
{
    auto file = VolumeFile::open(path);
    if (!file)
        return file.failure();
    return ObjectValue(*file);
}

Result<void> VolumeKind::write(const ObjectValue& value, const QString& path) const
{
    if (const auto file = value.as<VolumeFile>())
        return copyWholeFile(file->descriptor(), path);
    if (const auto source = value.as<VolumeSource>())
        return source->write(path);
    return Failure(QStringLiteral("Unable to write '%1': it is no volume.").arg(QDir::toNativeSeparators(path)), path);
}

std::unique_ptr<ObjectPicture> VolumeKind::picture(const ObjectValue& value) const
{
    const auto file = value.as<VolumeFile>();
    return file ? std::make_unique<VolumePicture>(file) : nullptr;
}

std::vector<Description> VolumeKind::describe(const ObjectValue& value) const
{
    const auto file = value.as<VolumeFile>();
    if (!file)
        return {};
    const VolumeHeader& header = file->header();
    std::vector<Description> rows;
    describeGeometry(header, rows);
    describeSamples(header, rows);
    rows.push_back({QObject::tr("Size"), QLocale().formattedDataSize(file->fileSize())});
    rows.push_back({QObject::tr("Stored by"), ordersText(file->layout())});
    for (const HistoryEntry& entry : header.history)
        rows.push_back({QLocale().toString(entry.when.toLocalTime(), QLocale::ShortFormat), entry.what});
    return rows;
}

} // namespace hv
