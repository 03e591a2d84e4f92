#pragma once

#include "host/display/ColorSpace.h"

#include <QString>
#include <QVector>

#include <array>
#include <optional>

/// host/display: how data are shown: colour bars with their files and the catalogue of palettes, the settings of
/// contour lines, the enumerations that the viewers share. Nothing here draws.
namespace display {

/// A colour at a place of a colour bar, 0 = the lowest value, 1 = the highest.
struct ColorPoint
{
    double position;
    QRgb color;

    friend bool operator==(const ColorPoint&, const ColorPoint&) = default;
};

/// Maps values to colours by a table of 256 entries (unpremultiplied RGBA) that spans [minimum, maximum]. A value;
/// copies are independent. Not synchronised: one thread at a time.
///
/// Setters that can refuse return false and then have changed nothing. Entries are counted from 0.
class ColorBar
{
public:
    static constexpr int Count = 256;
    using Colors = std::array<QRgb, Count>;

    /// A grey scale from black to white over [0, 1], without a name.
    ColorBar();

    const QString& name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

    const Colors& colors() const { return m_colors; }
    void setColors(const Colors& colors);
    bool setColor(int entry, QRgb color);
    /// Up to 256 colours, each of which fills an equal part of the table.
    bool setBands(const QVector<QRgb>& bands);

    /// Fills the table from two or more points whose positions ascend from 0 to 1. Two points at one position make a
    /// sharp edge.
    bool setPoints(const QVector<ColorPoint>& points, ColorSpace space = ColorSpace::RGB);
    /// The points, joined straight in RGB, that the table was filled from: the exact form of the bar for files. Empty
    /// when the entries were set another way or were changed since.
    const QVector<ColorPoint>& points() const { return m_points; }

    /// The values that the ends stand for, in the unit of the data.
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    /// False unless minimum < maximum and the width of the range is finite.
    bool setRange(double minimum, double maximum);

    /// For samples without a value; transparent at first.
    QRgb noValueColor() const { return m_noValueColor; }
    void setNoValueColor(QRgb color) { m_noValueColor = color; }
    /// For values outside the range; the colour of the nearer end when not set.
    const std::optional<QRgb>& belowColor() const { return m_belowColor; }
    const std::optional<QRgb>& aboveColor() const { return m_aboveColor; }
    void setBelowColor(std::optional<QRgb> color) { m_belowColor = color; }
    void setAboveColor(std::optional<QRgb> color) { m_aboveColor = color; }

    /// The entry that a place in the bar (0 to 1, clamped) falls into.
    static int entryAt(double position);
    /// The colour of a data value. Not-a-number and the no-value marker of images have no value.
    QRgb colorOf(double value) const;

    /// Two entries that an editor of the bar has marked, first < last; both ends of the bar at first.
    int firstBound() const { return m_firstBound; }
    int lastBound() const { return m_lastBound; }
    bool setBounds(int first, int last);

    /// Replaces the entries between two others by the way from the one to the other, which keep their colours. Without
    /// arguments: between the bounds, straight in RGB. False unless 0 <= first < last < 256.
    void interpolate();
    bool interpolate(int first, int last, ColorSpace space = ColorSpace::RGB);

    /// Spreads the entries first to last over the whole bar. Without blending every entry is one of the old ones, so
    /// that the colours of a categorical bar stay what they are. False unless 0 <= first < last < 256.
    bool stretch(int first, int last, bool blend = false);

    friend bool operator==(const ColorBar&, const ColorBar&) = default;

private:
    QString m_name;
    Colors m_colors;
    QVector<ColorPoint> m_points;
    double m_minimum = 0;
    double m_maximum = 1;
    QRgb m_noValueColor = qRgba(0, 0, 0, 0);
    std::optional<QRgb> m_belowColor;
    std::optional<QRgb> m_aboveColor;
    int m_firstBound = 0;
    int m_lastBound = Count - 1;
};

} // namespace display
