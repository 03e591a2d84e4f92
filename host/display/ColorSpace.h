#pragma once

#include <QColor>

namespace display {

/// The way from one colour to another. All ways are linear in the position and begin and end with the colours
/// themselves; opacity is always mixed linearly.
enum class ColorSpace : int
{
    /// Straight, in sRGB components.
    RGB = 0,
    /// Hue, saturation and value; the hue takes the shorter way round the circle.
    HSV = 1,
    /// CIE L*a*b* (D65): steps that look equal.
    Lab = 2,
    /// Through white when the hues differ: K. Moreland, "Diverging Color Maps for Scientific Visualization", 2009.
    Diverging = 3,
    /// The first colour up to the second.
    Step = 4,
    /// As HSV, but the hue is a plain number between 0 and 360 degrees: from blue to red the way leads through green.
    HSVUnwrapped = 5,
};

constexpr bool isColorSpace(ColorSpace space)
{
    return space >= ColorSpace::RGB && space <= ColorSpace::HSVUnwrapped;
}

/// The colour at `t` (0 = first, 1 = second).
QRgb mix(QRgb first, QRgb second, double t, ColorSpace space);

/// Hue in degrees (any turn), saturation and value 0 to 1.
QRgb fromHsv(double hue, double saturation, double value, int alpha = 255);

/// Lightness L* of CIE L*a*b*, 0 (black) to 100 (white).
double lightness(QRgb color);

} // namespace display
