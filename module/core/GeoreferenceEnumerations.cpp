#include "host/georef/Enumerations.h"
#include "host/img/Statistics.h"
#include "module/Bindings.h"
#include "module/EnumerationTable.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

constexpr NamedValue<georef::ScanOrientation> g_scanOrientations[] = {
    {"Inline", georef::ScanOrientation::Inline},
    {"Crossline", georef::ScanOrientation::Crossline},
    {"Timeslice", georef::ScanOrientation::Timeslice},
};

constexpr NamedValue<georef::ScaleType> g_scaleTypes[] = {
    {"Pixel", georef::ScaleType::Pixel},
    {"World", georef::ScaleType::World},
    {"Survey", georef::ScaleType::Survey},
};

constexpr NamedValue<georef::Unit> g_units[] = {
    {"Meters", georef::Unit::Meters},
    {"Feet", georef::Unit::Feet},
    {"Milliseconds", georef::Unit::Milliseconds},
    {"Seconds", georef::Unit::Seconds},
    {"Kilometers", georef::Unit::Kilometers},
    {"Miles", georef::Unit::Miles},
    {"FeetUS", georef::Unit::FeetUS},
    {"Decimeters", georef::Unit::Decimeters},
    {"Centimeters", georef::Unit::Centimeters},
    {"MilesUS", georef::Unit::MilesUS},
    {"Yards", georef::Unit::Yards},
    {"YardsUS", georef::Unit::YardsUS},
    {"Inches", georef::Unit::Inches},
    {"InchesUS", georef::Unit::InchesUS},
};

constexpr NamedValue<georef::Domain> g_domains[] = {
    {"Unknown", georef::Domain::Unknown},
    {"Time", georef::Domain::Time},
    {"Depth", georef::Domain::Depth},
    {"All", georef::Domain::All},
};

} // namespace

void bindNoValue()
{
    bp::scope().attr("NO_VALUE") = static_cast<double>(img::NoValue);
}

void bindScanOrientation()
{
    registerEnumeration("ScanOrientation",
                        "The axis of a block that frames are cut across: an Inline frame has one inline number "
                        "(block y), a Crossline frame one crossline number (block x), a Timeslice one vertical "
                        "sample (block z).",
                        g_scanOrientations);
}

void bindScaleType()
{
    registerEnumeration("ScaleType", "The coordinates that the scales of a viewer show.", g_scaleTypes);
}

void bindUnit()
{
    registerEnumeration("Unit", "Units of length and time. The US ones are survey units (1 foot = 1200/3937 m).",
                        g_units);
}

void bindDomain()
{
    registerEnumeration("Domain", "What the vertical axis measures.", g_domains);
}

} // namespace python
