#include "module/core/ValueState.h"

#include <deque>
#include <memory>

namespace bp = boost::python;

namespace python::slots {

namespace {

/// The shortest text that reads back as the same number, as Python writes it but without ".0".
std::string shortest(double value)
{
    const std::unique_ptr<char, void (*)(void*)> written(PyOS_double_to_string(value, 'r', 0, 0, nullptr), PyMem_Free);
    if (!written)
        throw std::bad_alloc();
    return written.get();
}

} // namespace

PyObject* reduceNumbers(PyObject* object, std::span<const double> numbers)
{
    PyObject* result = nullptr;
    const auto make = [&] {
        bp::list values;
        for (const double number : numbers)
            values.append(number);
        PyObject* attributes = reinterpret_cast<bp::objects::instance<>*>(object)->dict;
        const bp::object kept = attributes && PyDict_GET_SIZE(attributes) > 0
                                    ? bp::object(bp::handle<>(bp::borrowed(attributes)))
                                    : bp::object();
        const bp::object type(bp::handle<>(bp::borrowed(reinterpret_cast<PyObject*>(Py_TYPE(object)))));
        // __new__ alone makes the copy: a subclass may ask anything of its __init__.
        result = bp::incref(bp::make_tuple(bp::import("copyreg").attr("__newobj__"), bp::make_tuple(type),
                                           bp::make_tuple(bp::tuple(values), kept))
                                .ptr());
    };
    return bp::handle_exception(make) ? nullptr : result;
}

bool restoreNumbers(PyObject* object, PyObject* state, std::span<double> numbers)
{
    PyObject* values = PyTuple_Check(state) && PyTuple_GET_SIZE(state) == 2 ? PyTuple_GET_ITEM(state, 0) : nullptr;
    PyObject* attributes = values ? PyTuple_GET_ITEM(state, 1) : nullptr;
    if (!values || !PyTuple_Check(values) || !(attributes == Py_None || PyDict_Check(attributes))) {
        PyErr_Format(PyExc_TypeError, "%s.__setstate__(), expected a tuple of numbers and attributes",
                     typeName(object));
        return false;
    }
    if (PyTuple_GET_SIZE(values) != static_cast<Py_ssize_t>(numbers.size())) {
        PyErr_Format(PyExc_ValueError, "%s.__setstate__(), expected %zu numbers but got %zd", typeName(object),
                     numbers.size(), PyTuple_GET_SIZE(values));
        return false;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (!toDouble(PyTuple_GET_ITEM(values, static_cast<Py_ssize_t>(i)), numbers[i]))
            return false;
    if (attributes == Py_None || PyDict_GET_SIZE(attributes) == 0)
        return true;
    return !bp::handle_exception([&] {
        bp::object(bp::handle<>(bp::borrowed(object)))
            .attr("__dict__")
            .attr("update")(bp::object(bp::handle<>(bp::borrowed(attributes))));
    });
}

std::string writtenNumbers(const char* name, std::span<const double> numbers, const char* group, std::size_t groupSize)
{
    std::string written = std::string(name) + '(';
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i > 0)
            written += ", ";
        if (group && i % groupSize == 0)
            written += std::string(group) + '(';
        written += shortest(numbers[i]);
        if (group && (i + 1) % groupSize == 0)
            written += ')';
    }
    return written + ')';
}

const char* docstring(const char* pattern, const char* name, const char* other)
{
    static std::deque<std::string> kept;
    std::string& text = kept.emplace_back();
    for (; *pattern; ++pattern) {
        if (*pattern == '@')
            text += name;
        else if (*pattern == '#')
            text += other;
        else
            text += *pattern;
    }
    return text.c_str();
}

} // namespace python::slots
