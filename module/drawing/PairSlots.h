#pragma once

#include "module/core/ValueState.h"
#include "module/drawing/GeometryArgument.h"

#include <boost/python.hpp>

#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace python::slots {

/// The texts of one class, all with static storage. The names of the two numbers are also the keywords of its
/// constructor; `member*` is "Class.name" for messages.
struct PairTexts
{
    const char* name;
    const char* documentation;
    const char* constructor;
    std::array<const char*, 2> names;
    std::array<const char*, 2> members;
    std::array<const char*, 2> memberDocumentation;
};

/// What Point, PointF and Size share: two numbers with names, their arithmetic, texts and state. Mouse events make
/// points by the hundred, so everything is a C function.
///
/// Results are computed in doubles, which hold every 32-bit int and every sum of two; what does not fit the class in
/// the end is an OverflowError. The objects can change, so they have no hash.
template <typename T>
class PairSlots
{
    using Value = ValueInstance<T>;
    using Numbers = std::array<double, 2>;
    static constexpr bool s_isWhole = !std::is_same_v<T, QPointF>;
    using Number = std::conditional_t<s_isWhole, int, double>;
    static constexpr const char* s_numberName = s_isWhole ? "int" : "float";

public:
    static void bind(const PairTexts& texts)
    {
        s_texts = &texts;
        boost::python::class_<T> bound(texts.name, texts.documentation);
        bound.attr("__hash__") = boost::python::object();
        auto* type = reinterpret_cast<PyTypeObject*>(bound.ptr());
        Value::adopt(type);
        const auto install = [&](const char* slot, auto* function, const char* text) {
            installSlot(type, slot, reinterpret_cast<void*>(function), docstring(text, texts.name, s_numberName));
        };
        install("__init__", initialize, texts.constructor);
        install("__repr__", repr, "__repr__() -> str");
        install("__eq__", compare, "__eq__(other: object) -> bool");
        install("__ne__", compare, "__ne__(other: object) -> bool");
        install("__getitem__", item,
                "__getitem__(index: int) -> #\n\nThe first (0) or second (1) number; a @ can be unpacked. Raises "
                "IndexError.");
        installSequence(type, length, sequenceItem);
        install("__add__", combine<std::plus<>>,
                s_isWhole ? "__add__(other: @) -> @\n\nThe sum. Raises OverflowError."
                          : "__add__(other: @) -> @\n\nThe sum.");
        install("__sub__", combine<std::minus<>>,
                s_isWhole ? "__sub__(other: @) -> @\n\nThe difference. Raises OverflowError."
                          : "__sub__(other: @) -> @\n\nThe difference.");
        install("__mul__", multiply,
                s_isWhole
                    ? "__mul__(factor: float) -> @\n\nScaled and rounded to the nearest whole numbers, halves up. "
                      "Raises OverflowError."
                    : "__mul__(factor: float) -> @\n\nScaled.");
        install("__rmul__", multiply, "__rmul__(factor: float) -> @\n\nScaled, as with the factor on the right.");
        install("__truediv__", divide,
                s_isWhole ? "__truediv__(divisor: float) -> @\n\nDivided and rounded to the nearest whole numbers, "
                            "halves up. Raises ZeroDivisionError, OverflowError."
                          : "__truediv__(divisor: float) -> @\n\nDivided. Raises ZeroDivisionError.");
        install("__neg__", negate, "__neg__() -> @\n\nThe opposite.");
        static PyMethodDef methods[] = {
            {"__reduce__", reduce, METH_NOARGS, "__reduce__() -> tuple\n\nFor copying and pickling."},
            {"__setstate__", setState, METH_O, "__setstate__(state: tuple) -> None\n\nFor copying and pickling."}};
        for (PyMethodDef& method : methods)
            installMethod(type, method);
        static PyGetSetDef properties[2];
        for (std::size_t i = 0; i < 2; ++i) {
            properties[i] = {texts.names[i], getNumber, setNumber, texts.memberDocumentation[i],
                             reinterpret_cast<void*>(i)};
            installProperty(type, properties[i]);
        }
        installConstructor(type, construct<T, fill>);
    }

private:
    static Numbers numbers(const T& value)
    {
        if constexpr (std::is_same_v<T, QSize>)
            return {double(value.width()), double(value.height())};
        else
            return {double(value.x()), double(value.y())};
    }
    static Number& number(T& value, std::size_t index)
    {
        if constexpr (std::is_same_v<T, QSize>)
            return index == 0 ? value.rwidth() : value.rheight();
        else
            return index == 0 ? value.rx() : value.ry();
    }
    static PyObject* numberObject(double value)
    {
        return s_isWhole ? PyLong_FromLong(static_cast<long>(value)) : PyFloat_FromDouble(value);
    }

