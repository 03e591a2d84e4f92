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

class CultureKind final : public TypedTextKind<Culture>
{
public:
    const ObjectKindInfo& info() const override;
    /// The outline of what was acquired and the channel's axis.
    std::vector<DemoObject> demo() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    std::unique_ptr<ObjectPicture> makePicture(std::shared_ptr<const Culture> culture) const override;
    std::vector<Description> rows(const Culture& culture) const override;
};

} // namespace hv
