#pragma once

#include "host/kinds/text/TextKind.h"
#include "host/volume/RandomLine.h"

namespace hv {

/// A random line with the text that it was read from.
struct RandomLineText
{
    QByteArray text;
    RandomLine line;

    static RandomLineText of(const RandomLine& line) { return {randomLineText(line), line}; }
};

class RandomLineKind final : public TextKind
{
public:
    const ObjectKindInfo& info() const override;
    std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const override;
    std::vector<Description> describe(const ObjectValue& value) const override;
    /// Along the channel, and across the fault.
    std::vector<DemoObject> demo() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    const QByteArray* textOf(const ObjectValue& value) const override;
};

} // namespace hv
