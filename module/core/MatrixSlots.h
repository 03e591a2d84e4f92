#pragma once

#include "module/core/ElementSlots.h"
#include "module/core/VectorSlots.h"

namespace python::slots {

/// The operators of mat3 and mat4.
template <typename M>
class MatrixSlots
{
    using Value = ValueInstance<M>;
    using Row = std::decay_t<decltype(std::declval<M>()[0])>;

public:
    static void install(PyTypeObject* type)
    {
        const auto install = [type](const char* name, auto* function, const char* doc) {
            installSlot(type, name, reinterpret_cast<void*>(function),
                        docstring(doc, className<M>(), className<Row>()));
        };
        ElementSlots<M>::install(type);
        install("__add__", combine<M, std::plus<>>, "__add__(other: @) -> @\n\nElement-wise sum.");
        install("__sub__", combine<M, std::minus<>>, "__sub__(other: @) -> @\n\nElement-wise difference.");
        install("__mul__", multiply,
                "__mul__(other: @) -> @\n__mul__(factor: float) -> @\n\nThe matrix product, or the scaled matrix.");
        install("__rmul__", multiply, "__rmul__(factor: float) -> @\n\nThe scaled matrix.");
        install("__truediv__", divide,
                "__truediv__(divisor: float) -> @\n\nEvery element times 1 / divisor; zero gives infinities.");
        install("__iadd__", addInPlace<M>, "__iadd__(other: @) -> @\n\nAdds in place.");
        install("__isub__", subtractInPlace<M>, "__isub__(other: @) -> @\n\nSubtracts in place.");
        install("__imul__", multiplyInPlace<M>, "__imul__(factor: float) -> @\n\nScales in place.");
        installTextAndState<M, Row>(type);
        installMethods(type);
        installConstructor(type, construct<M, fill>);
    }

private:
    static void installMethods(PyTypeObject* type)
    {
        static PyGetSetDef determinant = readOnly<M, &M::determinant>("determinant", "float: The determinant.");
        installProperty(type, determinant);
        static PyMethodDef methods[] = {
            {"transpose", query<M, &M::transposed>, METH_NOARGS,
             docstring("transpose() -> @\n\nThe transposed matrix; this one is not changed.", className<M>())},
            {"isInvertible", query<M, &M::isInvertible>, METH_NOARGS,
             "isInvertible() -> bool\n\nTrue when the determinant is not exactly 0."},
            {"invert", invert, METH_NOARGS,
             docstring("invert() -> @\n\nThe inverse matrix; this one is not changed. Raises RuntimeError when the "
                       "determinant is exactly 0.",
                       className<M>())},
            // "/=" does not find this name: it makes a new matrix by way of __truediv__.
            {"__idiv__", divideInPlace, METH_O,
             docstring(
                 "__idiv__(divisor: float) -> @\n\nDivides in place and returns the matrix; zero gives infinities. "
                 "The operator /= makes a new matrix instead.",
                 className<M>())}};
        for (PyMethodDef& method : methods)
            installMethod(type, method);
    }

    static PyObject* scaled(const M& m, PyObject* number)
    {
        double factor = 0.0;
        return toDouble(number, factor) ? Value::make(m * factor) : nullptr;
    }
    /// Null without an error when `right` is not a vector of the class itself: a subclass may override __rmul__.
    template <typename V>
    static PyObject* point(const M& m, PyObject* right)
    {
        if (!std::is_same_v<MatrixOf<V>, M> || Py_TYPE(right) != ValueInstance<V>::type())
            return nullptr;
        if constexpr (std::is_same_v<MatrixOf<V>, M>)
            if (const V* v = ValueInstance<V>::get(right))
                return ValueInstance<V>::make(transformed(m, *v));
        return nullptr;
    }
    static PyObject* multiply(PyObject* left, PyObject* right)
    {
        if (const M* m = operand<M>(left)) {
            if (PyObject* result = point<core::vec3>(*m, right))
                return result;
            if (PyObject* result = point<core::vec4>(*m, right))
                return result;
            if (PyObject* result = point<core::vec2>(*m, right))
                return result;
            if (PyErr_Occurred())
                return nullptr;
            if (const M* n = operand<M>(right))
                return Value::make(*m * *n);
            if (isNumber(right))
                return scaled(*m, right);
        } else if (const M* n = operand<M>(right); n && isNumber(left)) {
            return scaled(*n, left);
        }
        Py_RETURN_NOTIMPLEMENTED;
    }
    static PyObject* divide(PyObject* left, PyObject* right)
    {
        const M* m = operand<M>(left);
        if (!m || !isNumber(right))
            Py_RETURN_NOTIMPLEMENTED;
        double divisor = 0.0;
        return toDouble(right, divisor) ? Value::make(*m / divisor) : nullptr;
    }

    static PyObject* divideInPlace(PyObject* object, PyObject* right)
    {
        return scaleInPlace<M, [](M& m, double divisor) { m /= divisor; }>(object, right, "__idiv__");
    }

    static PyObject* invert(PyObject* object, PyObject* /*none*/)
    {
        const M* m = self<M>(object);
        if (!m)
            return nullptr;
        if (const auto inverse = m->inverse())
            return Value::make(*inverse);
        PyErr_SetString(PyExc_RuntimeError, GeometryTexts<M>::singular);
        return nullptr;
    }

    /// For construct(): nothing, one number, or all rows.
    static bool fill(PyObject* const* arguments, Py_ssize_t count, M& value)
    {
        if (count == 0)
            return true;
        if (count == 1) {
            double number = 0.0;
            if (!quickDouble(arguments[0], number))
                return false;
            value = M(number);
            return true;
        }
        if (count != static_cast<Py_ssize_t>(M::Size))
            return false;
        for (std::size_t r = 0; r < M::Size; ++r) {
            const Row* row = operand<Row>(arguments[r]);
            if (!row)
                return false;
            value[r] = *row;
        }
        return true;
    }
};

} // namespace python::slots
