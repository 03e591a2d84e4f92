#pragma once

#include "module/core/ArrayInstance.h"

#include <new>

namespace python {

/// The buffer protocol of a typed array: a writable view of the elements themselves, so that numpy.asarray(array) is
/// no copy. Arrays of numbers are one-dimensional ('i', 'f', 'd'); Vec3Array is (n, 3) of 'd', in C order.
///
/// A view keeps the array object alive; the array counts its views and refuses to change its size while there is one.
template <typename T>
class TypedArrayBuffer
{
    using Element = ArrayElement<T>;
    static constexpr int s_dimensions = Element::width == 1 ? 1 : 2;
    static constexpr Py_ssize_t s_itemSize = static_cast<Py_ssize_t>(sizeof(T)) / Element::width;

    /// What the view points to besides the elements.
    struct Layout
    {
        core::Array<T>* array;
        Py_ssize_t shape[2];
        Py_ssize_t strides[2];
    };

public:
    static int get(PyObject* self, Py_buffer* view, int flags)
    {
        view->obj = nullptr;
        core::Array<T>* array = ArrayInstance<T>::get(self);
        if (!array)
            return -1;
        if (s_dimensions > 1 && (flags & PyBUF_F_CONTIGUOUS) == PyBUF_F_CONTIGUOUS) {
            PyErr_Format(PyExc_BufferError, "%sArray, the memory is in C order, not in Fortran order", Element::word);
            return -1;
        }
        const auto count = static_cast<Py_ssize_t>(array->count());
        auto* layout =
            new (std::nothrow) Layout{array, {count, Element::width}, {static_cast<Py_ssize_t>(sizeof(T)), s_itemSize}};
        if (!layout) {
            PyErr_NoMemory();
            return -1;
        }
        // An array without elements may have no memory; a view of it must still have an address.
        static T nothing;
        const bool withShape = (flags & PyBUF_ND) == PyBUF_ND;
        view->buf = array->data() ? array->data() : &nothing;
        view->len = count * static_cast<Py_ssize_t>(sizeof(T));
        view->readonly = 0;
        view->itemsize = s_itemSize;
        view->format = (flags & PyBUF_FORMAT) == PyBUF_FORMAT ? const_cast<char*>(Element::bufferFormat) : nullptr;
        view->ndim = withShape ? s_dimensions : 1;
        view->shape = withShape ? layout->shape : nullptr;
        view->strides = (flags & PyBUF_STRIDES) == PyBUF_STRIDES ? layout->strides : nullptr;
        view->suboffsets = nullptr;
        view->internal = layout;
        array->addExport();
        view->obj = Py_NewRef(self);
        return 0;
    }

    static void release(PyObject*, Py_buffer* view)
    {
        auto* layout = static_cast<Layout*>(view->internal);
        layout->array->releaseExport();
        delete layout;
    }
};

} // namespace python
