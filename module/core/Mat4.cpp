#include "module/Bindings.h"
#include "module/core/MatrixSlots.h"

namespace bp = boost::python;

namespace python {

void bindMat4()
{
    using Matrix = core::mat4;
    using Row = core::vec4;
    bp::class_<Matrix> type("mat4",
                            "A 4 x 4 matrix of floats, row by row. It acts on column vectors: matrix * vector. "
                            "Matrices are compared and hashed by identity.",
                            bp::init<>("__init__() -> None\n\nAll elements are 0."));
    type.def(bp::init<double>(bp::arg("value"), "__init__(value: float) -> None\n\nAll elements are value."))
        .def(bp::init<Row, Row, Row, Row>(
            (bp::arg("row0"), bp::arg("row1"), bp::arg("row2"), bp::arg("row3")),
            "__init__(row0: vec4, row1: vec4, row2: vec4, row3: vec4) -> None\n\nA matrix of these rows."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Matrix>::adopt(object);
    slots::MatrixSlots<Matrix>::install(object);
}

} // namespace python
