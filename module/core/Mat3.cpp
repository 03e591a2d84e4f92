#include "module/Bindings.h"
#include "module/core/MatrixSlots.h"

namespace bp = boost::python;

namespace python {

void bindMat3()
{
    using Matrix = core::mat3;
    using Row = core::vec3;
    bp::class_<Matrix> type("mat3",
                            "A 3 x 3 matrix of floats, row by row. It acts on column vectors: matrix * vector. "
                            "Matrices are compared element by element and hashed by identity.",
                            bp::init<>("__init__() -> None\n\nAll elements are 0."));
    type.def(bp::init<double>(bp::arg("value"), "__init__(value: float) -> None\n\nAll elements are value."))
        .def(
            bp::init<Row, Row, Row>((bp::arg("row0"), bp::arg("row1"), bp::arg("row2")),
                                    "__init__(row0: vec3, row1: vec3, row2: vec3) -> None\n\nA matrix of these rows."));

    auto* object = reinterpret_cast<PyTypeObject*>(type.ptr());
    ValueInstance<Matrix>::adopt(object);
    slots::MatrixSlots<Matrix>::install(object);
    slots::installComparison<Matrix>(object);
}

} // namespace python
