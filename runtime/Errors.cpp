#include "runtime/Errors.h"

#include "runtime/AskedStop.h"
#include "runtime/NumberArguments.h"
#include "runtime/PendingError.h"
#include "runtime/StreamCaptureBinding.h"

#include <cstdarg>
#include <string>

namespace bp = boost::python;

namespace python {

void raise(PyObject* type, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    PyErr_FormatV(type, format, arguments);
    va_end(arguments);
    raisePending();
}

void raiseFromPending(PyObject* type, const char* format, ...)
{
    PendingError pending;
    Ref cause = Ref::borrow(pending.value());
    pending.drop();
    va_list arguments;
    va_start(arguments, format);
    PyErr_FormatV(type, format, arguments);
    va_end(arguments);
    PendingError error;
    PyException_SetCause(error.value(), cause.release()); // takes the reference over
    error.putBack();
    raisePending();
}

void raisePending()
{
    bp::throw_error_already_set();
    std::abort(); // not reached; the function above is not declared noreturn
}

QString requireStr(const bp::object& argument, const char* format)
{
    if (!isStr(argument.ptr()))
        raise(PyExc_TypeError, format, typeName(argument));
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_AsUTF8AndSize(argument.ptr(), &size);
    if (!utf8)
        raisePending();
    return QString::fromUtf8(utf8, static_cast<int>(size));
}

long long requireInt(const bp::object& argument, const char* format)
{
    long long value = 0;
    if (!toIndex(argument.ptr(), value, format))
        raisePending();
    return value;
}

long long requirePosition(const bp::object& argument, const char* format)
{
    long long value = 0;
    if (!toPosition(argument.ptr(), value, format))
        raisePending();
    return value;
}

int requireInside(long long position, int count, const char* where)
{
    if (!isValidIndex(position, count))
        raise(PyExc_IndexError, "%s, index (%d) out of range (%d -> %d)", where, saturated(position), 0, count - 1);
    return static_cast<int>(position);
}

int requireIndex(const bp::object& argument, int count, const char* where)
{
    return requireInside(
        requirePosition(argument, (std::string(where) + ", expected 'int' but got '%s' instead").c_str()), count,
        where);
}

bp::object owned(PyObject* newReference)
{
    return bp::object(bp::handle<>(newReference));
}

void printPendingError()
{
    if (!PyErr_Occurred() || reportAskedStop())
        return;
    // A script may have set sys.stderr to None or deleted it; its error report must reach the user all the same.
    PyObject* stderrObject = PySys_GetObject("stderr");
    if (!stderrObject || stderrObject == Py_None)
        restoreLostStreams();
    PyErr_PrintEx(0);
}

} // namespace python
