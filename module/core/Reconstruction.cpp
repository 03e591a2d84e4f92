#include "module/core/Reconstruction.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

bp::object reduction(const bp::object& self, const bp::tuple& values)
{
    const bp::object attributes = bp::getattr(self, "__dict__", bp::object());
    return bp::make_tuple(bp::import("copyreg").attr("__newobj__"), bp::make_tuple(self.attr("__class__")),
                          bp::make_tuple(values, attributes));
}

bp::tuple restoredValues(const bp::object& self, const bp::object& state, long count)
{
    const bool isPair = PyTuple_Check(state.ptr()) && PyTuple_GET_SIZE(state.ptr()) == 2;
    const bp::object values = isPair ? bp::object(state[0]) : bp::object();
    const bp::object attributes = isPair ? bp::object(state[1]) : bp::object();
    if (!PyTuple_Check(values.ptr()) || PyTuple_GET_SIZE(values.ptr()) != count || !PyDict_Check(attributes.ptr()))
        raise(PyExc_TypeError, "%s.__setstate__(), the state is not one that this class wrote", typeName(self));
    self.attr("__dict__").attr("update")(attributes);
    return bp::tuple(values);
}

} // namespace python
