#pragma once

#include "host/display/ColorBar.h"
#include "host/kinds/TypedKind.h"

namespace hv {

/// Colour bars: values are display::ColorBar, files ParaView colour maps or palette tables.
class ColorBarKind final : public TypedKind<display::ColorBar>
{
public:
    const ObjectKindInfo& info() const override;
    Result<ObjectValue> read(const QString& path) const override;
    Result<void> write(const ObjectValue& value, const QString& path) const override;
    /// One palette for amplitudes and one for times.
    std::vector<DemoObject> demo() const override;

protected:
    std::unique_ptr<ObjectPicture> makePicture(std::shared_ptr<const display::ColorBar> bar) const override;
    std::vector<Description> rows(const display::ColorBar& bar) const override;
};

} // namespace hv
