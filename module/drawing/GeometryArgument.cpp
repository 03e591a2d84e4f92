#include "module/drawing/GeometryArgument.h"

#include "runtime/Errors.h"
#include "runtime/NumberArguments.h"
#include "runtime/ValueInstance.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

/// The item of a tuple or list of two, else null. Borrowed.
PyObject* itemOfTwo(PyObject* object, Py_ssize_t index)
{
    const bool isPair = (PyTuple_Check(object) || PyList_Check(object)) && PySequence_Fast_GET_SIZE(object) == 2;
    return isPair ? PySequence_Fast_GET_ITEM(object, index) : nullptr;
}

template <typename T, typename Number>
Reading readPair(PyObject* argument, T& value)
{
    if (ValueInstance<T>::check(argument)) {
        const T* given = ValueInstance<T>::get(argument);
        if (given)
            value = *given;
        return given ? Reading::Done : Reading::OtherType;
    }
    PyObject* first = itemOfTwo(argument, 0);
    if (!first)
        return Reading::OtherType;
    // A conversion method of the first item may empty a list.
    const bp::object second(bp::handle<>(bp::borrowed(itemOfTwo(argument, 1))));
    Number numbers[2];
    Reading reading = read(first, numbers[0]);
    if (reading == Reading::Done)
        reading = read(second.ptr(), numbers[1]);
    if (reading == Reading::Done)
        value = T(numbers[0], numbers[1]);
    return reading;
}

template <typename T>
constexpr bool g_hasFloats = std::is_same_v<T, QPointF>;

/// For the binding layer, which asks first and converts later.
template <typename T>
void* isConvertible(PyObject* object)
{
    if (g_hasFloats<T> && ValueInstance<QPoint>::check(object))
        return object;
    for (Py_ssize_t i = 0; i < 2; ++i) {
        PyObject* item = itemOfTwo(object, i);
        if (!item || !(g_hasFloats<T> ? isNumber(item) : PyIndex_Check(item)))
            return nullptr;
    }
    return object;
}

template <typename T>
void convert(PyObject* object, bp::converter::rvalue_from_python_stage1_data* data)
{
    const T value =
        geometryArgument<T>(bp::object(bp::handle<>(bp::borrowed(object))), "expected two numbers, not '%s'");
    void* storage = reinterpret_cast<bp::converter::rvalue_from_python_storage<T>*>(data)->storage.bytes;
    data->convertible = new (storage) T(value);
}

} // namespace

Reading read(PyObject* argument, int& value)
{
    if (!PyIndex_Check(argument))
        return Reading::OtherType;
    long long number = 0;
    if (!toIndex(argument, number, "expected 'int' but got '%s'"))
        return Reading::Failed;
    value = saturated(number);
    if (value == number)
        return Reading::Done;
    PyErr_Format(PyExc_OverflowError, "%lld does not fit 32 bits", number);
    return Reading::Failed;
}

Reading read(PyObject* argument, double& value)
{
    if (!isNumber(argument))
        return Reading::OtherType;
    return toDouble(argument, value) ? Reading::Done : Reading::Failed;
}

Reading read(PyObject* argument, QPoint& value)
{
    return readPair<QPoint, int>(argument, value);
}

Reading read(PyObject* argument, QPointF& value)
{
    QPoint whole;
    if (ValueInstance<QPoint>::check(argument) && read(argument, whole) == Reading::Done) {
        value = whole;
        return Reading::Done;
    }
    return readPair<QPointF, double>(argument, value);
}

Reading read(PyObject* argument, QSize& value)
{
    return readPair<QSize, int>(argument, value);
}

template <typename T>
T geometryArgument(const bp::object& argument, const char* format)
{
    T value{};
    switch (read(argument.ptr(), value)) {
    case Reading::OtherType:
        raise(PyExc_TypeError, format, typeName(argument));
    case Reading::Failed:
        raisePending();
    case Reading::Done:
        break;
    }
    return value;
}
template int geometryArgument(const bp::object&, const char*);
template double geometryArgument(const bp::object&, const char*);
template QPoint geometryArgument(const bp::object&, const char*);
template QPointF geometryArgument(const bp::object&, const char*);
template QSize geometryArgument(const bp::object&, const char*);

template <typename T>
bool readMember(PyObject* argument, T& value, const char* member, const char* wanted)
{
    if (!argument) {
        PyErr_Format(PyExc_TypeError, "%s cannot be deleted", member);
        return false;
    }
    const Reading reading = read(argument, value);
    if (reading == Reading::OtherType)
        PyErr_Format(PyExc_TypeError, "%s, expected '%s' but got '%s'", member, wanted, typeName(argument));
    return reading == Reading::Done;
}
template bool readMember(PyObject*, int&, const char*, const char*);
template bool readMember(PyObject*, double&, const char*, const char*);
template bool readMember(PyObject*, QPoint&, const char*, const char*);
template bool readMember(PyObject*, QPointF&, const char*, const char*);
template bool readMember(PyObject*, QSize&, const char*, const char*);

PyObject* toPython(const QPoint& point)
{
    return ValueInstance<QPoint>::make(point);
}
PyObject* toPython(const QSize& size)
{
    return ValueInstance<QSize>::make(size);
}
PyObject* toPython(const QRect& rectangle)
{
    return ValueInstance<QRect>::make(rectangle);
}

void registerGeometryArguments()
{
    bp::converter::registry::push_back(isConvertible<QPoint>, convert<QPoint>, bp::type_id<QPoint>());
    bp::converter::registry::push_back(isConvertible<QPointF>, convert<QPointF>, bp::type_id<QPointF>());
    bp::converter::registry::push_back(isConvertible<QSize>, convert<QSize>, bp::type_id<QSize>());
}

} // namespace python
