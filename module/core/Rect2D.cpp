#include "host/geom/Rect2d.h"

#include "module/Bindings.h"
#include "module/core/BoxSlots.h"

namespace bp = boost::python;

namespace python {

namespace {

using Rect = geom::Rect2d;
using Corner = core::vec2;

PyGetSetDef g_properties[] = {
    slots::component<Rect, &Rect::left>("left", "float: The left edge (x)."),
    slots::component<Rect, &Rect::top>("top", "float: The top edge (y), the smaller one of a valid rectangle."),
    slots::component<Rect, &Rect::right>("right", "float: The right edge (x)."),
    slots::component<Rect, &Rect::bottom>("bottom", "float: The bottom edge (y), the larger one of a valid rectangle."),
    slots::readWrite<Rect, double, &Rect::width, &Rect::setWidth>(
        "width", "float: right - left. Setting it moves the right edge."),
    slots::readWrite<Rect, double, &Rect::height, &Rect::setHeight>(
        "height", "float: bottom - top. Setting it moves the bottom edge."),
    slots::readWrite<Rect, Corner, &Rect::topLeft, &Rect::setTopLeft>(
        "topLeft", "vec2: The corner (left, top). Setting it moves these two edges."),
    slots::readWrite<Rect, Corner, &Rect::bottomLeft, &Rect::setBottomLeft>(
        "bottomLeft", "vec2: The corner (left, bottom). Setting it moves these two edges."),
    slots::readWrite<Rect, Corner, &Rect::topRight, &Rect::setTopRight>(
        "topRight", "vec2: The corner (right, top). Setting it moves these two edges."),
    slots::readWrite<Rect, Corner, &Rect::bottomRight, &Rect::setBottomRight>(
        "bottomRight", "vec2: The corner (right, bottom). Setting it moves these two edges."),
    slots::readOnly<Rect, &Rect::center>("center", "vec2: The middle of the rectangle."),
};

} // namespace

void bindRect2D()
{
    bp::class_<Rect> type("Rect2D",
                          "A closed rectangle of floats given by its edges; touching rectangles intersect. Rectangles "
                          "are compared and hashed by identity.",
                          bp::init<>("__init__() -> None\n\nAll edges are 0."));
    type.def(bp::init<Corner, Corner>(
        (bp::arg("topLeft"), bp::arg("bottomRight")),
        "__init__(topLeft: vec2, bottomRight: vec2) -> None\n\nThe rectangle between two opposite corners."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Rect>::adopt(object);
    slots::BoxSlots<Rect, Corner>::install(object);
    for (PyGetSetDef& each : g_properties)
        installProperty(object, each);
}

} // namespace python
