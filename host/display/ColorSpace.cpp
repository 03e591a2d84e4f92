#include "host/display/ColorSpace.h"

#include <array>
#include <cmath>
#include <numbers>

namespace display {

namespace {

using Triple = std::array<double, 3>;

double linear(double a, double b, double t)
{
    return a + (b - a) * t;
}

Triple linear(const Triple& a, const Triple& b, double t)
{
    return {linear(a[0], b[0], t), linear(a[1], b[1], t), linear(a[2], b[2], t)};
}

/// Halves go up, also those that lost their last bits on the way through a file.
int toByte(double component)
{
    return static_cast<int>(std::clamp(component, 0.0, 1.0) * 255 + 0.5 + 1e-9);
}

int mixedAlpha(QRgb first, QRgb second, double t)
{
    return toByte(linear(qAlpha(first), qAlpha(second), t) / 255);
}

// sRGB as of IEC 61966-2-1, white point D65; L*a*b* as of CIE 15.

double toLinearLight(int component)
{
    const double c = component / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double fromLinearLight(double light)
{
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

constexpr Triple g_white{0.95047, 1.0, 1.08883};
constexpr double g_epsilon = 216.0 / 24389;
constexpr double g_kappa = 24389.0 / 27;

Triple toLab(QRgb color)
{
    const double r = toLinearLight(qRed(color));
    const double g = toLinearLight(qGreen(color));
    const double b = toLinearLight(qBlue(color));
    const auto f = [](double t) { return t > g_epsilon ? std::cbrt(t) : (g_kappa * t + 16) / 116; };
    const double x = f((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / g_white[0]);
    const double y = f((0.2126729 * r + 0.7151522 * g + 0.0721750 * b) / g_white[1]);
    const double z = f((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / g_white[2]);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

QRgb fromLab(const Triple& lab, int alpha)
{
    const double fy = (lab[0] + 16) / 116;
    const auto inverse = [](double f) { return f * f * f > g_epsilon ? f * f * f : (116 * f - 16) / g_kappa; };
    const double x = g_white[0] * inverse(fy + lab[1] / 500);
    const double y = g_white[1] * inverse(fy);
    const double z = g_white[2] * inverse(fy - lab[2] / 200);
    return qRgba(toByte(fromLinearLight(3.2404542 * x - 1.5371385 * y - 0.4985314 * z)),
                 toByte(fromLinearLight(-0.9692660 * x + 1.8760108 * y + 0.0415560 * z)),
                 toByte(fromLinearLight(0.0556434 * x - 0.2040259 * y + 1.0572252 * z)), alpha);
}

/// Polar form of L*a*b*: magnitude, saturation angle, hue angle.
Triple toMsh(const Triple& lab)
{
    const double m = std::hypot(lab[0], lab[1], lab[2]);
    return {m, m > 0.001 ? std::acos(lab[0] / m) : 0, std::atan2(lab[2], lab[1])};
}

Triple fromMsh(const Triple& msh)
{
    return {msh[0] * std::cos(msh[1]), msh[0] * std::sin(msh[1]) * std::cos(msh[2]),
            msh[0] * std::sin(msh[1]) * std::sin(msh[2])};
}

/// The hue to give an unsaturated colour, so that the way to `saturated` looks straight.
double adjustedHue(const Triple& saturated, double unsaturatedMagnitude)
{
    if (saturated[0] >= unsaturatedMagnitude - 0.1)
        return saturated[2];
    const double spin = saturated[1] *
                        std::sqrt(unsaturatedMagnitude * unsaturatedMagnitude - saturated[0] * saturated[0]) /
                        (saturated[0] * std::sin(saturated[1]));
    return saturated[2] > -std::numbers::pi / 3 ? saturated[2] + spin : saturated[2] - spin;
}

QRgb mixDiverging(QRgb first, QRgb second, double t)
{
    constexpr double gray = 0.05;
    Triple a = toMsh(toLab(first));
    Triple b = toMsh(toLab(second));
    const double difference = std::abs(std::remainder(a[2] - b[2], 2 * std::numbers::pi));
    if (a[1] > gray && b[1] > gray && difference > std::numbers::pi / 3) {
        const Triple middle{std::max({a[0], b[0], 88.0}), 0, 0};
        if (t < 0.5) {
            b = middle;
            t *= 2;
        } else {
            a = middle;
            t = 2 * t - 1;
        }
    }
    if (a[1] < gray && b[1] > gray)
        a[2] = adjustedHue(b, a[0]);
    else if (b[1] < gray && a[1] > gray)
        b[2] = adjustedHue(a, b[0]);
    return fromLab(fromMsh(linear(a, b, t)), 255);
}

/// An unsaturated colour has no hue of its own and takes the other's.
QRgb mixHsv(QRgb first, QRgb second, double t, bool isShorterWay)
{
    const auto split = [](QRgb color) {
        const QColor c = QColor::fromRgb(color);
        return Triple{c.hsvHueF() < 0 ? -1 : c.hsvHueF() * 360, c.hsvSaturationF(), c.valueF()};
    };
    Triple a = split(first);
    Triple b = split(second);
    if (a[0] < 0)
        a[0] = std::max(b[0], 0.0);
    if (b[0] < 0)
        b[0] = a[0];
    if (isShorterWay)
        b[0] = a[0] + std::remainder(b[0] - a[0], 360);
    const Triple mixed = linear(a, b, t);
    return fromHsv(mixed[0], mixed[1], mixed[2]);
}

} // namespace

QRgb fromHsv(double hue, double saturation, double value, int alpha)
{
    const double sector = std::fmod(std::fmod(hue, 360) + 360, 360) / 60;
    const auto component = [&](double offset) {
        const double k = std::fmod(offset + sector, 6);
        return toByte(value - value * saturation * std::clamp(std::min(k, 4 - k), 0.0, 1.0));
    };
    return qRgba(component(5), component(3), component(1), alpha);
}

QRgb mix(QRgb first, QRgb second, double t, ColorSpace space)
{
    if (t <= 0)
        return first;
    if (t >= 1)
        return second;
    const int alpha = mixedAlpha(first, second, t);
    const auto opaque = [&]() -> QRgb {
        switch (space) {
        case ColorSpace::HSV:
            return mixHsv(first, second, t, true);
        case ColorSpace::HSVUnwrapped:
            return mixHsv(first, second, t, false);
        case ColorSpace::Lab:
            return fromLab(linear(toLab(first), toLab(second), t), 255);
        case ColorSpace::Diverging:
            return mixDiverging(first, second, t);
        case ColorSpace::Step:
            return first;
        case ColorSpace::RGB:
            break;
        }
        const auto component = [&](int (*of)(QRgb)) { return linear(of(first), of(second), t) / 255; };
        return qRgb(toByte(component(qRed)), toByte(component(qGreen)), toByte(component(qBlue)));
    };
    return (opaque() & RGB_MASK) | static_cast<QRgb>(alpha) << 24;
}

double lightness(QRgb color)
{
    return toLab(color)[0];
}

} // namespace display
