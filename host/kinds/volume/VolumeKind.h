#pragma once

#include "host/kinds/IObjectKind.h"
#include "host/volume/VolumeFile.h"

#include <functional>

namespace hv {

/// Writes the file of a volume that is nowhere yet, for values of the kind that are too large to be held.
struct VolumeSource
{
    std::function<Result<void>(const QString& path)> write;
};

/// A value is a VolumeFile: the header, and the samples as they lie in the file. What is written is that, as a copy, or
/// a VolumeSource.
class VolumeKind final : public IObjectKind
{
public:
    const ObjectKindInfo& info() const override;
    bool readsFile() const override { return true; }
    Result<ObjectValue> read(const QString& path) const override;
    Result<void> write(const ObjectValue& value, const QString& path) const override;
    std::unique_ptr<ObjectPicture> picture(const ObjectValue& value) const override;
    std::vector<Description> describe(const ObjectValue& value) const override;
    /// The whole survey: its reflections, and their envelope.
    std::vector<DemoObject> demo() const override;
};

} // namespace hv
