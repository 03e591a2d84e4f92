#pragma once

#include "module/core/TypedArrayBuffer.h"
#include "module/core/TypedArrayExtend.h"
#include "module/core/TypedArrayIterator.h"
#include "module/core/TypedArrayPickle.h"
#include "module/core/TypedArraySearch.h"
#include "module/core/TypedArraySlice.h"
#include "runtime/ClassSlots.h"

#include <climits>

namespace python {

/// The members of the typed arrays, one set for all four; TypedArrayBinding.h registers and documents them. Creation
/// from other bindings is in ArrayInstance.h; the buffer protocol, extend, iteration, slices and pickling have units of
/// their own.
///
/// Every function is a C function of the Python class: it returns null, -1 or false with an exception set and throws
/// nothing. Conversions may run Python code that changes the very array, so sizes are tested after them.
template <typename T>
class TypedArray
{
    using Array = core::Array<T>;
    using Element = ArrayElement<T>;
    using Instance = ArrayInstance<T>;

public:
    static int init(PyObject* self, PyObject* arguments, PyObject* keywords)
    {
        static const char* names[] = {"size", nullptr};
        PyObject* sizeObject = nullptr;
        if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "|O", const_cast<char**>(names), &sizeObject))
            return -1;
        std::int64_t size = 0;
        if (sizeObject && !readSize(sizeObject, size))
            return -1;
        Array* array = Instance::getOrCreate(self);
        return array && fill(*array, size) ? 0 : -1;
    }

    /// The call of the class itself, without the way through __new__ and __init__.
    static PyObject* construct(PyObject* type, PyObject* const* arguments, std::size_t count, PyObject* keywordNames)
    {
        const Py_ssize_t given = PyVectorcall_NARGS(count);
        if (given > 1 || keywordNames)
            return constructOrdinarily(type, arguments, count, keywordNames);
        std::int64_t size = 0;
        if (given == 1 && !readSize(arguments[0], size))
            return nullptr;
        Array* array = nullptr;
        PyObject* self = Instance::make(array);
        if (!self)
            return PyErr_Format(PyExc_MemoryError, "%sArray, unable to allocate memory for array", Element::word);
        if (size > 0 && !fill(*array, size))
            Py_CLEAR(self);
        return self;
    }

    static Py_ssize_t length(PyObject* self)
    {
        const Array* array = Instance::get(self);
        return array ? static_cast<Py_ssize_t>(array->count()) : -1;
    }

    static PyObject* size(PyObject* self, PyObject*)
    {
        const Py_ssize_t count = length(self);
        return count < 0 ? nullptr : PyLong_FromSsize_t(count);
    }

    static PyObject* text(PyObject* self)
    {
        const Array* array = Instance::get(self);
        if (!array)
            return nullptr;
        const QString form =
            QStringLiteral("[ %1Array, size = %2 ]").arg(QLatin1String(Element::word)).arg(array->count());
        return PyUnicode_FromString(form.toUtf8().constData());
    }

    static PyObject* item(PyObject* self, Py_ssize_t position)
    {
        const Array* array = Instance::get(self);
        if (!array)
            return nullptr;
        if (!isValidIndex(position, array->count()))
            return raiseOutOfRange(position, array->count());
        return Element::toPython((*array)[position]);
    }

    static PyObject* subscript(PyObject* self, PyObject* key)
    {
        Array* array = Instance::get(self);
        if (!array)
            return nullptr;
        if (PyLong_Check(key)) [[likely]] {
            const std::int64_t position = indexValue(key);
            if (isValidIndex(position, array->count())) [[likely]]
                return Element::toPython((*array)[position]);
            // The first number is not the index but the low bits of the index object's address; scripts that compare
            // texts know it so.
            raiseOutOfBounds(static_cast<int>(reinterpret_cast<std::intptr_t>(key)), array->count());
            return nullptr;
        }
        if (PySlice_Check(key))
            return sliceList(*array, key);
        // The first character is a conversion ("%c"), which has to be given the letter it replaces.
        return PyErr_Format(PyExc_TypeError, "%core::Array, expected 'int' but got '%s'", 'c', typeName(key));
    }

    static int assign(PyObject* self, PyObject* key, PyObject* value)
    {
        Array* array = Instance::get(self);
        if (!array)
            return -1;
        if (!value) {
            PyErr_Format(PyExc_TypeError, "'%sArray' object doesn't support item deletion", Element::word);
            return -1;
        }
        if (!PyLong_Check(key)) {
            PyErr_Format(PyExc_TypeError, "%sArray, expected 'int' but got '%s'", Element::word, typeName(key));
            return -1;
        }
        const std::int64_t position = indexValue(key);
        if (!isValidIndex(position, array->count()))
            return raiseOutOfBounds(saturated(position), array->count());
        T converted{};
        if (!Element::fromPythonAtOnce(value, converted)) {
            const Conversion conversion = Element::fromPython(value, converted);
            if (conversion == Conversion::WrongType)
                PyErr_Format(PyExc_TypeError, "%sArray, expected type '%s' when assigning value, but got '%s'",
                             Element::word, Element::typeName, typeName(value));
            if (conversion != Conversion::Done)
                return -1;
            if (!isValidIndex(position, array->count()))
                return raiseOutOfBounds(saturated(position), array->count());
        }
        (*array)[position] = converted;
        return 0;
    }

    static PyObject* resize(PyObject* self, PyObject* sizeObject)
    {
        std::int64_t size = 0;
        if (!readSize(sizeObject, size))
            return nullptr;
        Array* array = Instance::get(self);
        if (!array || !requireResizable(*array))
            return nullptr;
        if (!fitsMemory<T>(size) || !array->resize(size))
            return PyErr_Format(PyExc_MemoryError, "unable to resize array to size %ld", static_cast<long>(size));
        Py_RETURN_NONE;
    }

    static PyObject* reverse(PyObject* self, PyObject*)
    {
        Array* array = Instance::get(self);
        if (!array)
            return nullptr;
        onElements(*array, *array, [array] { array->reverse(); });
        Py_RETURN_NONE;
    }

    static PyObject* append(PyObject* self, PyObject* value)
    {
        T converted{};
        if (!convertArgument<T>(value, "append", converted))
            return nullptr;
        Array* array = Instance::get(self);
        if (!array)
            return nullptr;
        if (array->append(converted)) [[likely]]
            Py_RETURN_NONE;
        if (requireResizable(*array))
            PyErr_Format(PyExc_MemoryError, "%sArray.append(), unable to allocate memory for the element",
                         Element::word);
        return nullptr;
    }

    static PyObject* extend(PyObject* self, PyObject* sequence)
    {
        Array* array = Instance::get(self);
        if (!array || !TypedArrayExtend<T>::run(*array, sequence))
            return nullptr;
        Py_RETURN_NONE;
    }

    static PyObject* clear(PyObject* self, PyObject*)
    {
        Array* array = Instance::get(self);
        if (!array || !requireResizable(*array) || !array->clear())
            return nullptr;
        Py_RETURN_NONE;
    }

    static PyObject* sort(PyObject*, PyObject*)
    {
        PyErr_SetString(PyExc_NotImplementedError, "");
        return nullptr;
    }

