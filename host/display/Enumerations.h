#pragma once

namespace display {

// The numbers of these enumerations are stored in files and used by scripts: they never change.

/// Names of the predefined palettes. Green and GreenYellowRed share a number, and a reader of that number says
/// GreenYellowRed; 7, 42 and 44 belong to palettes that only their identifier reaches (see PaletteCatalogue).
enum class ColorBarType : int
{
    GreyScale = 0,
    RedWhiteBlack = 1,
    RedWhiteBlack_2 = 2,
    RedWhiteBlue = 3,
    Seismic = 4,
    Seismic_2 = 5,
    Seismic_3 = 6,
    Rainbow = 8,
    GeoModel = 9,
    Red = 10,
    Green = 11,
    Blue = 12,
    Horizon = 13,
    Thinning = 14,
    AI = 15,
    Curvature = 16,
    Envelope = 17,
    Energy = 18,
    Gradient = 19,
    Velocity = 20,
    Density = 21,
    Azimuth = 22,
    Porosity = 23,
    Sand = 24,
    Shale = 25,
    Dip = 26,
    Throw = 27,
    Phase = 28,
    Frequency = 29,
    GreyBlue = 30,
    Cyan = 31,
    Magenta = 32,
    Yellow = 33,
    BlueWhiteRed = 34,
    DipBrown = 35,
    GeoModelRainbow = 36,
    GeoModelCold = 37,
    GeoModelDark = 38,
    GeoModelWarm = 39,
    SandProbability = 40,
    AvoContrast = 41,
    GreenYellowRed = 11,
    BluePurpleYellow = 43,
    CoarseExtraction = 45,
    Surface = 46,
    DipAzimuth = 47,
    Elevation = 48,
    ReflectionStrength = 49,
    Rotary = 50,
    Spectrum = 51,
    Structural = 52,
    Tropic = 53,
    Variance = 54,
    Velocity2 = 55,
    WhiteBlueGreen = 56,
    Channels = 57,
    Colors256 = 58,
};

/// How values between the samples are made.
enum class InterpolationMethod : int
{
    NoInterpolation = 0,
    Bilinear = 1,
    Bicubic = 2,
};

/// There is no 3.
enum class SmoothingMethod : int
{
    NoSmoothing = 0,
    Median = 1,
    Gaussian = 2,
    StructureOriented = 4,
};

/// What contour lines connect: equal data values or equal vertical positions.
enum class ContouringMode : int
{
    Data = 0,
    ZValue = 1,
};

} // namespace display
