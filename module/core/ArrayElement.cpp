#include "module/core/ArrayElement.h"

namespace python::element {

namespace {

/// An object whose own conversion refuses is of a wrong type; any other exception is its own affair.
Conversion pendingFailure()
{
    if (!PyErr_ExceptionMatches(PyExc_TypeError))
        return Conversion::Raised;
    PyErr_Clear();
    return Conversion::WrongType;
}

/// numpy's complex scalars have __float__, which drops the imaginary part; only their memory tells what they are.
bool isComplex(PyObject* object)
{
    Py_buffer view{};
    if (PyComplex_Check(object) || !PyObject_CheckBuffer(object))
        return PyComplex_Check(object);
    if (PyObject_GetBuffer(object, &view, PyBUF_FULL_RO) < 0) {
        PyErr_Clear();
        return false;
    }
    const bool hasTwoParts = view.format && view.format[0] == 'Z';
    PyBuffer_Release(&view);
    return hasTwoParts;
}

} // namespace

Conversion toDouble(PyObject* object, double& value)
{
    const PyNumberMethods* methods = Py_TYPE(object)->tp_as_number;
    const bool isReal = PyFloat_Check(object) || (methods && (methods->nb_float || methods->nb_index));
    if (!isReal || isComplex(object))
        return Conversion::WrongType;
    value = PyFloat_AsDouble(object);
    return value == -1.0 && PyErr_Occurred() ? pendingFailure() : Conversion::Done;
}

Conversion toInt32(PyObject* object, std::int32_t& value)
{
    PyObject* number = PyIndex_Check(object) ? PyNumber_Index(object) : nullptr;
    if (!number)
        return PyErr_Occurred() ? pendingFailure() : Conversion::WrongType;
    int overflow = 0;
    const long long wide = PyLong_AsLongLongAndOverflow(number, &overflow);
    Py_DECREF(number);
    value = static_cast<std::int32_t>(wide);
    if (overflow == 0 && value == wide)
        return Conversion::Done;
    refuseWideInteger();
    return Conversion::Raised;
}

void refuseWideInteger()
{
    PyErr_SetString(PyExc_OverflowError, "IntArray, value out of the range of a 32-bit integer");
}

} // namespace python::element
