#include "host/geom/Rect3d.h"

#include "module/Bindings.h"
#include "module/core/BoxSlots.h"

namespace bp = boost::python;

namespace python {

namespace {

using Rect = geom::Rect3d;
using Corner = core::vec3;

PyGetSetDef g_properties[] = {
    slots::component<Rect, &Rect::left>("left", "float: The left face (x)."),
    slots::component<Rect, &Rect::top>("top", "float: The top face (y), the smaller one of a valid box."),
    slots::component<Rect, &Rect::front>("front", "float: The front face (z), the smaller one of a valid box."),
    slots::component<Rect, &Rect::right>("right", "float: The right face (x)."),
    slots::component<Rect, &Rect::bottom>("bottom", "float: The bottom face (y), the larger one of a valid box."),
    slots::component<Rect, &Rect::back>("back", "float: The back face (z), the larger one of a valid box."),
    slots::readWrite<Rect, double, &Rect::width, &Rect::setWidth>(
        "width", "float: right - left. Setting it moves the right face."),
    slots::readWrite<Rect, double, &Rect::height, &Rect::setHeight>(
        "height", "float: bottom - top. Setting it moves the bottom face."),
    slots::readWrite<Rect, double, &Rect::depth, &Rect::setDepth>(
        "depth", "float: back - front. Setting it moves the back face."),
    slots::readOnly<Rect, &Rect::center>("center", "vec3: The middle of the box."),
};

} // namespace

void bindRect3D()
{
    bp::class_<Rect> type("Rect3D",
                          "A closed box of floats given by its faces; touching boxes intersect. Boxes are compared "
                          "number by number and hashed by identity.",
                          bp::init<>("__init__() -> None\n\nAll faces are 0."));
    type.def(bp::init<Corner, Corner>((bp::arg("topLeftFront"), bp::arg("bottomRightBack")),
                                      "__init__(topLeftFront: vec3, bottomRightBack: vec3) -> None\n\nThe box between "
                                      "two opposite corners."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Rect>::adopt(object);
    slots::BoxSlots<Rect, Corner>::install(object);
    slots::installComparison<Rect>(object);
    for (PyGetSetDef& each : g_properties)
        installProperty(object, each);
}

} // namespace python
