#pragma once

#include "host/formats/MapOutline.h"
#include "host/kinds/text/TextKind.h"

namespace hv {

/// Lines, areas and points on the map, with the GeoJSON text that they were read from.
struct Culture
{
    QByteArray text;
    MapOutline outline;
};

class CultureKind final : public TextKind
{
public:
    const ObjectKindInfo& info() const override;
    std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const override;
    std::vector<Description> describe(const ObjectValue& value) const override;
    /// The outline of what was acquired and the channel's axis.
    std::vector<DemoObject> demo() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    const QByteArray* textOf(const ObjectValue& value) const override;
};

} // namespace hv
