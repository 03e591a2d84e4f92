// Image2d as a type written by hand against the C API, for the access to single pixels.

#include <Python.h>

#include <cstdlib>

namespace {

struct Image
{
    PyObject_HEAD float* pixels;
    int width, height;
};

PyTypeObject g_type = {PyVarObject_HEAD_INIT(nullptr, 0)};

float* pixel(PyObject* self, PyObject* x, PyObject* y)
{
    auto* image = reinterpret_cast<Image*>(self);
    const long column = PyLong_AsLong(x);
    const long row = PyLong_AsLong(y);
    if ((column == -1 || row == -1) && PyErr_Occurred())
        return nullptr;
    if (column < 0 || column >= image->width || row < 0 || row >= image->height) {
        PyErr_Format(PyExc_IndexError, "index (%ld, %ld) out of range", column, row);
        return nullptr;
    }
    return image->pixels + row * image->width + column;
}

float* pixel(PyObject* self, PyObject* key)
{
    if (PyTuple_Check(key) && PyTuple_GET_SIZE(key) == 2)
        return pixel(self, PyTuple_GET_ITEM(key, 0), PyTuple_GET_ITEM(key, 1));
    PyErr_SetString(PyExc_TypeError, "expected a tuple of two ints");
    return nullptr;
}

PyObject* getItem(PyObject* self, PyObject* key)
{
    const float* found = pixel(self, key);
    return found ? PyFloat_FromDouble(*found) : nullptr;
}

int setItem(PyObject* self, PyObject* key, PyObject* value)
{
    const double number = PyFloat_AsDouble(value);
    float* found = number == -1.0 && PyErr_Occurred() ? nullptr : pixel(self, key);
    if (found)
        *found = static_cast<float>(number);
    return found ? 0 : -1;
}

PyObject* getValue(PyObject* self, PyObject* const* arguments, Py_ssize_t count)
{
    if (count != 2)
        return PyErr_Format(PyExc_TypeError, "expected two arguments");
    const float* found = pixel(self, arguments[0], arguments[1]);
    return found ? PyFloat_FromDouble(*found) : nullptr;
}

PyObject* setValue(PyObject* self, PyObject* const* arguments, Py_ssize_t count)
{
    if (count != 3)
        return PyErr_Format(PyExc_TypeError, "expected three arguments");
    const double number = PyFloat_AsDouble(arguments[2]);
    float* found = number == -1.0 && PyErr_Occurred() ? nullptr : pixel(self, arguments[0], arguments[1]);
    if (!found)
        return nullptr;
    *found = static_cast<float>(number);
    Py_RETURN_NONE;
}

PyObject* width(PyObject* self, void*)
{
    return PyLong_FromLong(reinterpret_cast<Image*>(self)->width);
}

PyObject* construct(PyTypeObject* type, PyObject* arguments, PyObject*)
{
    int columns = 0;
    int rows = 0;
    if (!PyArg_ParseTuple(arguments, "ii", &columns, &rows))
        return nullptr;
    auto* image = reinterpret_cast<Image*>(type->tp_alloc(type, 0));
    if (image) {
        image->width = columns;
        image->height = rows;
        image->pixels = static_cast<float*>(std::calloc(static_cast<std::size_t>(columns * rows), sizeof(float)));
    }
    return reinterpret_cast<PyObject*>(image);
}

void release(PyObject* self)
{
    std::free(reinterpret_cast<Image*>(self)->pixels);
    Py_TYPE(self)->tp_free(self);
}

PyMethodDef g_methods[] = {
    {"getValue", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(getValue)), METH_FASTCALL, nullptr},
    {"setValue", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(setValue)), METH_FASTCALL, nullptr},
    {nullptr, nullptr, 0, nullptr}};
PyGetSetDef g_properties[] = {{"width", width, nullptr, nullptr, nullptr},
                              {nullptr, nullptr, nullptr, nullptr, nullptr}};
PyMappingMethods g_mapping = {nullptr, getItem, setItem};
PyModuleDef g_module = {PyModuleDef_HEAD_INIT, "image_ctype", nullptr, -1, nullptr};

} // namespace

PyMODINIT_FUNC PyInit_image_ctype()
{
    g_type.tp_name = "image_ctype.Image2d";
    g_type.tp_basicsize = sizeof(Image);
    g_type.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE;
    g_type.tp_new = construct;
    g_type.tp_dealloc = release;
    g_type.tp_methods = g_methods;
    g_type.tp_getset = g_properties;
    g_type.tp_as_mapping = &g_mapping;
    PyObject* module = PyModule_Create(&g_module);
    if (!module || PyModule_AddType(module, &g_type) < 0)
        return nullptr;
    return module;
}
