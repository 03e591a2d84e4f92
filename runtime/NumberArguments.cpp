#include "runtime/NumberArguments.h"

#include "runtime/Errors.h"
#include "runtime/QtCall.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

/// Like a float or an int without being one: a conversion slot, and nothing of a container or a text.
bool isForeignNumber(PyObject* object)
{
    const PyTypeObject* type = Py_TYPE(object);
    if (!type->tp_as_number || !(type->tp_as_number->nb_float || type->tp_as_number->nb_index))
        return false;
    if ((type->tp_as_sequence && type->tp_as_sequence->sq_length) ||
        (type->tp_as_mapping && type->tp_as_mapping->mp_length))
        return false;
    return !PyUnicode_Check(object) && !PyBytes_Check(object) && !PyComplex_Check(object);
}

template <typename Number>
void* convertible(PyObject* object)
{
    return !PyFloat_Check(object) && !PyLong_Check(object) && isForeignNumber(object) ? object : nullptr;
}

template <typename Number>
void construct(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
{
    double value = 0.0;
    if (!toDoubleSlowly(object, value))
        raisePending();
    void* memory = reinterpret_cast<bp::converter::rvalue_from_python_storage<Number>*>(data)->storage.bytes;
    data->convertible = new (memory) Number(static_cast<Number>(value));
}

} // namespace

bool isNumberSlowly(PyObject* object)
{
    return PyFloat_Check(object) || PyLong_Check(object) || isForeignNumber(object);
}

bool toDoubleSlowly(PyObject* object, double& value)
{
    if (!isNumberSlowly(object)) {
        PyErr_Format(PyExc_TypeError, "expected 'float' but got '%s'", typeName(object));
        return false;
    }
    const QtCall::Guard guard; // the object's own code runs, and the caller may hold a Qt object
    const double converted = PyFloat_AsDouble(object);
    if (converted == -1.0 && PyErr_Occurred())
        return false;
    value = converted;
    return true;
}

bool toIndexSlowly(PyObject* object, long long& value, const char* format)
{
    if (!PyIndex_Check(object)) {
        PyErr_Format(PyExc_TypeError, format, typeName(object));
        return false;
    }
    const QtCall::Guard guard; // as above
    PyObject* integer = PyNumber_Index(object);
    if (!integer)
        return false;
    const long long converted = PyLong_AsLongLong(integer);
    Py_DECREF(integer);
    if (converted == -1 && PyErr_Occurred())
        return false;
    value = converted;
    return true;
}

void registerNumberConversion()
{
    bp::converter::registry::push_back(convertible<double>, construct<double>, bp::type_id<double>());
    bp::converter::registry::push_back(convertible<float>, construct<float>, bp::type_id<float>());
}

} // namespace python
