#include "module/gui/PathArgument.h"

#include "runtime/QtCall.h"

namespace bp = boost::python;

namespace python {

PathText Argument<PathText>::from(PyObject* object, const char* where)
{
    if (isStr(object))
        return {Argument<QString>::from(object, where)};
    if (!PyObject_HasAttrString(reinterpret_cast<PyObject*>(Py_TYPE(object)), "__fspath__"))
        raiseWrongType(where, "str", object);
    const QtCall::Guard guard; // the widget that is given the path stays meanwhile
    const bp::object path = owned(PyOS_FSPath(object));
    return {Argument<QString>::from(path.ptr(), where)};
}

} // namespace python
