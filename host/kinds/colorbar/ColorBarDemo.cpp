#include "host/display/PaletteCatalogue.h"
#include "host/kinds/colorbar/ColorBarKind.h"

namespace hv {

std::vector<DemoObject> ColorBarKind::demo() const
{
    const auto palette = [](const char* identifier, const QString& name) {
        display::ColorBar bar = display::PaletteCatalogue::instance().find(QLatin1String(identifier))->colorBar;
        bar.setName(name);
        return DemoObject{name, ObjectValue::of(bar)};
    };
    return {palette("SEISMIC", QStringLiteral("Amplitude")), palette("VIRIDIS", QStringLiteral("Horizon Time"))};
}

} // namespace hv
