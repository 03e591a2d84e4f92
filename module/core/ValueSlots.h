#pragma once

#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/NumberArguments.h"
#include "runtime/ValueInstance.h"

#include <functional>
#include <type_traits>

/// What the C functions of the geometry values share: operands, arguments, results, properties and constructors. The
/// interpreter calls them, so they report with its error indicator and let no C++ exception out.
namespace python::slots {

/// The value behind an operand of that class, null for anything else.
template <typename T>
T* operand(PyObject* object)
{
    return ValueInstance<T>::check(object) ? ValueInstance<T>::get(object) : nullptr;
}

/// The value behind `self`, which the interpreter has checked; null with TypeError pending when it has none.
template <typename T>
T* self(PyObject* object)
{
    T* value = ValueInstance<T>::get(object);
    if (!value) [[unlikely]]
        PyErr_Format(PyExc_TypeError, "%s, __init__() of the base class was not called", typeName(object));
    return value;
}

template <typename T>
const char* className()
{
    if constexpr (std::is_same_v<T, double>)
        return "float";
    else
        return ValueInstance<T>::type()->tp_name;
}

inline PyObject* toPython(double value)
{
    return PyFloat_FromDouble(value);
}
inline PyObject* toPython(bool value)
{
    return PyBool_FromLong(value);
}
template <typename T>
PyObject* toPython(const T& value)
{
    return ValueInstance<T>::make(value);
}

/// An argument of `Class.member`; false with TypeError pending.
template <typename Class, typename T>
bool fromPython(PyObject* argument, T& value, const char* member)
{
    if constexpr (std::is_same_v<T, double>) {
        if (argument && isNumber(argument))
            return toDouble(argument, value);
    } else if (const T* given = argument ? operand<T>(argument) : nullptr) {
        value = *given;
        return true;
    }
    if (argument)
        PyErr_Format(PyExc_TypeError, "%s.%s, expected '%s' but got '%s'", className<Class>(), member, className<T>(),
                     typeName(argument));
    else
        PyErr_Format(PyExc_TypeError, "%s.%s cannot be deleted", className<Class>(), member);
    return false;
}

template <typename T, auto Getter>
PyObject* get(PyObject* object, void* /*name*/)
{
    const T* value = self<T>(object);
    return value ? toPython(std::invoke(Getter, *value)) : nullptr;
}

/// A component, stored without more ado.
template <typename T, auto Member>
int setMember(PyObject* object, PyObject* argument, void* name)
{
    T* value = self<T>(object);
    double number = 0.0;
    if (!value || !fromPython<T>(argument, number, static_cast<const char*>(name)))
        return -1;
    value->*Member = number;
    return 0;
}

/// What a member function of one `Argument` changes.
template <typename T, typename Argument, auto Setter>
int set(PyObject* object, PyObject* argument, void* name)
{
    T* value = self<T>(object);
    Argument given{};
    if (!value || !fromPython<T>(argument, given, static_cast<const char*>(name)))
        return -1;
    std::invoke(Setter, *value, given);
    return 0;
}

inline PyGetSetDef property(const char* name, getter get_, setter set_, const char* doc)
{
    return {name, get_, set_, doc, const_cast<char*>(name)};
}
template <typename T, auto Member>
PyGetSetDef component(const char* name, const char* doc)
{
    return property(name, get<T, Member>, setMember<T, Member>, doc);
}
template <typename T, auto Getter>
PyGetSetDef readOnly(const char* name, const char* doc)
{
    return property(name, get<T, Getter>, nullptr, doc);
}
template <typename T, typename Argument, auto Getter, auto Setter>
PyGetSetDef readWrite(const char* name, const char* doc)
{
    return property(name, get<T, Getter>, set<T, Argument, Setter>, doc);
}

/// A method without arguments that has a result and changes nothing.
template <typename T, auto Function>
PyObject* query(PyObject* object, PyObject* /*none*/)
{
    return get<T, Function>(object, nullptr);
}

/// The text that `Function` makes of the value.
template <typename T, auto Function>
PyObject* text(PyObject* object)
{
    PyObject* result = nullptr;
    const auto make = [&] {
        if (const T* value = self<T>(object)) {
            const std::string written = std::invoke(Function, *value);
            result = PyUnicode_FromStringAndSize(written.data(), static_cast<Py_ssize_t>(written.size()));
        }
    };
    return boost::python::handle_exception(make) ? nullptr : result;
}

/// TypeError for the right operand of an in-place operation.
template <typename T>
[[gnu::noinline, gnu::cold]] PyObject* refuseOperand(const char* operation, const char* wanted, PyObject* given)
{
    return PyErr_Format(PyExc_TypeError, "%s.%s(), expected '%s' but got '%s'", className<T>(), operation, wanted,
                        typeName(given));
}

template <typename T>
PyObject* compare(PyObject* left, PyObject* right, int operation)
{
    const T* a = operand<T>(left);
    const T* b = a ? operand<T>(right) : nullptr;
    if (!b || (operation != Py_EQ && operation != Py_NE))
        Py_RETURN_NOTIMPLEMENTED;
    return PyBool_FromLong((*a == *b) == (operation == Py_EQ));
}

/// Exact comparison with == and !=. Values are changeable and keep their hash by identity.
template <typename T>
void installComparison(PyTypeObject* type)
{
    installSlot(type, "__eq__", reinterpret_cast<void*>(compare<T>), "__eq__(other: object) -> bool");
    installSlot(type, "__ne__", reinterpret_cast<void*>(compare<T>), "__ne__(other: object) -> bool");
}

inline PyObject* same(PyObject* object)
{
    Py_INCREF(object);
    return object;
}

/// An operator between two values of one class.
template <typename T, typename Operation>
PyObject* combine(PyObject* left, PyObject* right)
{
    const T* a = operand<T>(left);
    const T* b = a ? operand<T>(right) : nullptr;
    if (!b)
        Py_RETURN_NOTIMPLEMENTED;
    return toPython(Operation()(*a, *b));
}

/// The in-place form, which `change(value, other)` carries out; `name` is the special method's.
template <typename T, auto change>
PyObject* combineInPlace(PyObject* object, PyObject* right, const char* name)
{
    T* value = self<T>(object);
    const T* other = value ? operand<T>(right) : nullptr;
    if (!other)
        return value ? refuseOperand<T>(name, className<T>(), right) : nullptr;
    change(*value, *other);
    return same(object);
}

/// The in-place form with a number, which `read` takes from `right`, reporting what it refuses.
template <typename T, auto change, bool (*read)(PyObject*, double&) = toDouble>
PyObject* scaleInPlace(PyObject* object, PyObject* right, const char* name)
{
    T* value = self<T>(object);
    double number = 0.0;
    if (!value || !isNumber(right))
        return value ? refuseOperand<T>(name, "float", right) : nullptr;
    if (!read(right, number))
        return nullptr;
    change(*value, number);
    return same(object);
}

template <typename T>
PyObject* addInPlace(PyObject* object, PyObject* right)
{
    return combineInPlace<T, [](T& a, const T& b) { a += b; }>(object, right, "__iadd__");
}
template <typename T>
PyObject* subtractInPlace(PyObject* object, PyObject* right)
{
    return combineInPlace<T, [](T& a, const T& b) { a -= b; }>(object, right, "__isub__");
}
template <typename T>
PyObject* multiplyInPlace(PyObject* object, PyObject* right)
{
    return scaleInPlace<T, [](T& a, double factor) { a *= factor; }>(object, right, "__imul__");
}

/// `function(arguments, count, value)` fills `value` from positional arguments, or returns false without an error.
template <typename T, auto Function>
PyObject* construct(PyObject* type, PyObject* const* arguments, std::size_t count, PyObject* keywordNames)
{
    T value{};
    if (reinterpret_cast<PyTypeObject*>(type) == ValueInstance<T>::type() && !keywordNames &&
        Function(arguments, PyVectorcall_NARGS(count), value)) [[likely]]
        return ValueInstance<T>::make(value);
    return constructOrdinarily(type, arguments, count, keywordNames);
}

/// For construct(): a float or an int that is certain to convert.
inline bool quickDouble(PyObject* object, double& value)
{
    if (PyFloat_CheckExact(object)) [[likely]] {
        value = PyFloat_AS_DOUBLE(object);
        return true;
    }
    if (!PyLong_CheckExact(object))
        return false;
    value = PyLong_AsDouble(object);
    if (value == -1.0 && PyErr_Occurred()) {
        PyErr_Clear();
        return false;
    }
    return true;
}

} // namespace python::slots
