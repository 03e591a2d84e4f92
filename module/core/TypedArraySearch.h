#pragma once

#include "module/core/TypedArraySlice.h"

namespace python {

/// The element that is a method's argument; false with an exception set.
template <typename T>
bool convertArgument(PyObject* object, const char* method, T& value)
{
    if (ArrayElement<T>::fromPythonAtOnce(object, value)) [[likely]]
        return true;
    const Conversion conversion = ArrayElement<T>::fromPython(object, value);
    if (conversion == Conversion::WrongType)
        PyErr_Format(PyExc_TypeError, "%sArray.%s(), expected type '%s' but got '%s' instead", ArrayElement<T>::word,
                     method, ArrayElement<T>::typeName, typeName(object));
    return conversion == Conversion::Done;
}

/// Members of the typed arrays that compare whole arrays or search an element. They take time with the length; other
/// Python threads run meanwhile in long arrays.
template <typename T>
class TypedArraySearch
{
    using Array = core::Array<T>;
    using Element = ArrayElement<T>;
    using Instance = ArrayInstance<T>;

public:
    static PyObject* compare(PyObject* self, PyObject* other, int operation)
    {
        if ((operation != Py_EQ && operation != Py_NE) || !Instance::check(self) || !Instance::check(other))
            Py_RETURN_NOTIMPLEMENTED;
        bool equal = false;
        if (!areEqual(self, other, equal))
            return nullptr;
        return PyBool_FromLong(equal == (operation == Py_EQ));
    }

    /// True for equal arrays, whatever the name says: scripts rely on it.
    static PyObject* neq(PyObject* self, PyObject* other)
    {
        if (other == Py_None)
            return PyErr_Format(PyExc_RuntimeError,
                                "core::Array, expected type 'core::Array' but got 'NoneType' instead");
        if (!Instance::check(other))
            return PyErr_Format(PyExc_TypeError, "%sArray.__neq__(), expected '%sArray' but got '%s' instead",
                                Element::word, Element::word, typeName(other));
        bool equal = false;
        return areEqual(self, other, equal) ? PyBool_FromLong(equal) : nullptr;
    }

    static int contains(PyObject* self, PyObject* value)
    {
        std::int64_t position = -1;
        return find(self, value, "__contains__", position) ? position >= 0 : -1;
    }

    static PyObject* index(PyObject* self, PyObject* value)
    {
        std::int64_t position = -1;
        if (!find(self, value, "index", position))
            return nullptr;
        if (position < 0)
            return PyErr_Format(PyExc_ValueError, "%sArray.index(), element not found in %sArray", Element::word,
                                Element::word);
        return PyLong_FromLongLong(position);
    }

    /// The scan begins one position behind the last element, which is out of range: it never gets further. Scripts may
    /// rely on the IndexError.
    static PyObject* rindex(PyObject* self, PyObject* value)
    {
        T wanted{};
        if (!convertArgument<T>(value, "rindex", wanted))
            return nullptr;
        const Array* array = Instance::get(self);
        if (!array)
            return nullptr;
        for (std::int64_t position = array->count(); position >= 0; --position) {
            if (!isValidIndex(position, array->count()))
                return raiseOutOfRange(position, array->count());
            if ((*array)[position] == wanted)
                return PyLong_FromLongLong(position);
        }
        return PyErr_Format(PyExc_ValueError, "%sArray.rindex(), element not found in %sArray", Element::word,
                            Element::word);
    }

private:
    /// -1 in `position` when there is no such element.
    static bool find(PyObject* self, PyObject* value, const char* method, std::int64_t& position)
    {
        T wanted{};
        if (!convertArgument<T>(value, method, wanted))
            return false;
        Array* array = Instance::get(self);
        if (array)
            position = onElements(*array, *array, [&] { return array->indexOf(wanted); });
        return array != nullptr;
    }

    static bool areEqual(PyObject* self, PyObject* other, bool& equal)
    {
        Array* first = Instance::get(self);
        Array* second = first ? Instance::get(other) : nullptr;
        if (second)
            equal = onElements(*first, *second, [=] { return *first == *second; });
        return second != nullptr;
    }
};

} // namespace python
