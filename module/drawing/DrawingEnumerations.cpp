#include "module/Bindings.h"
#include "module/EnumerationTable.h"

namespace python {

namespace {

constexpr NamedValue<Qt::PenStyle> g_penStyles[] = {
    {"NoPen", Qt::NoPen},     {"SolidLine", Qt::SolidLine},     {"DashLine", Qt::DashLine},
    {"DotLine", Qt::DotLine}, {"DashDotLine", Qt::DashDotLine}, {"DashDotDotLine", Qt::DashDotDotLine},
};

constexpr NamedValue<Qt::GlobalColor> g_colors[] = {
    {"Black", Qt::black},
    {"White", Qt::white},
    {"DarkGray", Qt::darkGray},
    {"Gray", Qt::gray},
    {"LightGray", Qt::lightGray},
    {"Red", Qt::red},
    {"Green", Qt::green},
    {"Blue", Qt::blue},
    {"Cyan", Qt::cyan},
    {"Magenta", Qt::magenta},
    {"Yellow", Qt::yellow},
    {"DarkRed", Qt::darkRed},
    {"DarkGreen", Qt::darkGreen},
    {"DarkBlue", Qt::darkBlue},
    {"DarkCyan", Qt::darkCyan},
    {"DarkMagenta", Qt::darkMagenta},
    {"DarkYellow", Qt::darkYellow},
    {"Transparent", Qt::transparent},
};

constexpr NamedValue<Qt::ImageConversionFlag> g_imageConversions[] = {
    {"AutoColor", Qt::AutoColor},
    {"ColorOnly", Qt::ColorOnly},
    {"MonoOnly", Qt::MonoOnly},
    {"ThresholdAlphaDither", Qt::ThresholdAlphaDither},
    {"OrderedAlphaDither", Qt::OrderedAlphaDither},
    {"DiffuseAlphaDither", Qt::DiffuseAlphaDither},
    {"DiffuseDither", Qt::DiffuseDither},
    {"OrderedDither", Qt::OrderedDither},
    {"ThresholdDither", Qt::ThresholdDither},
    {"AutoDither", Qt::AutoDither},
    {"PreferDither", Qt::PreferDither},
    {"AvoidDither", Qt::AvoidDither},
    {"NoOpaqueDetection", Qt::NoOpaqueDetection},
    {"NoFormatConversion", Qt::NoFormatConversion},
};

} // namespace

void bindDrawingEnumerations()
{
    registerEnumeration("PenStyle", "How lines are drawn.", g_penStyles);
    registerEnumeration("Colors", "Colours that need no numbers. Each can stand wherever a Color is wanted.", g_colors);
    registerEnumeration("ImageConversion",
                        "How an image is turned into one of fewer colours. One of each group is combined with |: "
                        "colours, dithering of the alpha channel, dithering of the colours, when to dither. AutoColor, "
                        "ThresholdAlphaDither, DiffuseDither and AutoDither are all 0, the usual choice.",
                        g_imageConversions);
}

} // namespace python
