#pragma once

#include "host/georef/Crs.h"
#include "host/kinds/text/TextKind.h"

namespace hv {

/// A reference system with the well-known text that it was read from.
struct ReferenceSystem
{
    QByteArray text;
    georef::Crs crs;
};

class CrsKind final : public TypedTextKind<ReferenceSystem>
{
public:
    const ObjectKindInfo& info() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    std::vector<Description> rows(const ReferenceSystem& system) const override;
};

} // namespace hv
