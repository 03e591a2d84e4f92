#include "host/georef/Crs.h"

#include "module/Bindings.h"
#include "runtime/Errors.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

using georef::Crs;

Crs fromWtk(const bp::object& text)
{
    const QString wkt = requireStr(text, "Crs.fromWtk(), expected 'str' but got '%s'");
    const auto crs = Crs::fromWkt(wkt);
    if (!crs)
        raise(PyExc_ValueError, "Crs.fromWtk(), %s", crs.failure().sentence.toUtf8().constData());
    return *crs;
}

Crs fromState(const bp::object& description)
{
    return fromWtk(unicodeText(textFromState(description)));
}

/// The description is the whole state. A static method has no name of its own to be pickled under.
bp::object reduce(const bp::object& self)
{
    const Crs& crs = bp::extract<const Crs&>(self);
    return bp::make_tuple(bp::import("operator").attr("methodcaller")("_fromState", textState(crs.toWkt())),
                          bp::make_tuple(self.attr("__class__")));
}

} // namespace

void bindCrs()
{
    bp::class_<Crs>("Crs", "A coordinate reference system. It never changes, so copies share one description.",
                    bp::no_init)
        .def("fromWtk", fromWtk, bp::args("text"),
             "fromWtk(text: str) -> Crs\n\n"
             "A reference system from its well-known text (WKT 1 as of GDAL or ESRI, WKT 2).\n\n"
             "Raises TypeError when text is not a str, ValueError with the reason when it can not be read or describes "
             "something else.")
        .staticmethod("fromWtk")
        .def("_fromState", fromState, bp::args("description"),
             "_fromState(description: bytes) -> Crs\n\nFor pickle and copy.")
        .staticmethod("_fromState")
        .add_property(
            "area", &Crs::area,
            "Rect2D: Area of use in degrees: left = west, top = south, right = east, bottom = north; all zero "
            "when unknown. Read-only.")
        .add_property("authority", &Crs::authority,
                      "str: The authority that defines the system, e.g. 'EPSG'; empty when none does. Read-only.")
        .add_property("authorityCode", &Crs::authorityCode,
                      "str: The authority's code for the system, e.g. '32631'. Read-only.")
        .def("__reduce__", reduce, bp::args("self"), "__reduce__() -> tuple\n\nFor pickle and copy.");
}

} // namespace python
