#pragma once

#include "host/core/Result.h"
#include "host/kinds/ObjectKind.h"
#include "host/kinds/ObjectValue.h"

/// host/kinds: what the objects of each kind are: their files, values, pictures and descriptions. A folder per kind.

namespace hv {

/// One kind of object. Constant and without state: any thread may call any function.
class IObjectKind
{
public:
    virtual ~IObjectKind() = default;

    virtual const ObjectKindInfo& info() const = 0;

    /// The value that a file holds. A failure is one sentence that names the file.
    virtual Result<ObjectValue> read(const QString& path) const = 0;
    /// Replaces the file as a whole, or leaves it as it was.
    virtual Result<void> write(const ObjectValue& value, const QString& path) const = 0;
};

const IObjectKind& objectKind(ObjectKind kind);

} // namespace hv
