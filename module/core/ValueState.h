#pragma once

#include "module/core/ValueSlots.h"

#include <span>
#include <string>

/// Copying, pickling and the repr of values that are nothing but doubles. They share one state: a tuple of the numbers
/// in storage order, then the attributes that a script or a subclass has given the object (a dict or None).
namespace python::slots {

PyObject* reduceNumbers(PyObject* object, std::span<const double> numbers);
/// Fills `numbers` and gives the object its attributes; false with TypeError or ValueError pending.
bool restoreNumbers(PyObject* object, PyObject* state, std::span<double> numbers);
/// "name(1, 2, 3)", or with a group name "name(group(1, 2), group(3, 4))".
std::string writtenNumbers(const char* name, std::span<const double> numbers, const char* group, std::size_t groupSize);

/// A docstring that lasts as long as the process: `pattern` with "@" replaced by `name` and "#" by `other`.
const char* docstring(const char* pattern, const char* name, const char* other = "");

template <typename T>
std::span<double> numbersOf(T& value)
{
    static_assert(std::is_trivially_copyable_v<T> && std::is_standard_layout_v<T> && sizeof(T) % sizeof(double) == 0);
    return {reinterpret_cast<double*>(&value), sizeof(T) / sizeof(double)};
}

template <typename T>
PyObject* reduce(PyObject* object, PyObject* /*none*/)
{
    T* value = self<T>(object);
    return value ? reduceNumbers(object, numbersOf(*value)) : nullptr;
}

template <typename T>
PyObject* setState(PyObject* object, PyObject* state)
{
    T value{};
    if (!restoreNumbers(object, state, numbersOf(value)))
        return nullptr;
    if (boost::python::handle_exception([&] { ValueInstance<T>::put(object, value); }))
        return nullptr;
    Py_RETURN_NONE;
}

template <typename T, typename Group>
PyObject* repr(PyObject* object)
{
    PyObject* result = nullptr;
    const auto write = [&] {
        if (T* value = self<T>(object)) {
            const bool grouped = !std::is_same_v<T, Group>;
            const std::string written = writtenNumbers(Py_TYPE(object)->tp_name, numbersOf(*value),
                                                       grouped ? className<Group>() : nullptr, sizeof(Group) / 8);
            result = PyUnicode_FromStringAndSize(written.data(), static_cast<Py_ssize_t>(written.size()));
        }
    };
    return boost::python::handle_exception(write) ? nullptr : result;
}

/// str, repr, copying and pickling of the class of T. `Group` is the class of its rows or corners, T itself when it
/// has none.
template <typename T, typename Group>
void installTextAndState(PyTypeObject* type)
{
    installSlot(type, "__str__", reinterpret_cast<void*>(text<T, &T::toText>), "__str__() -> str");
    installSlot(type, "__repr__", reinterpret_cast<void*>(repr<T, Group>), "__repr__() -> str");
    static PyMethodDef methods[] = {
        {"__reduce__", reduce<T>, METH_NOARGS, "__reduce__() -> tuple\n\nFor copying and pickling."},
        {"__setstate__", setState<T>, METH_O,
         "__setstate__(state: tuple) -> None\n\nFor copying and pickling.\nRaises TypeError or ValueError when the "
         "state is not one that __reduce__() gave."}};
    for (PyMethodDef& method : methods)
        installMethod(type, method);
}

} // namespace python::slots
