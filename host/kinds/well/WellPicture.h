#pragma once

#include "host/kinds/ObjectPicture.h"
#include "host/kinds/well/WellKind.h"

namespace hv {

/// The curves as tracks beside each other, downwards along the first curve.
class WellPicture final : public ObjectPicture
{
public:
    /// False without a second curve, or when the first has no range.
    static bool canShow(const Well& well);
    /// Only of a well that can be shown.
    explicit WellPicture(std::shared_ptr<const Well> well);

    QRectF page() const override;
    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override;
    QString positionText(QPointF position) const override;

private:
    struct Range
    {
        double low;
        double high;
    };
    static Range rangeOf(const std::vector<double>& samples);
    void paintTrack(QPainter& painter, const QPalette& palette, std::size_t curve) const;

    std::shared_ptr<const Well> m_well;
    Range m_depth;
};

} // namespace hv
