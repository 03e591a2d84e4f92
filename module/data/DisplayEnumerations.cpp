#include "host/display/ColorSpace.h"
#include "host/display/Enumerations.h"
#include "module/Bindings.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

using namespace display;

void bindInterpolationMethod()
{
    bp::enum_<InterpolationMethod>("InterpolationMethod", "How values between the samples are made.")
        .value("NoInterpolation", InterpolationMethod::NoInterpolation)
        .value("Bilinear", InterpolationMethod::Bilinear)
        .value("Bicubic", InterpolationMethod::Bicubic);
}

void bindSmoothingMethod()
{
    bp::enum_<SmoothingMethod>("SmoothingMethod", "How data are smoothed. There is no value 3.")
        .value("NoSmoothing", SmoothingMethod::NoSmoothing)
        .value("Median", SmoothingMethod::Median)
        .value("Gaussian", SmoothingMethod::Gaussian)
        .value("StructureOriented", SmoothingMethod::StructureOriented);
}

void bindContouringMode()
{
    bp::enum_<ContouringMode>("ContouringMode", "What contour lines connect: equal data values or equal Z values.")
        .value("Data", ContouringMode::Data)
        .value("ZValue", ContouringMode::ZValue);
}

void bindColorSpace()
{
    bp::enum_<ColorSpace>("ColorSpace",
                          "The way from one colour to another: RGB straight in red, green and blue; HSV by hue, the "
                          "shorter way round the circle; Lab in steps that look equal (CIE L*a*b*); Diverging through "
                          "white when the hues differ; Step without a transition.")
        .value("RGB", ColorSpace::RGB)
        .value("HSV", ColorSpace::HSV)
        .value("Lab", ColorSpace::Lab)
        .value("Diverging", ColorSpace::Diverging)
        .value("Step", ColorSpace::Step);
}

void bindColorBarType()
{
    // GreenYellowRed has Green's number. It comes later, so the number reads as GreenYellowRed; scripts rely on that.
    bp::enum_<ColorBarType>("ColorBarType", "The predefined palettes. Green and GreenYellowRed are the same value.")
        .value("GreyScale", ColorBarType::GreyScale)
        .value("RedWhiteBlack", ColorBarType::RedWhiteBlack)
        .value("RedWhiteBlack_2", ColorBarType::RedWhiteBlack_2)
        .value("RedWhiteBlue", ColorBarType::RedWhiteBlue)
        .value("Seismic", ColorBarType::Seismic)
        .value("Seismic_2", ColorBarType::Seismic_2)
        .value("Seismic_3", ColorBarType::Seismic_3)
        .value("Rainbow", ColorBarType::Rainbow)
        .value("GeoModel", ColorBarType::GeoModel)
        .value("Red", ColorBarType::Red)
        .value("Green", ColorBarType::Green)
        .value("Blue", ColorBarType::Blue)
        .value("Horizon", ColorBarType::Horizon)
        .value("Thinning", ColorBarType::Thinning)
        .value("AI", ColorBarType::AI)
        .value("Curvature", ColorBarType::Curvature)
        .value("Envelope", ColorBarType::Envelope)
        .value("Energy", ColorBarType::Energy)
        .value("Gradient", ColorBarType::Gradient)
        .value("Velocity", ColorBarType::Velocity)
        .value("Density", ColorBarType::Density)
        .value("Azimuth", ColorBarType::Azimuth)
        .value("Porosity", ColorBarType::Porosity)
        .value("Sand", ColorBarType::Sand)
        .value("Shale", ColorBarType::Shale)
        .value("Dip", ColorBarType::Dip)
        .value("Throw", ColorBarType::Throw)
        .value("Phase", ColorBarType::Phase)
        .value("Frequency", ColorBarType::Frequency)
        .value("GreyBlue", ColorBarType::GreyBlue)
        .value("Cyan", ColorBarType::Cyan)
        .value("Magenta", ColorBarType::Magenta)
        .value("Yellow", ColorBarType::Yellow)
        .value("BlueWhiteRed", ColorBarType::BlueWhiteRed)
        .value("DipBrown", ColorBarType::DipBrown)
        .value("GeoModelRainbow", ColorBarType::GeoModelRainbow)
        .value("GeoModelCold", ColorBarType::GeoModelCold)
        .value("GeoModelDark", ColorBarType::GeoModelDark)
        .value("GeoModelWarm", ColorBarType::GeoModelWarm)
        .value("SandProbability", ColorBarType::SandProbability)
        .value("AvoContrast", ColorBarType::AvoContrast)
        .value("GreenYellowRed", ColorBarType::GreenYellowRed)
        .value("BluePurpleYellow", ColorBarType::BluePurpleYellow)
        .value("CoarseExtraction", ColorBarType::CoarseExtraction)
        .value("Surface", ColorBarType::Surface)
        .value("DipAzimuth", ColorBarType::DipAzimuth)
        .value("Elevation", ColorBarType::Elevation)
        .value("ReflectionStrength", ColorBarType::ReflectionStrength)
        .value("Rotary", ColorBarType::Rotary)
        .value("Spectrum", ColorBarType::Spectrum)
        .value("Structural", ColorBarType::Structural)
        .value("Tropic", ColorBarType::Tropic)
        .value("Variance", ColorBarType::Variance)
        .value("Velocity2", ColorBarType::Velocity2)
        .value("WhiteBlueGreen", ColorBarType::WhiteBlueGreen)
        .value("Channels", ColorBarType::Channels)
        .value("Colors256", ColorBarType::Colors256);
}

} // namespace python
