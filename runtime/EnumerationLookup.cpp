#include "runtime/EnumerationLookup.h"

#include "runtime/ClassSlots.h"
#include "runtime/Errors.h"
#include "runtime/Ref.h"

#include <boost/python.hpp>

#include <cstring>
#include <map>

namespace python {

namespace {

/// The binding layer keeps a value's name behind the number, where there is room for two digits of the interpreter's
/// integers. A third one would be the pointer to the name.
constexpr long long g_firstNumberWithoutRoom = 1LL << 60;

/// The binding layer's base of all enumerations; null until there is one.
PyTypeObject* g_base = nullptr;

/// Enumerations whose values are the named ones only, with what is said of other numbers.
std::map<PyTypeObject*, const char*>& closedEnumerations()
{
    static std::map<PyTypeObject*, const char*> closed;
    return closed;
}

bool hasRoom(PyTypeObject* type, PyObject* number)
{
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(number, &overflow);
    if (overflow == 0 && value < g_firstNumberWithoutRoom && value > -g_firstNumberWithoutRoom)
        return true;
    PyErr_Format(PyExc_OverflowError, "%s, the number must lie between -2**60 and 2**60", type->tp_name);
    return false;
}

/// Borrowed from the class; null without an exception when the number has no name.
PyObject* findNamed(PyTypeObject* type, PyObject* number)
{
    const Ref values = Ref::steal(PyObject_GetAttrString(reinterpret_cast<PyObject*>(type), "values"));
    if (!values)
        PyErr_Clear();
    return values && PyDict_Check(values.get()) ? PyDict_GetItemWithError(values.get(), number) : nullptr;
}

PyObject* makeNameless(PyTypeObject* type, PyObject* number)
{
    for (const auto& [closed, refusal] : closedEnumerations())
        if (PyType_IsSubtype(type, closed))
            return PyErr_Format(PyExc_ValueError, "%s, %S %s", type->tp_name, number, refusal);
    const Ref arguments = Ref::steal(PyTuple_Pack(1, number));
    return arguments ? PyLong_Type.tp_new(type, arguments.get(), nullptr) : nullptr;
}

/// What int makes of the arguments, as the named value equal to it or a nameless one.
PyObject* makeValue(PyTypeObject* type, PyObject* arguments, PyObject* keywords)
{
    if (type == g_base)
        return PyErr_Format(PyExc_TypeError, "cannot create '%s' instances", type->tp_name);
    const Ref number = Ref::steal(PyLong_Type.tp_new(&PyLong_Type, arguments, keywords));
    if (!number || !hasRoom(type, number.get()))
        return nullptr;
    Ref named = Ref::borrow(findNamed(type, number.get()));
    return named || PyErr_Occurred() ? named.release() : makeNameless(type, number.get());
}

/// __new__(cls, ...)
PyObject* newValue(PyObject* /*unused*/, PyObject* arguments, PyObject* keywords)
{
    if (PyTuple_GET_SIZE(arguments) < 1 || !PyType_Check(PyTuple_GET_ITEM(arguments, 0))) {
        PyErr_SetString(PyExc_TypeError, "__new__(), expected a class");
        return nullptr;
    }
    auto* type = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(arguments, 0));
    if (!PyType_IsSubtype(type, g_base)) {
        PyErr_SetString(PyExc_TypeError, "__new__(), expected an enumeration");
        return nullptr;
    }
    const Ref rest = Ref::steal(PyTuple_GetSlice(arguments, 1, PyTuple_GET_SIZE(arguments)));
    return rest ? makeValue(type, rest.get(), keywords) : nullptr;
}

PyMethodDef g_newValue{"__new__", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(newValue)),
                       METH_VARARGS | METH_KEYWORDS, nullptr};

/// The binding layer's own, without the C++ exception that leaves it when a class of the script has no __module__.
PyObject* representation(PyObject* value)
{
    PyObject* text = nullptr;
    return boost::python::handle_exception([&] { text = g_base->tp_repr(value); }) ? nullptr : text;
}

bool isEnumeration(PyObject* object)
{
    const PyTypeObject* base = PyType_Check(object) ? reinterpret_cast<PyTypeObject*>(object)->tp_base : nullptr;
    return base && std::strcmp(base->tp_name, "Boost.Python.enum") == 0;
}

} // namespace

void nameCalledEnumerations(PyObject* module)
{
    const boost::python::object function = owned(PyCFunction_New(&g_newValue, nullptr));
    const boost::python::object method = owned(PyStaticMethod_New(function.ptr()));
    PyObject *name, *object;
    Py_ssize_t position = 0;
    while (PyDict_Next(PyModule_GetDict(module), &position, &name, &object)) {
        if (!isEnumeration(object))
            continue;
        auto* type = reinterpret_cast<PyTypeObject*>(object);
        // With a way of its own to make values, the base closes the one around it: int.__new__(Enumeration, number).
        g_base = type->tp_base;
        g_base->tp_new = makeValue;
        installSlot(type, "__repr__", reinterpret_cast<void*>(representation));
        if (PyObject_SetAttrString(object, "__new__", method.ptr()) < 0)
            raisePending();
    }
}

void closeEnumeration(const boost::python::object& enumeration, const char* refusal)
{
    closedEnumerations()[reinterpret_cast<PyTypeObject*>(enumeration.ptr())] = refusal;
}

} // namespace python
