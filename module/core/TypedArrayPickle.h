#pragma once

#include "module/core/ArrayInstance.h"
#include "runtime/Errors.h"
#include "runtime/Ref.h"

#include <cstring>

namespace python {

/// Pickling and copying of a typed array. The state is a tuple: "<" and the element's letter in the notation of the
/// struct module, the second and third extents, the elements as bytes, the instance's attributes or None. The class
/// itself is made without calling __init__, so subclasses may have any constructor.
template <typename T>
class TypedArrayPickle
{
    using Array = core::Array<T>;
    using Element = ArrayElement<T>;

public:
    static PyObject* reduce(PyObject* self, PyObject*)
    {
        const Array* array = ArrayInstance<T>::get(self);
        const Ref copyreg = Ref::steal(array ? PyImport_ImportModule("copyreg") : nullptr);
        Ref maker = Ref::steal(copyreg ? PyObject_GetAttrString(copyreg.get(), "__newobj__") : nullptr);
        PyObject* bytes = maker ? PyBytes_FromStringAndSize(reinterpret_cast<const char*>(array->data()),
                                                            static_cast<Py_ssize_t>(array->count()) *
                                                                static_cast<Py_ssize_t>(sizeof(T)))
                                : nullptr;
        if (!bytes)
            return nullptr;
        PyObject* attributes = reinterpret_cast<boost::python::objects::instance<>*>(self)->dict;
        return Py_BuildValue("N(O)(NLLNO)", maker.release(), Py_TYPE(self),
                             PyUnicode_FromFormat("<%s", Element::bufferFormat),
                             static_cast<long long>(array->extentY()), static_cast<long long>(array->extentZ()), bytes,
                             attributes ? attributes : Py_None);
    }

    static PyObject* setState(PyObject* self, PyObject* state)
    {
        const char* format = nullptr;
        long long extentY = 1;
        long long extentZ = 1;
        PyObject* bytes = nullptr;
        PyObject* attributes = nullptr;
        if (!PyTuple_Check(state))
            return PyErr_Format(PyExc_TypeError, "%sArray.__setstate__(), expected 'tuple' but got '%s'", Element::word,
                                typeName(state));
        if (!PyArg_ParseTuple(state, "sLLSO", &format, &extentY, &extentZ, &bytes, &attributes))
            return nullptr;
        const auto size = static_cast<std::size_t>(PyBytes_GET_SIZE(bytes));
        Array fresh;
        T* target = fresh.appendUninitialized(static_cast<std::int64_t>(size / sizeof(T)));
        if (!target)
            return PyErr_NoMemory();
        std::memcpy(static_cast<void*>(target), PyBytes_AS_STRING(bytes), size / sizeof(T) * sizeof(T));
        const bool isOurs = format[0] == '<' && std::strcmp(format + 1, Element::bufferFormat) == 0;
        const bool hasAttributes = attributes != Py_None;
        if (!isOurs || size % sizeof(T) != 0 || !fresh.setExtents(extentY, extentZ) ||
            (hasAttributes && !PyDict_Check(attributes)))
            return PyErr_Format(PyExc_ValueError, "%sArray.__setstate__(), the state is not one of this class",
                                Element::word);

        Array* array = ArrayInstance<T>::getOrCreate(self);
        if (!array || !requireResizable(*array))
            return nullptr;
        if (!array->takeOver(fresh))
            return PyErr_NoMemory();
        if (hasAttributes) {
            const Ref own = Ref::steal(PyObject_GetAttrString(self, "__dict__"));
            if (!own || PyDict_Update(own.get(), attributes) < 0)
                return nullptr;
        }
        Py_RETURN_NONE;
    }
};

} // namespace python
