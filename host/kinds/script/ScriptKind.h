#pragma once

#include "host/kinds/text/TextKind.h"

namespace hv {

/// A Python script, as its file has it: in the encoding that its coding comment names.
struct Script
{
    QByteArray text;
};

class ScriptKind final : public TypedTextKind<Script>
{
public:
    const ObjectKindInfo& info() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override { return ObjectValue::of(Script{text}); }
    std::vector<Description> rows(const Script& script) const override;
};

} // namespace hv
