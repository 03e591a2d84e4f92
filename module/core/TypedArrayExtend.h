#pragma once

#include "module/core/ArrayInstance.h"
#include "module/core/NumberBuffer.h"
#include "runtime/Errors.h"

#include <algorithm>
#include <climits>

namespace python {

/// Appends whole sequences to a typed array. Three ways, the fastest that fits: memory of numbers at copying speed,
/// lists and tuples of plain numbers without a call per item, anything else item by item.
///
/// Whatever happens on the way (an item that does not convert, a length that lies, code of the items that changes the
/// array or the sequence), a failed call leaves the array as it was.
template <typename T>
class TypedArrayExtend
{
    using Array = core::Array<T>;
    using Element = ArrayElement<T>;

    enum class Outcome
    {
        Done,
        NotThisWay,
        Raised,
    };

public:
    /// False with an exception set.
    static bool run(Array& array, PyObject* sequence)
    {
        if (!PySequence_Check(sequence)) {
            PyErr_Format(PyExc_TypeError, "%sArray.extend(), expected iterable but got '%s' instead", Element::word,
                         typeName(sequence));
            return false;
        }
        if (!requireResizable(array))
            return false;
        if (ArrayInstance<T>::check(sequence)) {
            const Array* other = ArrayInstance<T>::get(sequence);
            return other && room(array, other->count()) && append(array, *other);
        }
        for (const auto way : {fromNumbers, fromPlainItems})
            if (const Outcome outcome = way(array, sequence); outcome != Outcome::NotThisWay)
                return outcome == Outcome::Done;
        return fromItems(array, sequence);
    }

private:
    static bool raiseMemory()
    {
        PyErr_Format(PyExc_MemoryError, "%sArray.extend(), unable to allocate memory for extended array",
                     Element::word);
        return false;
    }

    /// Grows the storage, not the count.
    static bool room(Array& array, std::int64_t additional)
    {
        if (additional > std::numeric_limits<std::int64_t>::max() - array.count() ||
            !fitsMemory<T>(array.count() + additional) || !array.reserve(array.count() + additional))
            return array.isExported() ? requireResizable(array) : raiseMemory();
        return true;
    }

    static bool append(Array& array, const Array& added)
    {
        if (!array.appendRange(added.data(), added.count()))
            return array.isExported() ? requireResizable(array) : raiseMemory();
        return true;
    }

    static Outcome fromNumbers(Array& array, PyObject* sequence)
    {
        if (!PyObject_CheckBuffer(sequence))
            return Outcome::NotThisWay;
        const NumberBuffer numbers(sequence);
        // Some items have no description in the protocol (dates of numpy): they are read one by one.
        if (!numbers.isOpen())
            PyErr_Clear();
        constexpr bool IsInteger = std::is_integral_v<T>;
        constexpr bool IsVector = Element::width > 1;
        // Floats for integers and single numbers for vectors are refused by the item that is not one.
        if (!numbers.isNumbers() || (IsInteger && numbers.isFloating()) || numbers.dimensions() == 0 ||
            (IsVector && numbers.dimensions() == 1))
            return Outcome::NotThisWay;
        if (numbers.dimensions() != (IsVector ? 2 : 1) || (IsVector && numbers.extent(1) != Element::width)) {
            PyErr_Format(PyExc_ValueError, "%sArray.extend(), expected a buffer of shape %s but got %d dimensions",
                         Element::word, IsVector ? "(n, 3)" : "(n,)", numbers.dimensions());
            return Outcome::Raised;
        }
        // The view may be one of this very array, which now counts as exported.
        const std::int64_t count = array.count();
        if (!requireResizable(array) || !room(array, numbers.extent(0)))
            return Outcome::Raised;
        T* target = array.appendUninitialized(numbers.extent(0));
        if (!target) {
            raiseMemory();
            return Outcome::Raised;
        }
        bool isRead = false;
        if constexpr (IsVector)
            isRead = numbers.read(reinterpret_cast<double*>(target));
        else
            isRead = numbers.read(target);
        if (!isRead) {
            static_cast<void>(array.truncate(count));
            element::refuseWideInteger();
        }
        return isRead ? Outcome::Done : Outcome::Raised;
    }

    /// No Python code runs here, so list and array stay as they are during the loop.
    static Outcome fromPlainItems(Array& array, PyObject* sequence)
    {
        if (!PyList_CheckExact(sequence) && !PyTuple_CheckExact(sequence))
            return Outcome::NotThisWay;
        const Py_ssize_t added = PySequence_Fast_GET_SIZE(sequence);
        PyObject** items = PySequence_Fast_ITEMS(sequence);
        const std::int64_t count = array.count();
        if (!room(array, added))
            return Outcome::Raised;
        T* target = array.appendUninitialized(added);
        for (Py_ssize_t i = 0; target && i < added; ++i)
            if (!Element::fromPythonAtOnce(items[i], target[i])) {
                static_cast<void>(array.truncate(count));
                return Outcome::NotThisWay;
            }
        if (!target)
            raiseMemory();
        return target ? Outcome::Done : Outcome::Raised;
    }

    /// Items are gathered apart: their own code may change the array, or make a view of it.
    static bool fromItems(Array& array, PyObject* sequence)
    {
        const Py_ssize_t count = PySequence_Size(sequence);
        if (count < 0 || !room(array, count))
            return false;
        Array gathered;
        for (Py_ssize_t i = 0; i < count; ++i) {
            PyObject* item = PySequence_GetItem(sequence, i);
            if (!item)
                return false;
            T value{};
            const Conversion conversion =
                Element::fromPythonAtOnce(item, value) ? Conversion::Done : Element::fromPython(item, value);
            if (conversion == Conversion::WrongType)
                PyErr_Format(PyExc_TypeError, "%sArray.extend(), expected type '%s' at index %d but got '%s' instead",
                             Element::word, Element::typeName, saturated(i), typeName(item));
            Py_DECREF(item);
            if (conversion != Conversion::Done)
                return false;
            if (!gathered.append(value))
                return raiseMemory();
        }
        return append(array, gathered);
    }
};

} // namespace python
