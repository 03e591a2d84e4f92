#pragma once

#include "module/core/ArrayInstance.h"

namespace python {

/// The buffer protocol of a typed array: a writable view of the elements themselves, so that numpy.asarray(array) is
/// no copy. Arrays of numbers are one-dimensional ('i', 'f', 'd'); Vec3Array is (n, 3) of 'd', in C order.
template <typename T>
int getArrayBuffer(PyObject* self, Py_buffer* view, int flags)
{
    using Element = ArrayElement<T>;
    view->obj = nullptr;
    core::Array<T>* array = ArrayInstance<T>::get(self);
    if (!array)
        return -1;
    const MemoryLayout layout{array->data(),
                              Element::bufferFormat,
                              static_cast<Py_ssize_t>(sizeof(T)) / Element::width,
                              Element::width == 1 ? 1 : 2,
                              {static_cast<Py_ssize_t>(array->count()), Element::width, 0}};
    return exportMemory(self, Element::className, array->exports(), layout, view, flags);
}

} // namespace python
