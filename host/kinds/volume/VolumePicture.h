#pragma once

#include "host/display/ColorBar.h"
#include "host/kinds/ObjectPicture.h"
#include "host/volume/VolumeFile.h"

#include <QImage>

namespace hv {

/// The section along the middle inline, and the colour bar that it is painted with: red and blue about zero for samples
/// of both signs, and from low to high for others.
class VolumePicture final : public ObjectPicture
{
public:
    explicit VolumePicture(std::shared_ptr<const VolumeFile> file);

    QRectF page() const override;
    void paint(QPainter& painter, const QFont& font, const QPalette& palette) const override;
    QString positionText(QPointF position) const override;

private:
    void makeSection();

    std::shared_ptr<const VolumeFile> m_file;
    int m_inline;
    display::ColorBar m_colors;
    QImage m_section;
};

/// The colours that samples of such statistics are shown in unless somebody chose others.
display::ColorBar standardColors(const std::optional<VolumeStatistics>& statistics);

} // namespace hv
