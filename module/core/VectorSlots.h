#pragma once

#include "host/core/Transform.h"
#include "module/core/ElementSlots.h"

namespace python::slots {

/// The matrices that vectors are multiplied with. A shorter vector is a point with the extra coordinate 1, divided by
/// its last coordinate afterwards; a vec4 is multiplied as it is.
template <typename V>
using MatrixOf = std::conditional_t<std::is_same_v<V, core::vec2>, core::mat3, core::mat4>;

template <typename V>
V transformed(const MatrixOf<V>& m, const V& v)
{
    if constexpr (V::Size == MatrixOf<V>::Size)
        return m * v;
    else
        return core::transform(m, v);
}

/// The operators of vec2, vec3 and vec4. The class of MatrixOf<V> may be registered after this one.
template <typename V>
class VectorSlots
{
    using Value = ValueInstance<V>;
    using M = MatrixOf<V>;

public:
    static void install(PyTypeObject* type)
    {
        const auto install = [type](const char* name, auto* function, const char* doc) {
            installSlot(type, name, reinterpret_cast<void*>(function),
                        docstring(doc, className<V>(), V::Size == 2 ? "mat3" : "mat4"));
        };
        ElementSlots<V>::install(type);
        install("__add__", combine<V, std::plus<>>, "__add__(other: @) -> @\n\nComponent-wise sum.");
        install("__sub__", combine<V, std::minus<>>, "__sub__(other: @) -> @\n\nComponent-wise difference.");
        install("__mul__", multiply,
                "__mul__(other: @) -> float\n__mul__(factor: float) -> @\n__mul__(matrix: #) -> @\n\nThe dot product, "
                "the scaled vector, or the transposed matrix applied to the vector.");
        install("__rmul__", multiply, "__rmul__(matrix: #) -> @\n\nThe matrix applied to the vector.");
        install("__truediv__", divide,
                "__truediv__(divisor: float) -> @\n\nComponent-wise division. Raises ZeroDivisionError.");
        install("__neg__", negate, "__neg__() -> @\n\nThe opposite vector.");
        install("__iadd__", addInPlace<V>, "__iadd__(other: @) -> @\n\nAdds in place.");
        install("__isub__", subtractInPlace<V>, "__isub__(other: @) -> @\n\nSubtracts in place.");
        install("__imul__", multiplyInPlace<V>, "__imul__(factor: float) -> @\n\nScales in place.");
        install("__itruediv__", divideInPlace,
                "__itruediv__(divisor: float) -> @\n\nDivides in place. Raises ZeroDivisionError.");
        if constexpr (V::Size < 4)
            install("__xor__", combine<V, Cross>, "__xor__(other: @) -> vec3\n\nThe cross product.");
        installTextAndState<V, V>(type);
        installProperties(type);
        installConstructor(type, construct<V, fill>);
    }

private:
    struct Cross
    {
        core::vec3 operator()(const V& a, const V& b) const { return cross(a, b); }
    };

    static PyObject* normalize(PyObject* object, PyObject* /*none*/)
    {
        V* v = self<V>(object);
        if (!v)
            return nullptr;
        v->normalize();
        return same(object);
    }

    /// For construct(): nothing or all components.
    static bool fill(PyObject* const* arguments, Py_ssize_t count, V& value)
    {
        if (count == 0)
            return true;
        if (count != static_cast<Py_ssize_t>(V::Size))
            return false;
        for (std::size_t i = 0; i < V::Size; ++i)
            if (!quickDouble(arguments[i], value[i]))
                return false;
        return true;
    }

    static void installProperties(PyTypeObject* type)
    {
        static PyGetSetDef properties[] = {
            readOnly<V, &V::length>("length", "float: The Euclidean length."),
            readOnly<V, &V::lengthSquared>("lengthSquared", "float: The sum of the squared components.")};
        for (PyGetSetDef& each : properties)
            installProperty(type, each);
        static PyMethodDef method{"normalize", normalize, METH_NOARGS,
                                  docstring("normalize() -> @\n\nDivides the vector by its length, in place, and "
                                            "returns it. The zero vector becomes not-a-number.",
                                            className<V>())};
        installMethod(type, method);
    }

    static PyObject* multiply(PyObject* left, PyObject* right)
    {
        if (const V* v = operand<V>(left)) {
            if (PyFloat_CheckExact(right))
                return Value::make(*v * PyFloat_AS_DOUBLE(right));
            if (const V* w = operand<V>(right))
                return PyFloat_FromDouble(dot(*v, *w));
        }
        return multiplyOthers(left, right);
    }
    /// Apart from the frequent operands, whose function then needs no stack for matrices. A number counts on the right
    /// only.
    [[gnu::noinline]] static PyObject* multiplyOthers(PyObject* left, PyObject* right)
    {
        if (const V* v = operand<V>(left)) {
            if (const M* m = operand<M>(right))
                return Value::make(transformed(m->transposed(), *v));
            if (double factor = 0.0; isNumber(right))
                return toDouble(right, factor) ? Value::make(*v * factor) : nullptr;
        } else if (const M* m = operand<M>(left)) {
            if (const V* w = operand<V>(right))
                return Value::make(transformed(*m, *w));
        }
        Py_RETURN_NOTIMPLEMENTED;
    }
    static bool toDivisor(PyObject* object, double& divisor)
    {
        if (!toDouble(object, divisor))
            return false;
        if (divisor == 0.0)
            PyErr_SetString(PyExc_ZeroDivisionError, "division by zero");
        return divisor != 0.0;
    }
    static PyObject* divide(PyObject* left, PyObject* right)
    {
        const V* v = operand<V>(left);
        if (!v || !isNumber(right))
            Py_RETURN_NOTIMPLEMENTED;
        double divisor = 0.0;
        return toDivisor(right, divisor) ? Value::make(*v / divisor) : nullptr;
    }
    static PyObject* negate(PyObject* object)
    {
        const V* v = self<V>(object);
        return v ? Value::make(-*v) : nullptr;
    }

    static PyObject* divideInPlace(PyObject* object, PyObject* right)
    {
        return scaleInPlace<V, [](V& v, double divisor) { v /= divisor; }, toDivisor>(object, right, "__itruediv__");
    }
};

} // namespace python::slots
