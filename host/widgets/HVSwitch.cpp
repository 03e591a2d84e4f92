#include "host/widgets/HVSwitch.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int g_animationMilliseconds = 120;
constexpr int g_margin = 2; // room for the focus ring, and the knob's distance from the track's edge

QColor between(const QColor& from, const QColor& to, double place)
{
    const auto mix = [place](double a, double b) { return a + (b - a) * place; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()), mix(from.blueF(), to.blueF()),
                            mix(from.alphaF(), to.alphaF()));
}

/// Black or white, whichever is read more easily on the ground (relative luminance as in WCAG 2, gamma taken as 2.2).
QColor readableOn(const QColor& ground)
{
    const auto linear = [](double c) { return std::pow(c, 2.2); };
    const double light =
        0.2126 * linear(ground.redF()) + 0.7152 * linear(ground.greenF()) + 0.0722 * linear(ground.blueF());
    return light > 0.18 ? QColor(Qt::black) : QColor(Qt::white);
}

} // namespace

HVSwitch::HVSwitch(QWidget* parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    m_animation.setDuration(g_animationMilliseconds);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_position = value.toDouble();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, &HVSwitch::moveKnob);
}

void HVSwitch::moveKnob(bool on)
{
    const double end = on ? 1.0 : 0.0;
    m_animation.stop();
    if (!isVisible() || m_animation.duration() == 0) {
        m_position = end;
        update();
        return;
    }
    // A knob under way turns round where it is.
    m_animation.setStartValue(m_position);
    m_animation.setEndValue(end);
    m_animation.start();
}

QColor HVSwitch::onColor() const
{
    return m_onColor.isValid() ? m_onColor : palette().color(QPalette::Highlight);
}

void HVSwitch::setOnColor(const QColor& color)
{
    m_onColor = color;
    update();
}

QColor HVSwitch::offColor() const
{
    return m_offColor.isValid()
               ? m_offColor
               : between(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.4);
}

void HVSwitch::setOffColor(const QColor& color)
{
    m_offColor = color;
    update();
}

void HVSwitch::setAnimationDuration(int milliseconds)
{
    m_animation.setDuration(std::max(0, milliseconds));
}

int HVSwitch::trackHeight() const
{
    return fontMetrics().height() + 4;
}

QSize HVSwitch::sizeHint() const
{
    ensurePolished();
    const int height = trackHeight();
    const int textWidth = text().isEmpty() ? 0 : fontMetrics().size(Qt::TextShowMnemonic, text()).width() + height / 2;
    return {std::max(height * 9 / 5, height + textWidth) + 2 * g_margin, height + 2 * g_margin};
}

QSize HVSwitch::minimumSizeHint() const
{
    return sizeHint();
}

void HVSwitch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double height = std::min(trackHeight(), this->height() - 2 * g_margin);
    const QRectF track(g_margin, (this->height() - height) / 2.0, width() - 2.0 * g_margin, height);
    const double round = height / 2.0;

    QColor ground = between(offColor(), onColor(), m_position);
    if (!isEnabled())
        ground = between(palette().color(QPalette::Window), ground, 0.35);
    else if (isDown())
        ground = ground.darker(112);
    else if (underMouse())
        ground = ground.lighter(106);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(track, round, round);

    const double knobSize = height - 2.0 * g_margin;
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    const double place = fromRight ? 1.0 - m_position : m_position;
    const QRectF knob(track.left() + g_margin + place * (track.width() - height), track.top() + g_margin, knobSize,
                      knobSize);
    painter.setBrush(isEnabled() ? QColor(Qt::white) : between(palette().color(QPalette::Window), Qt::white, 0.6));
    painter.setPen(QPen(QColor(0, 0, 0, 60), 1));
    painter.drawEllipse(knob);

    if (!text().isEmpty()) {
        // The state's own side, not the knob's: the text does not run along with it.
        const bool knobAtRight = isChecked() != fromRight;
        const double inset = round / 2.0;
        const QRectF room = knobAtRight ? track.adjusted(inset, 0, -height, 0) : track.adjusted(height, 0, -inset, 0);
        painter.setPen(isEnabled() ? readableOn(ground) : palette().color(QPalette::Disabled, QPalette::WindowText));
        const QString shown =
            fontMetrics().elidedText(text(), Qt::ElideRight, static_cast<int>(room.width()), Qt::TextShowMnemonic);
        painter.drawText(room, Qt::AlignCenter | Qt::TextShowMnemonic, shown);
    }

    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        const QRectF ring = track.adjusted(-1.25, -1.25, 1.25, 1.25);
        painter.drawRoundedRect(ring, round + 1.25, round + 1.25);
        // The track may have the ring's colour; a gap keeps them apart.
        painter.setPen(QPen(palette().color(QPalette::Window), 1));
        painter.drawRoundedRect(track, round, round);
    }
}

void HVSwitch::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    update();
}

void HVSwitch::enterEvent(QEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void HVSwitch::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}