    /// False with OverflowError pending.
    static bool assign(T& value, Numbers results)
    {
        for (std::size_t i = 0; i < 2; ++i) {
            if constexpr (s_isWhole) {
                results[i] = std::floor(results[i] + 0.5);
                using Limits = std::numeric_limits<int>;
                if (!(results[i] >= Limits::min() && results[i] <= Limits::max())) {
                    PyErr_Format(PyExc_OverflowError, "%s, the result does not fit 32 bits", s_texts->name);
                    return false;
                }
            }
            number(value, i) = static_cast<Number>(results[i]);
        }
        return true;
    }
    static PyObject* made(const Numbers& results)
    {
        T value;
        return assign(value, results) ? Value::make(value) : nullptr;
    }

    static int initialize(PyObject* object, PyObject* arguments, PyObject* keywords)
    {
        PyObject* given[2] = {};
        char* names[] = {const_cast<char*>(s_texts->names[0]), const_cast<char*>(s_texts->names[1]), nullptr};
        static const std::string format = std::string("|OO:") + s_texts->name;
        if (!PyArg_ParseTupleAndKeywords(arguments, keywords, format.c_str(), names, &given[0], &given[1]))
            return -1;
        T value{Number{}, Number{}};
        Reading whole = Reading::OtherType;
        if (PyTuple_GET_SIZE(arguments) == 1 && !given[1])
            whole = read(given[0], value);
        if (whole == Reading::Failed)
            return -1;
        for (std::size_t i = 0; whole == Reading::OtherType && i < 2; ++i)
            if (given[i] && !readMember(given[i], number(value, i), s_texts->members[i], s_numberName))
                return -1;
        return boost::python::handle_exception([&] { Value::put(object, value); }) ? -1 : 0;
    }

    /// For construct(): nothing or both numbers.
    static bool fill(PyObject* const* arguments, Py_ssize_t count, T& value)
    {
        Numbers given{};
        if (count == 2 && (s_isWhole && !(PyLong_CheckExact(arguments[0]) && PyLong_CheckExact(arguments[1]))))
            return false;
        if (count != 0 && !(count == 2 && quickDouble(arguments[0], given[0]) && quickDouble(arguments[1], given[1])))
            return false;
        using Limits = std::numeric_limits<Number>;
        for (std::size_t i = 0; i < 2; ++i) {
            if (s_isWhole && !(given[i] >= Limits::lowest() && given[i] <= Limits::max()))
                return false;
            number(value, i) = static_cast<Number>(given[i]);
        }
        return true;
    }

    static PyObject* getNumber(PyObject* object, void* index)
    {
        const T* value = self<T>(object);
        return value ? numberObject(numbers(*value)[reinterpret_cast<std::size_t>(index)]) : nullptr;
    }
    static int setNumber(PyObject* object, PyObject* argument, void* index)
    {
        const auto i = reinterpret_cast<std::size_t>(index);
        T* value = self<T>(object);
        Number given{};
        if (!value || !readMember(argument, given, s_texts->members[i], s_numberName))
            return -1;
        number(*value, i) = given;
        return 0;
    }

