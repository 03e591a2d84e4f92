#include "module/Bindings.h"
#include "module/core/VectorSlots.h"

namespace bp = boost::python;

namespace python {

void bindVec2()
{
    using Vector = core::vec2;
    bp::class_<Vector> type(
        "vec2",
        "A vector of 2 floats: a point or a direction in the plane. Vectors are compared and hashed by identity.",
        bp::init<>("__init__() -> None\n\nAll components are 0."));
    type.def(bp::init<double, double>((bp::arg("x"), bp::arg("y")),
                                      "__init__(x: float, y: float) -> None\n\nA vector of these components."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Vector>::adopt(object);
    slots::VectorSlots<Vector>::install(object);
    static PyGetSetDef components[] = {
        slots::component<Vector, &Vector::x>("x", "float: The first component."),
        slots::component<Vector, &Vector::y>("y", "float: The second component."),
    };
    for (PyGetSetDef& each : components)
        installProperty(object, each);
}

} // namespace python
