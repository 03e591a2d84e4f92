#pragma once

#include "module/core/ArrayInstance.h"
#include "runtime/Errors.h"

namespace python {

/// Iteration over a typed array. Elements added on the way are visited; a shortened array ends it.
///
/// Takes no part in garbage collection: neither do the array objects it refers to.
template <typename T>
struct TypedArrayIterator
{
    PyObject_HEAD PyObject* array; ///< null once the end was reached
    std::int64_t position;

    /// Makes the iterator's type; `name` has static storage and is the full one ("module.class").
    static void bind(const char* name)
    {
        static PyMethodDef methods[] = {{"__length_hint__", lengthHint, METH_NOARGS, nullptr}, {}};
        PyType_Slot slots[] = {{Py_tp_iter, reinterpret_cast<void*>(&PyObject_SelfIter)},
                               {Py_tp_iternext, reinterpret_cast<void*>(&next)},
                               {Py_tp_dealloc, reinterpret_cast<void*>(&destroy)},
                               {Py_tp_methods, methods},
                               {0, nullptr}};
        PyType_Spec spec{name, sizeof(TypedArrayIterator), 0,
                         Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION | Py_TPFLAGS_IMMUTABLETYPE, slots};
        s_type = reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
        if (!s_type)
            raisePending();
    }

    static PyObject* make(PyObject* array)
    {
        auto* iterator = ArrayInstance<T>::get(array) ? PyObject_New(TypedArrayIterator, s_type) : nullptr;
        if (!iterator)
            return nullptr;
        iterator->array = Py_NewRef(array);
        iterator->position = 0;
        return reinterpret_cast<PyObject*>(iterator);
    }

private:
    static TypedArrayIterator* of(PyObject* self) { return reinterpret_cast<TypedArrayIterator*>(self); }

    static PyObject* next(PyObject* self)
    {
        TypedArrayIterator* iterator = of(self);
        if (!iterator->array)
            return nullptr;
        const core::Array<T>* array = ArrayInstance<T>::get(iterator->array);
        if (array && iterator->position < array->count()) [[likely]]
            return ArrayElement<T>::toPython((*array)[iterator->position++]);
        Py_CLEAR(iterator->array);
        return nullptr;
    }

    static PyObject* lengthHint(PyObject* self, PyObject*)
    {
        const core::Array<T>* array = of(self)->array ? ArrayInstance<T>::get(of(self)->array) : nullptr;
        const std::int64_t left = array ? array->count() - of(self)->position : 0;
        return PyErr_Occurred() ? nullptr : PyLong_FromLongLong(std::max<std::int64_t>(left, 0));
    }

    static void destroy(PyObject* self)
    {
        PyTypeObject* type = Py_TYPE(self);
        Py_XDECREF(of(self)->array);
        PyObject_Free(self);
        Py_DECREF(type);
    }

    static inline PyTypeObject* s_type = nullptr;
};

} // namespace python
