#include "runtime/EnumerationLookup.h"

#include "runtime/Errors.h"

#include <cstring>

namespace python {

namespace {

/// __new__(cls, ...): what int makes of the arguments, or the named value equal to it.
PyObject* newValue(PyObject* /*unused*/, PyObject* arguments, PyObject* keywords)
{
    if (PyTuple_GET_SIZE(arguments) < 1 || !PyType_Check(PyTuple_GET_ITEM(arguments, 0))) {
        PyErr_SetString(PyExc_TypeError, "__new__(), expected a class");
        return nullptr;
    }
    auto* type = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(arguments, 0));
    if (!PyType_IsSubtype(type, &PyLong_Type)) {
        PyErr_SetString(PyExc_TypeError, "__new__(), expected an enumeration");
        return nullptr;
    }
    PyObject* rest = PyTuple_GetSlice(arguments, 1, PyTuple_GET_SIZE(arguments));
    if (!rest)
        return nullptr;
    PyObject* plain = PyLong_Type.tp_new(type, rest, keywords);
    Py_DECREF(rest);
    if (!plain)
        return nullptr;
    PyObject* values = PyObject_GetAttrString(reinterpret_cast<PyObject*>(type), "values");
    if (!values || !PyDict_Check(values)) {
        Py_XDECREF(values);
        PyErr_Clear();
        return plain;
    }
    PyObject* named = PyDict_GetItemWithError(values, plain);
    Py_XINCREF(named);
    Py_DECREF(values);
    if (!named && !PyErr_Occurred())
        return plain;
    Py_DECREF(plain);
    return named;
}

PyMethodDef g_newValue{"__new__", reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(newValue)),
                       METH_VARARGS | METH_KEYWORDS, nullptr};

bool isEnumeration(PyObject* object)
{
    if (!PyType_Check(object))
        return false;
    const PyTypeObject* base = reinterpret_cast<PyTypeObject*>(object)->tp_base;
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
        if (isEnumeration(object) && PyObject_SetAttrString(object, "__new__", method.ptr()) < 0)
            raisePending();
    }
}

} // namespace python
