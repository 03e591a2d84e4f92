#include "host/kinds/volume/VolumePicture.h"

#include "host/core/Transform.h"
#include "host/display/PaletteCatalogue.h"
#include "host/formats/SettingNames.h"

#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace hv {

namespace {

// Page units.
constexpr QRectF g_section{0, 0, 400, 300};
constexpr QRectF g_bar{412, 20, 14, 260};
constexpr QRectF g_page{-6, -6, 482, 312};
/// More cells than this in a direction differ by less than a pixel.
constexpr int g_mostCells = 1600;

} // namespace

display::ColorBar standardColors(const std::optional<VolumeStatistics>& statistics)
{
    const bool isKnown = statistics && statistics->count > 0;
    const double low = isKnown ? statistics->percentile(2).value_or(statistics->minimum) : -1.0;
    const double high = isKnown ? statistics->percentile(98).value_or(statistics->maximum) : 1.0;
    const bool isSigned = low < 0.0 && high > 0.0;
    const auto* palette =
        display::PaletteCatalogue::instance().find(isSigned ? QStringLiteral("SEISMIC") : QStringLiteral("VIRIDIS"));
    display::ColorBar bar = palette->colorBar;
    const double most = std::max(std::abs(low), std::abs(high));
    // All samples may be the same, and no range is then as good as another.
    if (!(isSigned ? bar.setRange(-most, most) : bar.setRange(low, high)))
        bar.setRange(low - 1.0, low + 1.0);
    bar.setNoValueColor(qRgba(0, 0, 0, 0));
    return bar;
}

VolumePicture::VolumePicture(std::shared_ptr<const VolumeFile> file)
    : m_file(std::move(file)), m_inline(m_file->header().inlines() / 2),
      m_colors(standardColors(m_file->header().statistics))
{
    makeSection();
}

QRectF VolumePicture::page() const
{
    return g_page;
}

void VolumePicture::makeSection()
{
    const FrameShape shape = m_file->shape(georef::ScanOrientation::Inline);
    const int columns = std::min(shape.width, g_mostCells);
    const int rows = std::min(shape.height, g_mostCells);
    m_section = QImage(columns, rows, QImage::Format_ARGB32);
    const float noValue = m_file->header().noValue;
    const float* frame = m_file->order(georef::ScanOrientation::Inline) + m_inline * shape.cells();
    for (int y = 0; y < rows; ++y) {
        const float* row = frame + std::int64_t(y) * shape.height / rows * shape.width;
        auto* pixels = reinterpret_cast<QRgb*>(m_section.scanLine(y));
        for (int x = 0; x < columns; ++x) {
            const float sample = row[std::int64_t(x) * shape.width / columns];
            pixels[x] = sample == noValue ? m_colors.noValueColor() : m_colors.colorOf(sample);
        }
    }
}

void VolumePicture::paint(QPainter& painter, const QFont& font, const QPalette& palette) const
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(g_section, m_section);
    QPen frame(palette.color(QPalette::Mid), 1);
    frame.setCosmetic(true);
    painter.setPen(frame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(g_section);
    QImage bar(1, display::ColorBar::Count, QImage::Format_ARGB32);
    for (int i = 0; i < display::ColorBar::Count; ++i)
        bar.setPixel(0, i, m_colors.colors()[static_cast<std::size_t>(display::ColorBar::Count - 1 - i)]);
    painter.drawImage(g_bar, bar);
    painter.drawRect(g_bar);
    QFont small = font;
    small.setPixelSize(9);
    painter.setFont(small);
    painter.setPen(palette.color(QPalette::Text));
    const auto label = [&](double value, const QRectF& place) {
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, QString::number(value, 'g', 3));
    };
    label(m_colors.maximum(), {g_bar.right() + 4, g_bar.top() - 6, 46, 12});
    label(m_colors.minimum(), {g_bar.right() + 4, g_bar.bottom() - 6, 46, 12});
}

QString VolumePicture::positionText(QPointF position) const
{
    if (!g_section.contains(position))
        return {};
    const VolumeHeader& header = m_file->header();
    const auto cell = [](double share, int count) { return std::clamp(static_cast<int>(share * count), 0, count - 1); };
    const int crossline = cell(position.x() / g_section.width(), header.crosslines());
    const int sample = cell(position.y() / g_section.height(), header.sampleCount());
    const core::vec3 survey =
        core::transform(header.space.fromBlockToSurvey(), {double(crossline), double(m_inline), double(sample)});
    const auto value = m_file->sample(m_inline, crossline, sample);
    return QObject::tr("Inline %1   Crossline %2   %3 %4   %5")
        .arg(QString::number(survey.x), QString::number(survey.y), domainName(header.domain), QString::number(survey.z),
             value && *value != header.noValue ? QString::number(*value, 'g', 5) : QObject::tr("no value"));
}

} // namespace hv