    static Py_ssize_t length(PyObject* /*object*/) { return 2; }
    static PyObject* sequenceItem(PyObject* object, Py_ssize_t index)
    {
        const T* value = self<T>(object);
        if (value && isValidIndex(index, 2))
            return numberObject(numbers(*value)[static_cast<std::size_t>(index)]);
        return value ? PyErr_Format(PyExc_IndexError, "%s, index %zd is not in 0 to 1", s_texts->name, index) : nullptr;
    }
    static PyObject* item(PyObject* object, PyObject* key)
    {
        long long index = 0;
        return toPosition(key, index, "index, expected 'int' but got '%s'")
                   ? sequenceItem(object, static_cast<Py_ssize_t>(index))
                   : nullptr;
    }

    static PyObject* repr(PyObject* object)
    {
        PyObject* result = nullptr;
        const auto write = [&] {
            if (const T* value = self<T>(object)) {
                const Numbers both = numbers(*value);
                const std::string written = writtenNumbers(Py_TYPE(object)->tp_name, both, nullptr, 2);
                result = PyUnicode_FromStringAndSize(written.data(), static_cast<Py_ssize_t>(written.size()));
            }
        };
        return boost::python::handle_exception(write) ? nullptr : result;
    }
    /// Exact, where Qt's own comparison of floating-point pairs lets a small difference pass.
    static PyObject* compare(PyObject* left, PyObject* right, int operation)
    {
        const T* a = operand<T>(left);
        const T* b = a ? operand<T>(right) : nullptr;
        if (!b || (operation != Py_EQ && operation != Py_NE))
            Py_RETURN_NOTIMPLEMENTED;
        return PyBool_FromLong((numbers(*a) == numbers(*b)) == (operation == Py_EQ));
    }

    /// An operand of the class or, for PointF, a Point. No tuples: adding to a list or a tuple means something else.
    static bool isOperand(PyObject* object, Numbers& both)
    {
        if (const T* value = operand<T>(object)) {
            both = numbers(*value);
            return true;
        }
        const QPoint* point = s_isWhole ? nullptr : operand<QPoint>(object);
        if (point)
            both = {double(point->x()), double(point->y())};
        return point;
    }
    template <typename Operation>
    static PyObject* combine(PyObject* left, PyObject* right)
    {
        Numbers a, b;
        if (!isOperand(left, a) || !isOperand(right, b))
            Py_RETURN_NOTIMPLEMENTED;
        return made({Operation()(a[0], b[0]), Operation()(a[1], b[1])});
    }
    static PyObject* multiply(PyObject* left, PyObject* right)
    {
        Numbers both;
        PyObject* factor = isOperand(left, both) ? right : isOperand(right, both) ? left : nullptr;
        if (!factor || !isNumber(factor))
            Py_RETURN_NOTIMPLEMENTED;
        double by = 0.0;
        return toDouble(factor, by) ? made({both[0] * by, both[1] * by}) : nullptr;
    }
    static PyObject* divide(PyObject* left, PyObject* right)
    {
        Numbers both;
        if (!isOperand(left, both) || !isNumber(right))
            Py_RETURN_NOTIMPLEMENTED;
        double by = 0.0;
        if (!toDouble(right, by))
            return nullptr;
        if (by == 0.0)
            return PyErr_Format(PyExc_ZeroDivisionError, "division by zero");
        return made({both[0] / by, both[1] / by});
    }
    static PyObject* negate(PyObject* object)
    {
        const T* value = self<T>(object);
        return value ? made({-numbers(*value)[0], -numbers(*value)[1]}) : nullptr;
    }

    static PyObject* reduce(PyObject* object, PyObject* /*none*/)
    {
        const T* value = self<T>(object);
        if (!value)
            return nullptr;
        const Numbers both = numbers(*value);
        return reduceNumbers(object, both);
    }
    static PyObject* setState(PyObject* object, PyObject* state)
    {
        Numbers both{};
        T value;
        if (!restoreNumbers(object, state, both) || !assign(value, both) ||
            boost::python::handle_exception([&] { Value::put(object, value); }))
            return nullptr;
        Py_RETURN_NONE;
    }

    static inline const PairTexts* s_texts = nullptr;
};

} // namespace python::slots
