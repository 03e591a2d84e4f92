#pragma once

#include "runtime/Errors.h"
#include "runtime/NumberArguments.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QString>

#include <limits>
#include <type_traits>

/// Values on their way between properties of the binding layer's classes and Python.
///
/// toPython() returns a new reference. Argument<T>::from() raises TypeError "<where>, expected '<type>' but got '...'
/// instead", where `where` is the class and member ("Frame.lineWidth").
namespace python {

inline PyObject* toPython(bool value)
{
    return PyBool_FromLong(value);
}
inline PyObject* toPython(int value)
{
    return PyLong_FromLong(value);
}
inline PyObject* toPython(double value)
{
    return PyFloat_FromDouble(value);
}
inline PyObject* toPython(const QString& text)
{
    return textToPython(text);
}
inline PyObject* toPython(const boost::python::object& object)
{
    return boost::python::incref(object.ptr());
}
/// Enumerations and the value classes of the binding layer.
template <typename Value>
PyObject* toPython(const Value& value)
{
    return boost::python::incref(boost::python::object(value).ptr());
}

[[noreturn]] inline void raiseWrongType(const char* where, const char* expected, PyObject* got)
{
    raise(PyExc_TypeError, "%s, expected '%s' but got '%s' instead", where, expected, typeName(got));
}

/// Enumerations and the value classes of the binding layer.
template <typename Value>
struct Argument
{
    static Value from(PyObject* object, const char* where)
    {
        const boost::python::extract<Value> value(object);
        if (!value.check())
            raiseWrongType(where, boost::python::converter::registered<Value>::converters.get_class_object()->tp_name,
                           object);
        return value();
    }
};

template <>
struct Argument<bool>
{
    static bool from(PyObject* object, const char* where)
    {
        if (!PyLong_Check(object))
            raiseWrongType(where, "bool", object);
        return PyObject_IsTrue(object) == 1;
    }
};

template <>
struct Argument<int>
{
    static int from(PyObject* object, const char* where)
    {
        long long value = 0;
        if (!PyIndex_Check(object))
            raiseWrongType(where, "int", object);
        if (!toIndex(object, value, "expected 'int' but got '%s' instead"))
            raisePending();
        if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
            raise(PyExc_OverflowError, "%s, the value must fit 32 bits", where);
        return static_cast<int>(value);
    }
};

template <>
struct Argument<double>
{
    static double from(PyObject* object, const char* where)
    {
        double value = 0;
        if (!isNumber(object))
            raiseWrongType(where, "float", object);
        if (!toDouble(object, value))
            raisePending();
        return value;
    }
};

template <>
struct Argument<QString>
{
    static QString from(PyObject* object, const char* where)
    {
        const boost::python::object text{boost::python::handle<>(boost::python::borrowed(object))};
        return requireStr(text, (std::string(where) + ", expected 'str' but got '%s' instead").c_str());
    }
};

/// Anything, for setters that look themselves.
template <>
struct Argument<boost::python::object>
{
    static boost::python::object from(PyObject* object, const char* /*where*/)
    {
        return boost::python::object(boost::python::handle<>(boost::python::borrowed(object)));
    }
};

} // namespace python
