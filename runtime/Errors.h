#pragma once

#include <boost/python/handle.hpp>
#include <boost/python/object.hpp>

#include <QString>

#include <algorithm>
#include <limits>

/// One way to raise, one index rule, one type check: what every binding uses to refuse bad arguments.
/// All functions here need the interpreter lock.
namespace python {

/// Sets `type` with a message in PyErr_Format's notation and unwinds to the calling script.
[[noreturn]] void raise(PyObject* type, const char* format, ...);

/// The same for an error that another one explains: the pending exception becomes the new one's __cause__.
[[noreturn]] void raiseFromPending(PyObject* type, const char* format, ...);

/// Unwinds with the exception that is already set.
[[noreturn]] void raisePending();

/// The name of the object's type as messages show it ("NoneType" for None).
inline const char* typeName(PyObject* object)
{
    return Py_TYPE(object)->tp_name;
}
inline const char* typeName(const boost::python::object& object)
{
    return typeName(object.ptr());
}

inline bool isStr(PyObject* object)
{
    return PyUnicode_Check(object);
}
/// True also for bool, which is a subclass of int.
inline bool isInt(PyObject* object)
{
    return PyLong_Check(object);
}

/// Indices are never counted from the end: only [0, count) is valid.
inline bool isValidIndex(long long index, long long count)
{
    return static_cast<unsigned long long>(index) < static_cast<unsigned long long>(count);
}

/// An index as "%d" shows it: the nearest 32-bit number.
inline int saturated(long long index)
{
    return static_cast<int>(
        std::clamp<long long>(index, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// The text of a str argument; anything else is a TypeError whose `format` holds one "%s" for the type's name.
/// A str that has no UTF-8 form (lone surrogates) raises UnicodeEncodeError.
QString requireStr(const boost::python::object& argument, const char* format);

/// The value of an int argument, or of what converts to one without loss (numpy's integers); anything else is a
/// TypeError as above, a value beyond 64 bits an OverflowError.
long long requireInt(const boost::python::object& argument, const char* format);

/// A position: as requireInt(), but one beyond 64 bits lies outside of everything like any other.
long long requirePosition(const boost::python::object& argument, const char* format);
/// [0, count); IndexError "<where>, index (%d) out of range (0 -> %d)" otherwise.
int requireInside(long long position, int count, const char* where);
/// Both, with TypeError "<where>, expected 'int' but got '%s' instead".
int requireIndex(const boost::python::object& argument, int count, const char* where);

/// Takes over a new reference; null unwinds with the pending exception.
boost::python::object owned(PyObject* newReference);

/// Prints the pending exception through sys.stderr, whatever the script did to it, and clears it. Never raises, never
/// ends the process.
void printPendingError();

} // namespace python
