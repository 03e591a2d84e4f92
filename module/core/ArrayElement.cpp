#include "module/core/ArrayElement.h"

#include "runtime/NumberArguments.h"
#include "runtime/Ref.h"

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

} // namespace

Conversion toDouble(PyObject* object, double& value)
{
    return python::toDouble(object, value) ? Conversion::Done : pendingFailure();
}

Conversion toInt32(PyObject* object, std::int32_t& value)
{
    const Ref number = Ref::steal(PyIndex_Check(object) ? PyNumber_Index(object) : nullptr);
    if (!number)
        return PyErr_Occurred() ? pendingFailure() : Conversion::WrongType;
    int overflow = 0;
    const long long wide = PyLong_AsLongLongAndOverflow(number.get(), &overflow);
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
