#pragma once

#include "host/kinds/text/TextKind.h"

#include <QPointF>

namespace hv {

/// What a well shot measured: pairs of two-way time (ms) and depth (m), with the text that they were read from.
struct TimeDepth
{
    QByteArray text;
    std::vector<QPointF> pairs; ///< at least one
};

class TimeDepthKind final : public TypedTextKind<TimeDepth>
{
public:
    /// Never changes: files and scripts have it. Kinds of Strativo itself have theirs in the enumeration.
    static constexpr ObjectKind number{1001};

    const ObjectKindInfo& info() const override;
    std::vector<DemoObject> demo() const override;

protected:
    Result<ObjectValue> parse(const QByteArray& text) const override;
    std::unique_ptr<ObjectPicture> makePicture(std::shared_ptr<const TimeDepth> value) const override;
    std::vector<Description> rows(const TimeDepth& value) const override;
};

} // namespace hv
