#include "runtime/NumberArguments.h"

#include "runtime/Errors.h"
#include "runtime/QtCall.h"
#include "runtime/Ref.h"

#include <boost/python.hpp>

#include <cstring>
#include <limits>

namespace bp = boost::python;

namespace python {

namespace {

/// The format of a single real number in the notation of the struct module.
bool isRealFormat(const char* format)
{
    if (!format)
        return true; // plain bytes
    if (std::strchr("@=<>!^", *format) && *format)
        ++format;
    return format[0] && !format[1] && std::strchr("?bBhHiIlLqQnNefdg", format[0]);
}

/// What an object that shows its memory (numpy's scalars and arrays) holds: one real number, not several and no complex
/// one, whose __float__ drops the imaginary part.
bool isSingleNumber(PyObject* object)
{
    Py_buffer view{};
    if (PyObject_GetBuffer(object, &view, PyBUF_FULL_RO) < 0) {
        PyErr_Clear(); // dates have no description
        return false;
    }
    const bool isSingle = view.ndim == 0 && isRealFormat(view.format);
    PyBuffer_Release(&view);
    return isSingle;
}

/// Like a float or an int without being one: a conversion slot, and nothing of a container or a text.
bool isForeignNumber(PyObject* object)
{
    const PyTypeObject* type = Py_TYPE(object);
    if (!type->tp_as_number || !(type->tp_as_number->nb_float || type->tp_as_number->nb_index))
        return false;
    if (PyUnicode_Check(object) || PyBytes_Check(object) || PyComplex_Check(object))
        return false;
    if (PyObject_CheckBuffer(object))
        return isSingleNumber(object);
    return !(type->tp_as_sequence && type->tp_as_sequence->sq_length) &&
           !(type->tp_as_mapping && type->tp_as_mapping->mp_length);
}

void* convertibleToInt(PyObject* object)
{
    return !PyLong_Check(object) && PyIndex_Check(object) ? object : nullptr;
}

void constructInt(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
{
    long long value = 0;
    if (!toIndexSlowly(object, value, "expected 'int' but got '%s'"))
        raisePending();
    if (value != saturated(value))
        raise(PyExc_OverflowError, "%lld does not fit 32 bits", value);
    void* memory = reinterpret_cast<bp::converter::rvalue_from_python_storage<int>*>(data)->storage.bytes;
    data->convertible = new (memory) int(static_cast<int>(value));
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
    if (!toDoubleSlowly("", object, value))
        raisePending();
    void* memory = reinterpret_cast<bp::converter::rvalue_from_python_storage<Number>*>(data)->storage.bytes;
    data->convertible = new (memory) Number(static_cast<Number>(value));
}

} // namespace

bool isNumberSlowly(PyObject* object)
{
    return PyFloat_Check(object) || PyLong_Check(object) || isForeignNumber(object);
}

bool toDoubleSlowly(const char* where, PyObject* object, double& value)
{
    if (!isNumberSlowly(object)) {
        PyErr_Format(PyExc_TypeError, "%s%sexpected 'float' but got '%s'", where, *where ? ", " : "", typeName(object));
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
    const Ref integer = Ref::steal(PyNumber_Index(object));
    if (!integer)
        return false;
    const long long converted = PyLong_AsLongLong(integer.get());
    if (converted == -1 && PyErr_Occurred())
        return false;
    value = converted;
    return true;
}

bool toPosition(PyObject* object, long long& value, const char* format)
{
    if (toIndex(object, value, format)) [[likely]]
        return true;
    if (!PyErr_ExceptionMatches(PyExc_OverflowError))
        return false;
    PyErr_Clear();
    const Ref zero = Ref::steal(PyLong_FromLong(0));
    const int isNegative = zero ? PyObject_RichCompareBool(object, zero.get(), Py_LT) : -1;
    value = isNegative == 1 ? std::numeric_limits<long long>::min() : std::numeric_limits<long long>::max();
    return isNegative >= 0;
}

void registerNumberConversion()
{
    bp::converter::registry::push_back(convertibleToInt, constructInt, bp::type_id<int>());
    bp::converter::registry::push_back(convertible<double>, construct<double>, bp::type_id<double>());
    bp::converter::registry::push_back(convertible<float>, construct<float>, bp::type_id<float>());
}

} // namespace python
