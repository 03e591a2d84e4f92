#include "host/kinds/ObjectKind.h"
#include "module/Bindings.h"
#include "module/EnumerationTable.h"
#include "module/data/ProjectHandle.h"
#include "runtime/EnumerationLookup.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

constexpr NamedValue<ObjectKind> g_objectIds[] = {
    {"Volume", ObjectKind::Volume},
    {"Survey", ObjectKind::Survey},
    {"Model", ObjectKind::Model},
    {"ExtractionArea", ObjectKind::ExtractionArea},
    {"Horizon3d", ObjectKind::Horizon3d},
    {"Fault3d", ObjectKind::Fault3d},
    {"Fault2d", ObjectKind::Fault2d},
    {"Culture", ObjectKind::Culture},
    {"Polyline3d", ObjectKind::Polyline3d},
    {"Wavelet", ObjectKind::Wavelet},
    {"Layer", ObjectKind::Layer},
    {"Geobody", ObjectKind::Geobody},
    {"MultiZ", ObjectKind::MultiZ},
    {"ColorBar", ObjectKind::ColorBar},
    {"RandomLine", ObjectKind::RandomLine},
    {"RandomLineSet", ObjectKind::RandomLineSet},
    {"Horizon2d", ObjectKind::Horizon2d},
    {"Well", ObjectKind::Well},
    {"CRS", ObjectKind::Crs},
};

} // namespace

ObjectKind requireObjectKind(const bp::object& argument, const char* format)
{
    const bp::extract<ObjectKind> kind(argument);
    if (!kind.check())
        raise(PyExc_TypeError, format, typeName(argument));
    return kind();
}

void bindObjectId()
{
    registerEnumeration(
        "ObjectId",
        "The kinds of object that a project holds. ObjectId(number) raises ValueError for a number that "
        "is no kind.",
        g_objectIds);
    closeEnumeration(bp::scope().attr("ObjectId"), "is no kind of object");
}

} // namespace python
