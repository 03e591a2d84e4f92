#pragma once

#include "host/core/Vector.h"
#include "runtime/ValueInstance.h"

#include <cstdint>

/// What the four typed arrays do not have in common: the words in their texts and the conversion of one element. All of
/// this needs the interpreter lock.
namespace python {

enum class Conversion
{
    Done,
    WrongType, ///< no exception is set: the caller's message names the place
    Raised,    ///< an exception is set (value out of range, or the object's own conversion raised)
};

namespace element {

/// What NumberArguments.h takes for a number. May run Python code.
Conversion toDouble(PyObject* object, double& value);
/// int, bool and whatever has __index__, never a float. Values beyond 32 bits raise OverflowError. May run Python code.
Conversion toInt32(PyObject* object, std::int32_t& value);
/// Sets the OverflowError of integers beyond 32 bits.
void refuseWideInteger();

/// Exact float, int or bool. Runs no Python code and sets no exception; false leaves the object to the function above.
inline bool toDoubleAtOnce(PyObject* object, double& value)
{
    if (PyFloat_CheckExact(object)) [[likely]] {
        value = PyFloat_AS_DOUBLE(object);
        return true;
    }
    if (!PyLong_CheckExact(object) && !PyBool_Check(object))
        return false;
    value = PyLong_AsDouble(object);
    if (value == -1.0 && PyErr_Occurred()) {
        PyErr_Clear();
        return false;
    }
    return true;
}

} // namespace element

/// word: stands before "Array" in the class's name, className; typeName: the Python type of an element; bufferFormat
/// and width: an element as the buffer protocol describes it.
template <typename T>
struct ArrayElement;

template <>
struct ArrayElement<std::int32_t>
{
    static constexpr const char* word = "Int";
    static constexpr const char* className = "IntArray";
    static constexpr const char* typeName = "int";
    static constexpr const char* bufferFormat = "i";
    static constexpr int width = 1;

    static PyObject* toPython(std::int32_t value) { return PyLong_FromLong(value); }
    static bool fromPythonAtOnce(PyObject* object, std::int32_t& value)
    {
        if (!PyLong_Check(object))
            return false;
        int overflow = 0;
        const long long wide = PyLong_AsLongLongAndOverflow(object, &overflow);
        value = static_cast<std::int32_t>(wide);
        return overflow == 0 && value == wide;
    }
    static Conversion fromPython(PyObject* object, std::int32_t& value) { return element::toInt32(object, value); }
};

/// Both floating-point widths. A double beyond the range of a 32-bit float becomes infinite, as in numpy.
template <typename T>
struct RealElement
{
    static constexpr const char* typeName = "float";
    static constexpr int width = 1;

    static PyObject* toPython(T value) { return PyFloat_FromDouble(static_cast<double>(value)); }
    static bool fromPythonAtOnce(PyObject* object, T& value)
    {
        double wide = 0.0;
        if (!element::toDoubleAtOnce(object, wide))
            return false;
        value = static_cast<T>(wide);
        return true;
    }
    static Conversion fromPython(PyObject* object, T& value)
    {
        double wide = 0.0;
        const Conversion conversion = element::toDouble(object, wide);
        value = static_cast<T>(wide);
        return conversion;
    }
};

template <>
struct ArrayElement<float> : RealElement<float>
{
    static constexpr const char* word = "Float";
    static constexpr const char* className = "FloatArray";
    static constexpr const char* bufferFormat = "f";
};

template <>
struct ArrayElement<double> : RealElement<double>
{
    static constexpr const char* word = "Double";
    static constexpr const char* className = "DoubleArray";
    static constexpr const char* bufferFormat = "d";
};

/// Reading an element gives a copy: changing it does not change the array. Only vec3 objects convert.
template <>
struct ArrayElement<core::vec3>
{
    static constexpr const char* word = "Vec3";
    static constexpr const char* className = "Vec3Array";
    static constexpr const char* typeName = "vec3";
    static constexpr const char* bufferFormat = "d";
    static constexpr int width = 3;

    static PyObject* toPython(const core::vec3& value) { return ValueInstance<core::vec3>::make(value); }
    static bool fromPythonAtOnce(PyObject* object, core::vec3& value)
    {
        const core::vec3* found =
            ValueInstance<core::vec3>::check(object) ? ValueInstance<core::vec3>::get(object) : nullptr;
        if (found)
            value = *found;
        return found != nullptr;
    }
    static Conversion fromPython(PyObject* object, core::vec3& value)
    {
        return fromPythonAtOnce(object, value) ? Conversion::Done : Conversion::WrongType;
    }
};

} // namespace python
