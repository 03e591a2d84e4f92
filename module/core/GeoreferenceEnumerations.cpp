#include "host/georef/Enumerations.h"
#include "host/img/Statistics.h"
#include "module/Bindings.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

void bindNoValue()
{
    bp::scope().attr("NO_VALUE") = static_cast<double>(img::NoValue);
}

void bindScanOrientation()
{
    using georef::ScanOrientation;
    bp::enum_<ScanOrientation>("ScanOrientation",
                               "The axis of a block that frames are cut across: an Inline frame has one inline number "
                               "(block y), a Crossline frame one crossline number (block x), a Timeslice one vertical "
                               "sample (block z).")
        .value("Inline", ScanOrientation::Inline)
        .value("Crossline", ScanOrientation::Crossline)
        .value("Timeslice", ScanOrientation::Timeslice);
}

void bindScaleType()
{
    using georef::ScaleType;
    bp::enum_<ScaleType>("ScaleType", "The coordinates that the scales of a viewer show.")
        .value("Pixel", ScaleType::Pixel)
        .value("World", ScaleType::World)
        .value("Survey", ScaleType::Survey);
}

void bindUnit()
{
    using georef::Unit;
    bp::enum_<Unit>("Unit", "Units of length and time. The US ones are survey units (1 foot = 1200/3937 m).")
        .value("Meters", Unit::Meters)
        .value("Feet", Unit::Feet)
        .value("Milliseconds", Unit::Milliseconds)
        .value("Seconds", Unit::Seconds)
        .value("Kilometers", Unit::Kilometers)
        .value("Miles", Unit::Miles)
        .value("FeetUS", Unit::FeetUS)
        .value("Decimeters", Unit::Decimeters)
        .value("Centimeters", Unit::Centimeters)
        .value("MilesUS", Unit::MilesUS)
        .value("Yards", Unit::Yards)
        .value("YardsUS", Unit::YardsUS)
        .value("Inches", Unit::Inches)
        .value("InchesUS", Unit::InchesUS);
}

void bindDomain()
{
    using georef::Domain;
    bp::enum_<Domain>("Domain", "What the vertical axis measures.")
        .value("Unknown", Domain::Unknown)
        .value("Time", Domain::Time)
        .value("Depth", Domain::Depth)
        .value("All", Domain::All);
}

} // namespace python
