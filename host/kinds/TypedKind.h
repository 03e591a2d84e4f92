#pragma once

#include "host/kinds/IObjectKind.h"
#include "host/kinds/ObjectPicture.h"

#include <utility>

namespace hv {

/// A kind whose values are all of one type; of another kind's value it has neither picture nor description. `Base` says
/// how files are read and written.
template <class Value, class Base = IObjectKind>
class TypedKind : public Base
{
public:
    std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const final
    {
        auto typed = value.as<Value>();
        return typed ? makePicture(std::move(typed)) : nullptr;
    }
    std::vector<Description> describe(const ObjectValue& value) const final
    {
        const auto typed = value.as<Value>();
        return typed ? rows(*typed) : std::vector<Description>();
    }

protected:
    virtual std::unique_ptr<ObjectPicture> makePicture(std::shared_ptr<const Value> /*value*/) const { return nullptr; }
    virtual std::vector<Description> rows(const Value& value) const = 0;
};

} // namespace hv
