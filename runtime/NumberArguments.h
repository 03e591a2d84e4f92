#pragma once

#include <boost/python/detail/wrap_python.hpp>

/// Numbers as arguments of the C functions that ClassSlots.h installs: what counts as one and what it is worth. These
/// functions report with the interpreter's error indicator, for their callers are called from C.
namespace python {

bool isNumberSlowly(PyObject* object);
bool toDoubleSlowly(PyObject* object, double& value);
bool toIndexSlowly(PyObject* object, long long& value, const char* format);

/// True for float and int with their subclasses (bool is one) and for the scalars of numpy and the like, which convert
/// to float or int. False for text, complex numbers and everything that has a length.
inline bool isNumber(PyObject* object)
{
    return PyFloat_CheckExact(object) || isNumberSlowly(object);
}

/// The value of a number; false with the error pending otherwise: TypeError, OverflowError for an int beyond the
/// floating-point range.
inline bool toDouble(PyObject* object, double& value)
{
    if (PyFloat_CheckExact(object)) [[likely]] {
        value = PyFloat_AS_DOUBLE(object);
        return true;
    }
    return toDoubleSlowly(object, value);
}

/// The value of an int or of what converts to one without loss (numpy's integers); false with the error pending
/// otherwise: TypeError, whose `format` holds one "%s" for the type's name, OverflowError beyond 64 bits.
inline bool toIndex(PyObject* object, long long& value, const char* format)
{
    if (PyLong_CheckExact(object)) [[likely]] {
        value = PyLong_AsLongLong(object);
        return value != -1 || !PyErr_Occurred();
    }
    return toIndexSlowly(object, value, format);
}

/// Lets the binding layer's functions take the same numbers for their floating-point parameters. For plain float and
/// int nothing changes. Called once, before any function is registered.
void registerNumberConversion();

} // namespace python
