#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QVariantAnimation>

/// An on/off switch: a knob in a track that slides to the side of its state. The text of the button, if any, stands in
/// the free part of the track, which is as wide as the widget.
///
/// It is a checkable button, so toggled(bool), the keyboard, shortcuts and accessibility (a check box) are the usual.
class HVSwitch : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QColor onColor READ onColor WRITE setOnColor)
    Q_PROPERTY(QColor offColor READ offColor WRITE setOffColor)
    Q_PROPERTY(bool switched READ isSwitched WRITE setSwitched)
    Q_PROPERTY(int animationDuration READ animationDuration WRITE setAnimationDuration)

public:
    explicit HVSwitch(QWidget* parent = nullptr);

    /// The track's colours; an invalid colour stands for the theme's, which is what they are at first.
    QColor onColor() const;
    void setOnColor(const QColor& color);
    QColor offColor() const;
    void setOffColor(const QColor& color);

    bool isSwitched() const { return isChecked(); }
    void setSwitched(bool on) { setChecked(on); }

    /// Milliseconds that the knob is under way; 0 for none, which negative numbers become.
    int animationDuration() const { return m_animation.duration(); }
    void setAnimationDuration(int milliseconds);

    /// Where the knob is: 0 at the off side, 1 at the on side.
    double knobPosition() const { return m_position; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void moveKnob(bool on);
    int trackHeight() const;

    QColor m_onColor;
    QColor m_offColor;
    QVariantAnimation m_animation;
    double m_position = 0.0;
};
