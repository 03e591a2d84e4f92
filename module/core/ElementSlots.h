#pragma once

#include "module/core/GeometryTexts.h"
#include "module/core/ValueState.h"

namespace python::slots {

/// value[index] of the vectors, whose elements are numbers, and of the matrices. A row that a script reads is a
/// reference into the matrix, see ReferenceHolder.
template <typename T>
class ElementSlots
{
    using Element = std::decay_t<decltype(std::declval<T&>()[0])>;
    static constexpr bool IsVector = std::is_same_v<Element, double>;
    static constexpr const char* WrongKey =
        IsVector ? "vector index, expected 'int' but got '%s'" : "matrix row, expected 'int' but got '%s'";

public:
    static void install(PyTypeObject* type)
    {
        constexpr const char* GetDocumentation =
            IsVector ? "__getitem__(index: int) -> float\n\nThe component. Raises IndexError when there is none, "
                       "OverflowError for a negative index."
                     : "__getitem__(row: int) -> #\n\nThe row, as a reference: what is assigned to its components "
                       "changes the matrix. Raises IndexError when there is no such row.";
        constexpr const char* SetDocumentation =
            IsVector ? "__setitem__(index: int, value: float) -> None\n\nSets the component. Raises IndexError when "
                       "there is none, OverflowError for a negative index."
                     : "__setitem__(row: int, value: #) -> None\n\nReplaces the row. Raises IndexError when there is "
                       "no such row.";
        installSlot(type, "__getitem__", reinterpret_cast<void*>(item),
                    docstring(GetDocumentation, className<T>(), className<Element>()));
        installSlot(type, "__setitem__", reinterpret_cast<void*>(setItem),
                    docstring(SetDocumentation, className<T>(), className<Element>()));
        // Without a length: a script unpacks and iterates until IndexError.
        installSequence(type, nullptr, sequenceItem);
    }

private:
    static bool isInside(long long index, const char* text)
    {
        if (isValidIndex(index, T::Size)) [[likely]]
            return true;
        if (IsVector && index < 0)
            PyErr_SetString(PyExc_OverflowError, "can't convert negative value to unsigned int");
        else
            PyErr_Format(PyExc_IndexError, text, saturated(index));
        return false;
    }
    static PyObject* sequenceItem(PyObject* object, Py_ssize_t index)
    {
        T* value = self<T>(object);
        if (!value || !isInside(index, GeometryTexts<T>::getting))
            return nullptr;
        Element& element = (*value)[static_cast<std::size_t>(index)];
        if constexpr (IsVector)
            return PyFloat_FromDouble(element);
        else
            return ValueInstance<Element>::makeReference(&element, object);
    }
    static PyObject* item(PyObject* object, PyObject* key)
    {
        long long index = 0;
        return toIndex(key, index, WrongKey) ? sequenceItem(object, static_cast<Py_ssize_t>(index)) : nullptr;
    }
    static int setItem(PyObject* object, PyObject* key, PyObject* argument)
    {
        T* value = self<T>(object);
        long long index = 0;
        Element element{};
        if (!value || !toIndex(key, index, WrongKey) || !fromPython<T>(argument, element, "__setitem__()") ||
            !isInside(index, GeometryTexts<T>::setting))
            return -1;
        (*value)[static_cast<std::size_t>(index)] = element;
        return 0;
    }
};

} // namespace python::slots
