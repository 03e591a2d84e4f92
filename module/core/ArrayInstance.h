#pragma once

#include "host/core/Array.h"
#include "module/core/ArrayElement.h"
#include "module/core/SharedMemory.h"
#include "runtime/GilLock.h"
#include "runtime/ValueInstance.h"

namespace python {

/// The ways between a core::Array and its Python object. Other families of bindings use this to hand bulk data out
/// (make, then fill the array) and to take it (check, then get).
///
/// The array lives inside its Python object and never changes its address. Needs the interpreter lock. Functions that
/// return null have set an exception.
template <typename T>
class ArrayInstance
{
public:
    using Array = core::Array<T>;

    static bool check(PyObject* object) { return ValueInstance<Array>::check(object); }

    /// The array of an object that passes check(); RuntimeError when a subclass did not call __init__.
    static Array* get(PyObject* object)
    {
        Array* array = ValueInstance<Array>::get(object);
        if (!array) [[unlikely]]
            PyErr_Format(PyExc_RuntimeError, "%sArray, __init__() has not been called", ArrayElement<T>::word);
        return array;
    }

    /// The same, but an object without an array gets an empty one.
    static Array* getOrCreate(PyObject* object)
    {
        using Holder = boost::python::objects::value_holder<Array>;
        using Object = boost::python::objects::instance<Holder>;
        if (Array* array = ValueInstance<Array>::get(object))
            return array;
        try {
            void* memory = Holder::allocate(object, offsetof(Object, storage), sizeof(Holder));
            (new (memory) Holder(object))->install(object);
        } catch (const std::bad_alloc&) {
            PyErr_Format(PyExc_MemoryError, "%sArray, unable to allocate memory for array", ArrayElement<T>::word);
            return nullptr;
        }
        return get(object);
    }

    /// New reference to an object with an empty array, which comes back in `array`.
    static PyObject* make(Array*& array)
    {
        PyObject* object = ValueInstance<Array>::makeDefault();
        array = object ? get(object) : nullptr;
        return object;
    }
};

/// Runs `work`, which reads or writes elements of the two arrays (they may be the same) and touches no Python object.
/// Other Python threads run meanwhile when it takes long; they can not move the buffers.
template <typename T, typename Work>
auto onElements(core::Array<T>& first, core::Array<T>& second, Work work)
{
    constexpr std::int64_t LongCount = 100'000;
    if (first.count() < LongCount)
        return work();
    const core::Pin pinFirst(first.exports());
    const core::Pin pinSecond(second.exports());
    const GilRelease unlocked;
    return work();
}

/// Whether `count` elements fit into the memory that is free.
template <typename T>
bool fitsMemory(std::int64_t count)
{
    return isMemoryAvailableForCopy(byteCount({count, sizeof(T)}));
}

/// False with BufferError set while a view (a numpy array, a memoryview) uses the array's memory.
template <typename T>
bool requireResizable(const core::Array<T>& array)
{
    return requireResizable(array.exports(), ArrayElement<T>::className);
}

} // namespace python
