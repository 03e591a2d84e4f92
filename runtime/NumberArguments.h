#pragma once

#include <boost/python/detail/wrap_python.hpp>

/// Numbers as arguments of the C functions that ClassSlots.h installs: what counts as one and what it is worth. These
/// functions report with the interpreter's error indicator, for their callers are called from C.
namespace python {

bool isNumberSlowly(PyObject* object);
bool toDoubleSlowly(const char* where, PyObject* object, double& value);
bool toIndexSlowly(PyObject* object, long long& value, const char* format);

/// What is a float, everywhere in the module: float and int with their subclasses (bool is one), numpy's scalars of
/// real types and its arrays without a dimension, and other objects that convert to float or int and have no length
/// (fractions, decimal numbers). Never complex numbers, texts, dates, or arrays of one element.
inline bool isNumber(PyObject* object)
{
    return PyFloat_CheckExact(object) || isNumberSlowly(object);
}

/// The value of a number; false with the error pending otherwise: TypeError "`where`, expected 'float' but got '...'",
/// where `where` may be empty, OverflowError for an int beyond the floating-point range.
inline bool toDouble(const char* where, PyObject* object, double& value)
{
    if (PyFloat_CheckExact(object)) [[likely]] {
        value = PyFloat_AS_DOUBLE(object);
        return true;
    }
    return toDoubleSlowly(where, object, value);
}
inline bool toDouble(PyObject* object, double& value)
{
    return toDouble("", object, value);
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

/// The same for a position in something: one beyond 64 bits becomes the outermost one on its side, which is outside
/// like any other.
bool toPosition(PyObject* object, long long& value, const char* format);

/// Lets the binding layer's functions take the same numbers for their parameters: what converts to int without loss is
/// an int, with OverflowError beyond 32 bits. For plain float and int nothing changes. Called once, before any function
/// is registered.
void registerNumberConversion();

} // namespace python
