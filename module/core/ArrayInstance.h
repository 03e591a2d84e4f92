#pragma once

#include "host/core/Array.h"
#include "host/services/HVMemory.h"
#include "module/core/ArrayElement.h"
#include "runtime/GilLock.h"
#include "runtime/ValueInstance.h"

#include <limits>

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

/// Keeps an array's buffer in its place.
template <typename T>
class ArrayPin
{
public:
    explicit ArrayPin(core::Array<T>& array) : m_array(array) { m_array.addExport(); }
    ~ArrayPin() { m_array.releaseExport(); }
    ArrayPin(const ArrayPin&) = delete;
    ArrayPin& operator=(const ArrayPin&) = delete;

private:
    core::Array<T>& m_array;
};

/// Runs `work`, which reads or writes elements of the two arrays (they may be the same) and touches no Python object.
/// Other Python threads run meanwhile when it takes long; they can not move the buffers.
template <typename T, typename Work>
auto onElements(core::Array<T>& first, core::Array<T>& second, Work work)
{
    constexpr std::int64_t LongCount = 100'000;
    if (first.count() < LongCount)
        return work();
    const ArrayPin pinFirst(first);
    const ArrayPin pinSecond(second);
    const GilRelease unlocked;
    return work();
}

/// Whether `count` elements fit into the memory that is free. The system gives out addresses without memory behind them
/// and ends the program that uses them, so big requests are tested first.
template <typename T>
bool fitsMemory(std::int64_t count)
{
    constexpr std::int64_t Untested = std::int64_t(64) << 20;
    constexpr auto Size = static_cast<std::int64_t>(sizeof(T));
    if (count <= Untested / Size)
        return true;
    return count <= std::numeric_limits<std::int64_t>::max() / Size && count * Size <= hv::availableMemory();
}

/// False with BufferError set while a view (a numpy array, a memoryview) uses the array's memory.
template <typename T>
bool requireResizable(const core::Array<T>& array)
{
    if (!array.isExported()) [[likely]]
        return true;
    PyErr_Format(PyExc_BufferError, "%sArray, the size can not change while a view uses the memory of the array",
                 ArrayElement<T>::word);
    return false;
}

} // namespace python
