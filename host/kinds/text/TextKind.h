#pragma once

#include "host/kinds/TypedKind.h"

#include <QByteArray>

namespace hv {

/// Kinds whose files are texts of moderate size. Their values keep the text beside what they understood of it, so that
/// saving loses nothing that nobody here reads.
class TextKind : public IObjectKind
{
public:
    Result<ObjectValue> read(const QString& path) const final;
    Result<void> write(const ObjectValue& value, const QString& path) const final;

protected:
    /// What the text says. A failure is the reason alone, "it is no GeoJSON", with the line where there is one.
    virtual Result<ObjectValue> parse(const QByteArray& text) const = 0;
    /// Null for a value of another kind.
    virtual const QByteArray* textOf(const ObjectValue& value) const = 0;
};

/// A text kind whose values have the text in their member `text`.
template <class Value>
class TypedTextKind : public TypedKind<Value, TextKind>
{
protected:
    const QByteArray* textOf(const ObjectValue& value) const final
    {
        const auto typed = value.as<Value>();
        return typed ? &typed->text : nullptr;
    }
};

} // namespace hv
