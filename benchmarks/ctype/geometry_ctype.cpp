// vec3 and mat4 as types written by hand against the C API: nothing between the interpreter and the arithmetic.

#include <Python.h>

#include <array>

namespace {

struct Vec3
{
    PyObject_HEAD std::array<double, 3> v;
};

struct Mat4
{
    PyObject_HEAD std::array<double, 16> m;
};

PyTypeObject g_vecType = {PyVarObject_HEAD_INIT(nullptr, 0)};
PyTypeObject g_matType = {PyVarObject_HEAD_INIT(nullptr, 0)};

bool isVec(PyObject* object)
{
    return PyObject_TypeCheck(object, &g_vecType);
}

std::array<double, 3>& vec(PyObject* object)
{
    return reinterpret_cast<Vec3*>(object)->v;
}

PyObject* makeVec(double x, double y, double z)
{
    auto* result = PyObject_New(Vec3, &g_vecType);
    if (result)
        result->v = {x, y, z};
    return reinterpret_cast<PyObject*>(result);
}

bool number(PyObject* object, double& value)
{
    value = PyFloat_AsDouble(object);
    return value != -1.0 || !PyErr_Occurred();
}

template <std::size_t I>
PyObject* component(PyObject* self, void*)
{
    return PyFloat_FromDouble(vec(self)[I]);
}

template <std::size_t I>
int setComponent(PyObject* self, PyObject* value, void*)
{
    double number_ = 0.0;
    if (!value || !number(value, number_))
        return -1;
    vec(self)[I] = number_;
    return 0;
}

PyObject* add(PyObject* a, PyObject* b)
{
    if (!isVec(a) || !isVec(b))
        Py_RETURN_NOTIMPLEMENTED;
    return makeVec(vec(a)[0] + vec(b)[0], vec(a)[1] + vec(b)[1], vec(a)[2] + vec(b)[2]);
}

PyObject* inPlaceAdd(PyObject* a, PyObject* b)
{
    if (!isVec(b))
        Py_RETURN_NOTIMPLEMENTED;
    for (std::size_t i = 0; i < 3; ++i)
        vec(a)[i] += vec(b)[i];
    Py_INCREF(a);
    return a;
}

PyObject* multiply(PyObject* a, PyObject* b)
{
    if (!isVec(a))
        Py_RETURN_NOTIMPLEMENTED;
    if (PyFloat_CheckExact(b)) {
        const double factor = PyFloat_AS_DOUBLE(b);
        return makeVec(vec(a)[0] * factor, vec(a)[1] * factor, vec(a)[2] * factor);
    }
    if (!isVec(b))
        Py_RETURN_NOTIMPLEMENTED;
    return PyFloat_FromDouble(vec(a)[0] * vec(b)[0] + vec(a)[1] * vec(b)[1] + vec(a)[2] * vec(b)[2]);
}

PyObject* multiplyMatrix(PyObject* a, PyObject* b)
{
    if (!PyObject_TypeCheck(a, &g_matType) || !isVec(b))
        Py_RETURN_NOTIMPLEMENTED;
    const auto& m = reinterpret_cast<Mat4*>(a)->m;
    const auto& v = vec(b);
    const double w = m[12] * v[0] + m[13] * v[1] + m[14] * v[2] + m[15];
    return makeVec((m[0] * v[0] + m[1] * v[1] + m[2] * v[2] + m[3]) / w,
                   (m[4] * v[0] + m[5] * v[1] + m[6] * v[2] + m[7]) / w,
                   (m[8] * v[0] + m[9] * v[1] + m[10] * v[2] + m[11]) / w);
}

PyObject* item(PyObject* self, PyObject* key)
{
    const Py_ssize_t index = PyNumber_AsSsize_t(key, PyExc_IndexError);
    if (index == -1 && PyErr_Occurred())
        return nullptr;
    if (index < 0 || index >= 3)
        return PyErr_Format(PyExc_IndexError, "invalid index %zd", index);
    return PyFloat_FromDouble(vec(self)[static_cast<std::size_t>(index)]);
}

PyObject* constructVec(PyObject*, PyObject* const* arguments, size_t count, PyObject*)
{
    std::array<double, 3> v{};
    for (Py_ssize_t i = 0; i < PyVectorcall_NARGS(count) && i < 3; ++i)
        if (!number(arguments[i], v[static_cast<std::size_t>(i)]))
            return nullptr;
    return makeVec(v[0], v[1], v[2]);
}

PyObject* constructMat(PyObject*, PyObject* const* arguments, size_t count, PyObject*)
{
    double value = 0.0;
    if (PyVectorcall_NARGS(count) > 0 && !number(arguments[0], value))
        return nullptr;
    auto* result = PyObject_New(Mat4, &g_matType);
    if (result) {
        result->m.fill(value);
        for (std::size_t i = 0; i < 4; ++i)
            result->m[5 * i] += 1.0;
    }
    return reinterpret_cast<PyObject*>(result);
}

PyGetSetDef g_components[] = {{"x", component<0>, setComponent<0>, nullptr, nullptr},
                              {"y", component<1>, setComponent<1>, nullptr, nullptr},
                              {"z", component<2>, setComponent<2>, nullptr, nullptr},
                              {nullptr, nullptr, nullptr, nullptr, nullptr}};
PyNumberMethods g_vecNumber;
PyNumberMethods g_matNumber;
PyMappingMethods g_vecMapping;
PyModuleDef g_module = {PyModuleDef_HEAD_INIT, "geometry_ctype", nullptr, -1, nullptr};

} // namespace

PyMODINIT_FUNC PyInit_geometry_ctype()
{
    g_vecNumber.nb_add = add;
    g_vecNumber.nb_inplace_add = inPlaceAdd;
    g_vecNumber.nb_multiply = multiply;
    g_matNumber.nb_multiply = multiplyMatrix;
    g_vecMapping.mp_subscript = item;
    g_vecType.tp_name = "geometry_ctype.vec3";
    g_vecType.tp_basicsize = sizeof(Vec3);
    g_vecType.tp_flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE;
    g_vecType.tp_getset = g_components;
    g_vecType.tp_as_number = &g_vecNumber;
    g_vecType.tp_as_mapping = &g_vecMapping;
    g_vecType.tp_vectorcall = constructVec;
    g_matType.tp_name = "geometry_ctype.mat4";
    g_matType.tp_basicsize = sizeof(Mat4);
    g_matType.tp_flags = Py_TPFLAGS_DEFAULT;
    g_matType.tp_as_number = &g_matNumber;
    g_matType.tp_vectorcall = constructMat;
    PyObject* module = PyModule_Create(&g_module);
    if (!module || PyModule_AddType(module, &g_vecType) < 0 || PyModule_AddType(module, &g_matType) < 0)
        return nullptr;
    return module;
}
