#include "module/Bindings.h"
#include "module/core/VectorSlots.h"

namespace bp = boost::python;

namespace python {

void bindVec3()
{
    using Vector = core::vec3;
    bp::class_<Vector> type(
        "vec3", "A vector of 3 floats: a point or a direction in space. Vectors are compared and hashed by identity.",
        bp::init<>("__init__() -> None\n\nAll components are 0."));
    type.def(bp::init<double, double, double>(
        (bp::arg("x"), bp::arg("y"), bp::arg("z")),
        "__init__(x: float, y: float, z: float) -> None\n\nA vector of these components."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Vector>::adopt(object);
    slots::VectorSlots<Vector>::install(object);
    static PyGetSetDef components[] = {
        slots::component<Vector, &Vector::x>("x", "float: The first component."),
        slots::component<Vector, &Vector::y>("y", "float: The second component."),
        slots::component<Vector, &Vector::z>("z", "float: The third component."),
    };
    for (PyGetSetDef& each : components)
        installProperty(object, each);
}

} // namespace python
