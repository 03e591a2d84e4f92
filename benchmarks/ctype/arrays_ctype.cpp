// An array of 32-bit floats as a type written by hand against the C API: nothing between the interpreter and the
// memory.

#include <Python.h>

#include <new>
#include <vector>

namespace {

struct Array
{
    PyObject_HEAD std::vector<float> v;
};

struct Iterator
{
    PyObject_HEAD Array* array;
    std::size_t position;
};

PyTypeObject g_type = {PyVarObject_HEAD_INIT(nullptr, 0)};
PyTypeObject g_iteratorType = {PyVarObject_HEAD_INIT(nullptr, 0)};

std::vector<float>& values(PyObject* object)
{
    return reinterpret_cast<Array*>(object)->v;
}

bool number(PyObject* object, float& value)
{
    const double wide = PyFloat_AsDouble(object);
    value = static_cast<float>(wide);
    return wide != -1.0 || !PyErr_Occurred();
}

bool position(PyObject* self, PyObject* key, std::size_t& index)
{
    const Py_ssize_t value = PyLong_Check(key) ? PyLong_AsSsize_t(key) : -1;
    index = static_cast<std::size_t>(value);
    if (index < values(self).size())
        return true;
    if (!PyErr_Occurred())
        PyErr_SetString(PyExc_IndexError, "index out of range");
    return false;
}

Py_ssize_t length(PyObject* self)
{
    return static_cast<Py_ssize_t>(values(self).size());
}

PyObject* subscript(PyObject* self, PyObject* key)
{
    std::size_t index = 0;
    return position(self, key, index) ? PyFloat_FromDouble(static_cast<double>(values(self)[index])) : nullptr;
}

int assign(PyObject* self, PyObject* key, PyObject* value)
{
    std::size_t index = 0;
    return value && position(self, key, index) && number(value, values(self)[index]) ? 0 : -1;
}

PyObject* append(PyObject* self, PyObject* object)
{
    float value = 0.0F;
    if (!number(object, value))
        return nullptr;
    values(self).push_back(value);
    Py_RETURN_NONE;
}

/// A list of numbers or memory of 32-bit floats.
PyObject* extend(PyObject* self, PyObject* source)
{
    std::vector<float>& v = values(self);
    const std::size_t before = v.size();
    if (PyList_CheckExact(source)) {
        v.resize(before + static_cast<std::size_t>(PyList_GET_SIZE(source)));
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(source); ++i)
            if (!number(PyList_GET_ITEM(source, i), v[before + static_cast<std::size_t>(i)]))
                return nullptr;
        Py_RETURN_NONE;
    }
    Py_buffer view{};
    if (PyObject_GetBuffer(source, &view, PyBUF_CONTIG_RO) < 0)
        return nullptr;
    const auto* first = static_cast<const float*>(view.buf);
    v.insert(v.end(), first, first + view.len / static_cast<Py_ssize_t>(sizeof(float)));
    PyBuffer_Release(&view);
    Py_RETURN_NONE;
}

PyObject* iterate(PyObject* self)
{
    auto* iterator = PyObject_New(Iterator, &g_iteratorType);
    if (iterator) {
        iterator->array = reinterpret_cast<Array*>(Py_NewRef(self));
        iterator->position = 0;
    }
    return reinterpret_cast<PyObject*>(iterator);
}

PyObject* next(PyObject* self)
{
    auto* iterator = reinterpret_cast<Iterator*>(self);
    const std::vector<float>& v = iterator->array->v;
    return iterator->position < v.size() ? PyFloat_FromDouble(static_cast<double>(v[iterator->position++])) : nullptr;
}

void destroyIterator(PyObject* self)
{
    Py_DECREF(reinterpret_cast<Iterator*>(self)->array);
    PyObject_Free(self);
}

PyObject* make(PyTypeObject* type, PyObject* arguments, PyObject*)
{
    Py_ssize_t size = 0;
    if (!PyArg_ParseTuple(arguments, "|n", &size))
        return nullptr;
    auto* result = PyObject_New(Array, type);
    if (result)
        new (&result->v) std::vector<float>(static_cast<std::size_t>(size));
    return reinterpret_cast<PyObject*>(result);
}

void destroy(PyObject* self)
{
    values(self).~vector();
    PyObject_Free(self);
}

PyMethodDef g_methods[] = {{"append", append, METH_O, nullptr}, {"extend", extend, METH_O, nullptr}, {}};
PySequenceMethods g_sequence{};
PyMappingMethods g_mapping{};
PyModuleDef g_module = {
    PyModuleDef_HEAD_INIT, "arrays_ctype", nullptr, -1, nullptr, nullptr, nullptr, nullptr, nullptr};

} // namespace

PyMODINIT_FUNC PyInit_arrays_ctype()
{
    g_sequence.sq_length = length;
    g_mapping.mp_length = length;
    g_mapping.mp_subscript = subscript;
    g_mapping.mp_ass_subscript = assign;
    g_type.tp_name = "arrays_ctype.FloatArray";
    g_type.tp_basicsize = sizeof(Array);
    g_type.tp_flags = Py_TPFLAGS_DEFAULT;
    g_type.tp_new = make;
    g_type.tp_dealloc = destroy;
    g_type.tp_as_sequence = &g_sequence;
    g_type.tp_as_mapping = &g_mapping;
    g_type.tp_iter = iterate;
    g_type.tp_methods = g_methods;
    g_iteratorType.tp_name = "arrays_ctype.Iterator";
    g_iteratorType.tp_basicsize = sizeof(Iterator);
    g_iteratorType.tp_flags = Py_TPFLAGS_DEFAULT;
    g_iteratorType.tp_iter = PyObject_SelfIter;
    g_iteratorType.tp_iternext = next;
    g_iteratorType.tp_dealloc = destroyIterator;
    PyObject* module = PyModule_Create(&g_module);
    if (!module || PyType_Ready(&g_type) < 0 || PyType_Ready(&g_iteratorType) < 0 ||
        PyModule_AddObjectRef(module, "FloatArray", reinterpret_cast<PyObject*>(&g_type)) < 0)
        return nullptr;
    return module;
}
