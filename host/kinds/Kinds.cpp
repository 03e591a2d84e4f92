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

#include <algorithm>

namespace hv {

namespace {

using Kinds = std::vector<std::unique_ptr<const IObjectKind>>;

/// Every kind has its line here and its folder beside this file; those of which nothing but the file is known share
/// PlainKind. The order is that in which kinds are listed and shown.
const Kinds& kinds()
{
    const auto make = [] {
        Kinds all;
        const auto plain = [&](const ObjectKindInfo& info) { all.push_back(std::make_unique<PlainKind>(info)); };
        all.push_back(std::make_unique<VolumeKind>());
        plain({ObjectKind::Survey, "Survey", "Surveys", "surveys", "survey", "map_24"});
        plain({ObjectKind::Model, "Model", "Models", "models", "model", "tabs_24"});
        plain({ObjectKind::ExtractionArea, "Extraction Area", "Extraction Areas", "extraction-areas", "area",
               "select_all_24"});
        plain({ObjectKind::Horizon3d, "Horizon", "3D Horizons", "horizons-3d", "horizon", "horizon_24"});
        plain({ObjectKind::Fault3d, "Fault", "3D Faults", "faults-3d", "fault", "fault_24"});
        plain({ObjectKind::Fault2d, "2D Fault", "2D Faults", "faults-2d", "fault2d", "fault_24"});
        all.push_back(std::make_unique<CultureKind>());
        plain({ObjectKind::Polyline3d, "Polyline", "Polylines", "polylines", "polyline", "chart_24"});
        plain({ObjectKind::Wavelet, "Wavelet", "Wavelets", "wavelets", "wavelet", "atbseismicsmall"});
        plain({ObjectKind::Layer, "Layer", "Layers", "layers", "layer", "blending_24"});
        plain({ObjectKind::Geobody, "Geobody", "Geobodies", "geobodies", "geobody", "opacity_24"});
        plain({ObjectKind::MultiZ, "Multi-Z Surface", "Multi-Z Surfaces", "multi-z", "multiz", "cascade_24"});
        all.push_back(std::make_unique<ColorBarKind>());
        all.push_back(std::make_unique<RandomLineKind>());
        plain({ObjectKind::RandomLineSet, "Random Line Set", "Random Line Sets", "random-line-sets", "lineset",
               "list_24"});
        plain({ObjectKind::Horizon2d, "2D Horizon", "2D Horizons", "horizons-2d", "horizon2d", "horizon_24"});
        all.push_back(std::make_unique<WellKind>());
        all.push_back(std::make_unique<CrsKind>());
        all.push_back(std::make_unique<ScriptKind>());
        return all;
    };
    static const Kinds all = make();
    return all;
}

} // namespace

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
    return **std::find_if(kinds().begin(), kinds().end(),
                          [kind](const auto& each) { return each->info().kind == kind; });
}

} // namespace hv

const std::vector<ObjectKindInfo>& objectKinds()
{
    static const std::vector<ObjectKindInfo> infos = [] {
        std::vector<ObjectKindInfo> all;
        for (const auto& kind : hv::kinds())
            all.push_back(kind->info());
        return all;
    }();
    return infos;
}
