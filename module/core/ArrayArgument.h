#pragma once

#include "module/core/TypedArrayExtend.h"
#include "runtime/Ref.h"

namespace python {

/// Reads a plain sequence of elements, or memory of numbers such as a numpy array, where a function takes an array.
/// False with an exception set; `array` then holds nothing of use.
template <typename T>
bool readSequence(core::Array<T>& array, PyObject* sequence)
{
    using Element = ArrayElement<T>;
    if (PyObject_CheckBuffer(sequence))
        return TypedArrayExtend<T>::run(array, sequence);
    const Py_ssize_t count = PySequence_Size(sequence);
    for (Py_ssize_t i = 0; i < count; ++i) {
        const Ref item = Ref::steal(PySequence_GetItem(sequence, i));
        if (!item)
            return false;
        T value{};
        const Conversion conversion = Element::fromPython(item.get(), value);
        if (conversion == Conversion::WrongType)
            PyErr_Format(PyExc_TypeError, "%sArray, invalid sequence element at index %d of sequence", Element::word,
                         saturated(i));
        if (conversion != Conversion::Done)
            return false;
        if (!array.append(value)) {
            PyErr_Format(PyExc_MemoryError, "%sArray, unable to allocate memory for array", Element::word);
            return false;
        }
    }
    return count >= 0;
}

} // namespace python
