#include "host/data/ObjectKind.h"
#include "module/Bindings.h"
#include "module/data/ProjectHandle.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

ObjectKind requireObjectKind(const bp::object& argument, const char* format)
{
    const bp::extract<ObjectKind> kind(argument);
    // A number that is no kind can be dressed up as one: ObjectId(2).
    if (!kind.check() || !objectKindFromNumber(static_cast<int>(kind())))
        raise(PyExc_TypeError, format, typeName(argument));
    return kind();
}

void bindObjectId()
{
    bp::enum_<ObjectKind>("ObjectId", "The kinds of object that a project holds.")
        .value("Volume", ObjectKind::Volume)
        .value("Survey", ObjectKind::Survey)
        .value("Model", ObjectKind::Model)
        .value("ExtractionArea", ObjectKind::ExtractionArea)
        .value("Horizon3d", ObjectKind::Horizon3d)
        .value("Fault3d", ObjectKind::Fault3d)
        .value("Fault2d", ObjectKind::Fault2d)
        .value("Culture", ObjectKind::Culture)
        .value("Polyline3d", ObjectKind::Polyline3d)
        .value("Wavelet", ObjectKind::Wavelet)
        .value("Layer", ObjectKind::Layer)
        .value("Geobody", ObjectKind::Geobody)
        .value("MultiZ", ObjectKind::MultiZ)
        .value("ColorBar", ObjectKind::ColorBar)
        .value("RandomLine", ObjectKind::RandomLine)
        .value("RandomLineSet", ObjectKind::RandomLineSet)
        .value("Horizon2d", ObjectKind::Horizon2d)
        .value("Well", ObjectKind::Well)
        .value("CRS", ObjectKind::Crs);
}

} // namespace python
