#pragma once

#include "host/kinds/text/TextKind.h"

namespace hv {

/// A Python script, as its file has it: in the encoding that its coding comment names.
struct Script
{
    QByteArray text;
};

class ScriptKind final : public TextKind
{
public:
    const ObjectKindInfo& info() const override;
    std::vector<Description> describe(const ObjectValue& value) const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override { return ObjectValue::of(Script{text}); }
    const QByteArray* textOf(const ObjectValue& value) const override;
};

} // namespace hv
