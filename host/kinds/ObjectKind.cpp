#include "host/kinds/ObjectKind.h"

QString ObjectKindInfo::suffix() const
{
    return QLatin1Char('.') + QString::fromLatin1(suffixes).section(QLatin1Char(' '), 0, 0);
}

QString ObjectKindInfo::objectName(const QString& fileName) const
{
    // The name is the complete base name: everything before the last point.
    const int point = fileName.lastIndexOf(QLatin1Char('.'));
    if (point <= 0)
        return {};
    const QStringRef suffix = fileName.midRef(point + 1);
    for (const char* next = suffixes; *next;) {
        const char* end = next;
        while (*end && *end != ' ')
            ++end;
        if (suffix.compare(QLatin1String(next, static_cast<int>(end - next)), Qt::CaseInsensitive) == 0)
            return fileName.left(point);
        next = *end ? end + 1 : end;
    }
    return {};
}

const std::vector<ObjectKindInfo>& objectKinds()
{
    // clang-format off
    static const std::vector<ObjectKindInfo> kinds{
        {ObjectKind::Volume, "Volume", "Volumes", "volumes", "svol", "volume_24"},
        {ObjectKind::Survey, "Survey", "Surveys", "surveys", "survey", "map_24"},
        {ObjectKind::Model, "Model", "Models", "models", "model", "tabs_24"},
        {ObjectKind::ExtractionArea, "Extraction Area", "Extraction Areas", "extraction-areas", "area", "select_all_24"},
        {ObjectKind::Horizon3d, "Horizon", "3D Horizons", "horizons-3d", "horizon", "horizon_24"},
        {ObjectKind::Fault3d, "Fault", "3D Faults", "faults-3d", "fault", "fault_24"},
        {ObjectKind::Fault2d, "2D Fault", "2D Faults", "faults-2d", "fault2d", "fault_24"},
        {ObjectKind::Culture, "Culture", "Cultures", "cultures", "geojson", "polygon_24"},
        {ObjectKind::Polyline3d, "Polyline", "Polylines", "polylines", "polyline", "chart_24"},
        {ObjectKind::Wavelet, "Wavelet", "Wavelets", "wavelets", "wavelet", "atbseismicsmall"},
        {ObjectKind::Layer, "Layer", "Layers", "layers", "layer", "blending_24"},
        {ObjectKind::Geobody, "Geobody", "Geobodies", "geobodies", "geobody", "opacity_24"},
        {ObjectKind::MultiZ, "Multi-Z Surface", "Multi-Z Surfaces", "multi-z", "multiz", "cascade_24"},
        {ObjectKind::ColorBar, "Color Bar", "Color Bars", "color-bars", "json cpt", "color_bar_24"},
        {ObjectKind::RandomLine, "Random Line", "Random Lines", "random-lines", "randomline", "2dlinesmall"},
        {ObjectKind::RandomLineSet, "Random Line Set", "Random Line Sets", "random-line-sets", "lineset", "list_24"},
        {ObjectKind::Horizon2d, "2D Horizon", "2D Horizons", "horizons-2d", "horizon2d", "horizon_24"},
        {ObjectKind::Well, "Well", "Wells", "wells", "las", "well_24"},
        {ObjectKind::Crs, "Reference System", "Reference Systems", "reference-systems", "wkt prj", "web_24"},
        {ObjectKind::PythonScript, "Script", "Python Scripts", "scripts", "py", "python_24"},
    };
    // clang-format on
    return kinds;
}

const ObjectKindInfo& objectKindInfo(ObjectKind kind)
{
    const auto& kinds = objectKinds();
    return *std::find_if(kinds.begin(), kinds.end(), [kind](const ObjectKindInfo& info) { return info.kind == kind; });
}

std::optional<ObjectKind> objectKindFromNumber(int number)
{
    for (const ObjectKindInfo& info : objectKinds())
        if (static_cast<int>(info.kind) == number)
            return info.kind;
    return std::nullopt;
}
