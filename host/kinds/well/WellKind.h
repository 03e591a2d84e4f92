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

class WellKind final : public TextKind
{
public:
    const ObjectKindInfo& info() const override;
    std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const override;
    std::vector<Description> describe(const ObjectValue& value) const override;
    /// Two wells with depth, time and gamma ray.
    std::vector<DemoObject> demo() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    const QByteArray* textOf(const ObjectValue& value) const override;
};

} // namespace hv
