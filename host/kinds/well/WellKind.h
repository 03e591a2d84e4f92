#pragma once

#include "host/formats/Las.h"
#include "host/kinds/text/TextKind.h"

namespace hv {

/// A well's logs with the LAS text that they were read from.
struct Well
{
    QByteArray text;
    las::Log log;
};

class WellKind final : public TypedTextKind<Well>
{
public:
    const ObjectKindInfo& info() const override;
    /// Two wells with depth, time and gamma ray.
    std::vector<DemoObject> demo() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    std::unique_ptr<ObjectPicture> makePicture(std::shared_ptr<const Well> well) const override;
    std::vector<Description> rows(const Well& well) const override;
};

} // namespace hv
