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
};

} // namespace hv
