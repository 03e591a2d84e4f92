#pragma once

#include "host/kinds/IObjectKind.h"

namespace hv {

/// Colour bars: values are display::ColorBar, files ParaView colour maps or palette tables.
class ColorBarKind final : public IObjectKind
{
public:
    const ObjectKindInfo& info() const override;
    Result<ObjectValue> read(const QString& path) const override;
    Result<void> write(const ObjectValue& value, const QString& path) const override;
    std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const override;
    std::vector<Description> describe(const ObjectValue& value) const override;
    /// One palette for amplitudes and one for times.
    std::vector<DemoObject> demo() const override;
};

} // namespace hv