private:
    /// `size` zeros instead of what the array held.
    static bool fill(Array& array, std::int64_t size)
    {
        if (!requireResizable(array))
            return false;
        if (size == 0 ? array.clear() : fitsMemory<T>(size) && array.resize(size))
            return true;
        PyErr_Format(PyExc_MemoryError, "%sArray, unable to allocate memory for array of size %ld", Element::word,
                     static_cast<long>(size));
        return false;
    }

    /// A size beyond 64 bits becomes the greatest one, which no memory can hold.
    static bool readSize(PyObject* object, std::int64_t& size)
    {
        if (!PyIndex_Check(object)) {
            PyErr_Format(PyExc_TypeError, "%sArray, expected 'int' but got '%s'", Element::word, typeName(object));
            return false;
        }
        size = PyNumber_AsSsize_t(object, nullptr);
        if (size == -1 && PyErr_Occurred())
            return false;
        if (size < 0)
            PyErr_Format(PyExc_ValueError, "%sArray, invalid size. Size can not be negative.", Element::word);
        return size >= 0;
    }

    /// An index beyond 64 bits is outside like any other.
    static std::int64_t indexValue(PyObject* key)
    {
        int overflow = 0;
        const long long value = PyLong_AsLongLongAndOverflow(key, &overflow);
        return overflow > 0 ? LLONG_MAX : overflow < 0 ? LLONG_MIN : value;
    }

    static int raiseOutOfBounds(int first, std::int64_t count)
    {
        PyErr_Format(PyExc_IndexError, "%sArray, index %d out of bounds (valid range: %d -> %d)", Element::word, first,
                     0, saturated(count - 1));
        return -1;
    }

    static PyObject* sliceList(Array& array, PyObject* slice)
    {
        SlicePositions positions{};
        const std::int64_t count = array.count();
        if (!slicePositions(slice, Element::word, count, positions))
            return nullptr;
        if (count != array.count())
            return PyErr_Format(PyExc_RuntimeError, "%sArray, the bounds of a slice changed the size", Element::word);
        // Making the list may start a garbage collection, which runs any code.
        const core::Pin pin(array.exports());
        PyObject* list = PyList_New(static_cast<Py_ssize_t>(positions.number));
        for (std::int64_t i = 0; list && i < positions.number; ++i) {
            PyObject* element = Element::toPython(array[positions.start + i * positions.step]);
            if (element)
                PyList_SET_ITEM(list, i, element);
            else
                Py_CLEAR(list);
        }
        return list;
    }
};

} // namespace python
