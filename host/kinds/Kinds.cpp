#include "host/kinds/IObjectKind.h"
#include "host/kinds/ObjectPicture.h"
#include "host/kinds/colorbar/ColorBarKind.h"
#include "host/kinds/crs/CrsKind.h"
#include "host/kinds/culture/CultureKind.h"
#include "host/kinds/plain/PlainKind.h"
#include "host/kinds/randomline/RandomLineKind.h"
#include "host/kinds/script/ScriptKind.h"
#include "host/kinds/volume/VolumeKind.h"
#include "host/kinds/well/WellKind.h"

#include <QLocale>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace hv {

namespace {

struct Table
{
    std::vector<std::unique_ptr<const IObjectKind>> kinds;
    std::vector<ObjectKindInfo> infos; // of the same

    void add(std::unique_ptr<const IObjectKind> kind)
    {
        infos.push_back(kind->info());
        kinds.push_back(std::move(kind));
    }
    void addPlain(const ObjectKindInfo& info) { add(std::make_unique<PlainKind>(info)); }
};

/// Every kind has its line here and its folder beside this file; those of which nothing but the file is known share
/// PlainKind. The order is that in which kinds are listed and shown.
void addAll(Table& to)
{
    to.add(std::make_unique<VolumeKind>());
    to.addPlain({ObjectKind::Survey, "Survey", "Surveys", "surveys", "survey", "map_24"});
    to.addPlain({ObjectKind::Model, "Model", "Models", "models", "model", "tabs_24"});
    to.addPlain({ObjectKind::ExtractionArea, "Extraction Area", "Extraction Areas", "extraction-areas", "area",
                 "select_all_24"});
    to.addPlain({ObjectKind::Horizon3d, "Horizon", "3D Horizons", "horizons-3d", "horizon", "horizon_24"});
    to.addPlain({ObjectKind::Fault3d, "Fault", "3D Faults", "faults-3d", "fault", "fault_24"});
    to.addPlain({ObjectKind::Fault2d, "2D Fault", "2D Faults", "faults-2d", "fault2d", "fault_24"});
    to.add(std::make_unique<CultureKind>());
    to.addPlain({ObjectKind::Polyline3d, "Polyline", "Polylines", "polylines", "polyline", "chart_24"});
    to.addPlain({ObjectKind::Wavelet, "Wavelet", "Wavelets", "wavelets", "wavelet", "atbseismicsmall"});
    to.addPlain({ObjectKind::Layer, "Layer", "Layers", "layers", "layer", "blending_24"});
    to.addPlain({ObjectKind::Geobody, "Geobody", "Geobodies", "geobodies", "geobody", "opacity_24"});
    to.addPlain({ObjectKind::MultiZ, "Multi-Z Surface", "Multi-Z Surfaces", "multi-z", "multiz", "cascade_24"});
    to.add(std::make_unique<ColorBarKind>());
    to.add(std::make_unique<RandomLineKind>());
    to.addPlain(
        {ObjectKind::RandomLineSet, "Random Line Set", "Random Line Sets", "random-line-sets", "lineset", "list_24"});
    to.addPlain({ObjectKind::Horizon2d, "2D Horizon", "2D Horizons", "horizons-2d", "horizon2d", "horizon_24"});
    to.add(std::make_unique<WellKind>());
    to.add(std::make_unique<CrsKind>());
    to.add(std::make_unique<ScriptKind>());
}

Table& table()
{
    static Table all = [] {
        Table made;
        addAll(made);
        return made;
    }();
    return all;
}

bool excludes(const ObjectKindInfo& a, const ObjectKindInfo& b)
{
    const auto suffixes = [](const ObjectKindInfo& info) {
        const QStringList all = QString::fromLatin1(info.suffixes).split(QLatin1Char(' '));
        return QSet<QString>(all.begin(), all.end());
    };
    return a.kind == b.kind || qstrcmp(a.folder, b.folder) == 0 || suffixes(a).intersects(suffixes(b));
}

} // namespace

std::vector<Description> describeFile(qint64 size, const QDateTime& modified)
{
    return {{QObject::tr("Size"), QLocale().formattedDataSize(size)},
            {QObject::tr("Changed"), QLocale().toString(modified, QLocale::ShortFormat)}};
}

std::unique_ptr<ObjectPicture> IObjectKind::picture(const ObjectValue& /*value*/) const
{
    return nullptr;
}

std::vector<DemoObject> IObjectKind::demo() const
{
    return {};
}

const IObjectKind& objectKind(ObjectKind kind)
{
    const auto& kinds = table().kinds;
    return **std::find_if(kinds.begin(), kinds.end(), [kind](const auto& each) { return each->info().kind == kind; });
}

bool addObjectKind(std::unique_ptr<const IObjectKind> kind)
{
    Table& all = table();
    if (std::any_of(all.infos.begin(), all.infos.end(),
                    [&](const ObjectKindInfo& other) { return excludes(kind->info(), other); }))
        return false;
    all.add(std::move(kind));
    return true;
}

} // namespace hv

const std::vector<ObjectKindInfo>& objectKinds()
{
    return hv::table().infos;
}
