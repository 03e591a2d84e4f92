#include "module/PathArgument.h"

#include "runtime/QtCall.h"

namespace bp = boost::python;

namespace python {

namespace {

bool isPath(PyObject* object)
{
    return isStr(object) || PyObject_HasAttrString(reinterpret_cast<PyObject*>(Py_TYPE(object)), "__fspath__") != 0;
}

void* convertible(PyObject* object)
{
    return isPath(object) ? object : nullptr;
}

void construct(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
{
    void* memory = reinterpret_cast<bp::converter::rvalue_from_python_storage<PathText>*>(data)->storage.bytes;
    data->convertible = new (memory) PathText(Argument<PathText>::from(object, "path"));
}

} // namespace

PathText Argument<PathText>::from(PyObject* object, const char* where)
{
    if (isStr(object))
        return {Argument<QString>::from(object, where)};
    if (!isPath(object))
        raiseWrongType(where, "str", object);
    const QtCall::Guard guard; // the widget that is given the path stays meanwhile
    const bp::object path = owned(PyOS_FSPath(object));
    return {Argument<QString>::from(path.ptr(), where)};
}

void registerPathConversion()
{
    bp::converter::registry::push_back(convertible, construct, bp::type_id<PathText>());
}

} // namespace python
