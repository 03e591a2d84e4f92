#include "host/display/ColorSpace.h"
#include "host/display/Enumerations.h"
#include "module/Bindings.h"
#include "module/EnumerationTable.h"

namespace python {

using namespace display;

namespace {

constexpr NamedValue<InterpolationMethod> g_interpolationMethods[] = {
    {"NoInterpolation", InterpolationMethod::NoInterpolation},
    {"Bilinear", InterpolationMethod::Bilinear},
    {"Bicubic", InterpolationMethod::Bicubic},
};

constexpr NamedValue<SmoothingMethod> g_smoothingMethods[] = {
    {"NoSmoothing", SmoothingMethod::NoSmoothing},
    {"Median", SmoothingMethod::Median},
    {"Gaussian", SmoothingMethod::Gaussian},
    {"StructureOriented", SmoothingMethod::StructureOriented},
};

constexpr NamedValue<ContouringMode> g_contouringModes[] = {
    {"Data", ContouringMode::Data},
    {"ZValue", ContouringMode::ZValue},
};

constexpr NamedValue<ColorSpace> g_colorSpaces[] = {
    {"RGB", ColorSpace::RGB},   {"HSV", ColorSpace::HSV},
    {"Lab", ColorSpace::Lab},   {"Diverging", ColorSpace::Diverging},
    {"Step", ColorSpace::Step},
};

constexpr NamedValue<ColorBarType> g_colorBarTypes[] = {
    {"GreyScale", ColorBarType::GreyScale},
    {"RedWhiteBlack", ColorBarType::RedWhiteBlack},
    {"RedWhiteBlack_2", ColorBarType::RedWhiteBlack_2},
    {"RedWhiteBlue", ColorBarType::RedWhiteBlue},
    {"Seismic", ColorBarType::Seismic},
    {"Seismic_2", ColorBarType::Seismic_2},
    {"Seismic_3", ColorBarType::Seismic_3},
    {"Rainbow", ColorBarType::Rainbow},
    {"GeoModel", ColorBarType::GeoModel},
    {"Red", ColorBarType::Red},
    {"Green", ColorBarType::Green},
    {"Blue", ColorBarType::Blue},
    {"Horizon", ColorBarType::Horizon},
    {"Thinning", ColorBarType::Thinning},
    {"AI", ColorBarType::AI},
    {"Curvature", ColorBarType::Curvature},
    {"Envelope", ColorBarType::Envelope},
    {"Energy", ColorBarType::Energy},
    {"Gradient", ColorBarType::Gradient},
    {"Velocity", ColorBarType::Velocity},
    {"Density", ColorBarType::Density},
    {"Azimuth", ColorBarType::Azimuth},
    {"Porosity", ColorBarType::Porosity},
    {"Sand", ColorBarType::Sand},
    {"Shale", ColorBarType::Shale},
    {"Dip", ColorBarType::Dip},
    {"Throw", ColorBarType::Throw},
    {"Phase", ColorBarType::Phase},
    {"Frequency", ColorBarType::Frequency},
    {"GreyBlue", ColorBarType::GreyBlue},
    {"Cyan", ColorBarType::Cyan},
    {"Magenta", ColorBarType::Magenta},
    {"Yellow", ColorBarType::Yellow},
    {"BlueWhiteRed", ColorBarType::BlueWhiteRed},
    {"DipBrown", ColorBarType::DipBrown},
    {"GeoModelRainbow", ColorBarType::GeoModelRainbow},
    {"GeoModelCold", ColorBarType::GeoModelCold},
    {"GeoModelDark", ColorBarType::GeoModelDark},
    {"GeoModelWarm", ColorBarType::GeoModelWarm},
    {"SandProbability", ColorBarType::SandProbability},
    {"AvoContrast", ColorBarType::AvoContrast},
    {"GreenYellowRed", ColorBarType::GreenYellowRed},
    {"BluePurpleYellow", ColorBarType::BluePurpleYellow},
    {"CoarseExtraction", ColorBarType::CoarseExtraction},
    {"Surface", ColorBarType::Surface},
    {"DipAzimuth", ColorBarType::DipAzimuth},
    {"Elevation", ColorBarType::Elevation},
    {"ReflectionStrength", ColorBarType::ReflectionStrength},
    {"Rotary", ColorBarType::Rotary},
    {"Spectrum", ColorBarType::Spectrum},
    {"Structural", ColorBarType::Structural},
    {"Tropic", ColorBarType::Tropic},
    {"Variance", ColorBarType::Variance},
    {"Velocity2", ColorBarType::Velocity2},
    {"WhiteBlueGreen", ColorBarType::WhiteBlueGreen},
    {"Channels", ColorBarType::Channels},
    {"Colors256", ColorBarType::Colors256},
};

} // namespace

void bindInterpolationMethod()
{
    registerEnumeration("InterpolationMethod", "How values between the samples are made.", g_interpolationMethods);
}

void bindSmoothingMethod()
{
    registerEnumeration("SmoothingMethod", "How data are smoothed. There is no value 3.", g_smoothingMethods);
}

void bindContouringMode()
{
    registerEnumeration("ContouringMode", "What contour lines connect: equal data values or equal Z values.",
                        g_contouringModes);
}

void bindColorSpace()
{
    registerEnumeration("ColorSpace",
                        "The way from one colour to another: RGB straight in red, green and blue; HSV by hue, the "
                        "shorter way round the circle; Lab in steps that look equal (CIE L*a*b*); Diverging through "
                        "white when the hues differ; Step without a transition.",
                        g_colorSpaces);
}

void bindColorBarType()
{
    // GreenYellowRed has Green's number, which reads as GreenYellowRed; scripts rely on that.
    registerEnumeration("ColorBarType", "The predefined palettes. Green and GreenYellowRed are the same value.",
                        g_colorBarTypes, SharedNumber::ShowsLast);
}

} // namespace python
