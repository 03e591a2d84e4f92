#include "module/Bindings.h"
#include "module/core/VectorSlots.h"

namespace bp = boost::python;

namespace python {

void bindVec4()
{
    using Vector = core::vec4;
    bp::class_<Vector> type("vec4",
                            "A vector of 4 floats: four numbers, such as a point in homogeneous coordinates. Vectors "
                            "are compared and hashed by identity.",
                            bp::init<>("__init__() -> None\n\nAll components are 0."));
    type.def(bp::init<double, double, double, double>(
        (bp::arg("x"), bp::arg("y"), bp::arg("z"), bp::arg("w")),
        "__init__(x: float, y: float, z: float, w: float) -> None\n\nA vector of these components."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Vector>::adopt(object);
    slots::VectorSlots<Vector>::install(object);
    static PyGetSetDef components[] = {
        slots::component<Vector, &Vector::x>("x", "float: The first component."),
        slots::component<Vector, &Vector::y>("y", "float: The second component."),
        slots::component<Vector, &Vector::z>("z", "float: The third component."),
        slots::component<Vector, &Vector::w>("w", "float: The fourth component."),
    };
    for (PyGetSetDef& each : components)
        installProperty(object, each);
}

} // namespace python
