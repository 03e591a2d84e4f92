#pragma once

#include "module/core/ValueState.h"

namespace python::slots {

/// What Rect2D and Rect3D share: constructor, texts, state and the methods between two boxes.
template <typename Box, typename Corner>
class BoxSlots
{
public:
    static void install(PyTypeObject* type)
    {
        static PyMethodDef methods[] = {
            {"isValid", query<Box, &Box::isValid>, METH_NOARGS,
             "isValid() -> bool\n\nTrue when no extent is negative."},
            {"isNull", query<Box, &Box::isNull>, METH_NOARGS,
             "isNull() -> bool\n\nTrue when all extents are exactly 0."},
            {"intersects", keywordMethod(withOther<&Box::intersects>), METH_FASTCALL | METH_KEYWORDS,
             docstring("intersects(other: @) -> bool\n\nTrue when the two have a point in common; touching is enough.",
                       className<Box>())},
            {"intersection", keywordMethod(withOther<&Box::intersection>), METH_FASTCALL | METH_KEYWORDS,
             docstring("intersection(other: @) -> @\n\nWhat the two have in common; not valid when that is nothing.",
                       className<Box>())}};
        for (PyMethodDef& method : methods)
            installMethod(type, method);
        installTextAndState<Box, Corner>(type);
        installConstructor(type, construct<Box, fill>);
    }

private:
    static PyCFunction keywordMethod(_PyCFunctionFastWithKeywords function)
    {
        return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
    }

    /// The method with one argument, "other", that may be named.
    template <auto Function>
    static PyObject* withOther(PyObject* object, PyObject* const* arguments, Py_ssize_t count, PyObject* names)
    {
        const Box* box = self<Box>(object);
        if (!box)
            return nullptr;
        const Py_ssize_t named = names ? PyTuple_GET_SIZE(names) : 0;
        if (count + named != 1 || (named == 1 && PyUnicode_CompareWithASCIIString(PyTuple_GET_ITEM(names, 0), "other")))
            return PyErr_Format(PyExc_TypeError, "%s, expected one argument 'other'", className<Box>());
        Box other;
        return fromPython<Box>(arguments[0], other, "other") ? toPython(std::invoke(Function, *box, other)) : nullptr;
    }

    /// For construct(): nothing or two corners.
    static bool fill(PyObject* const* arguments, Py_ssize_t count, Box& value)
    {
        if (count == 0)
            return true;
        const Corner* first = count == 2 ? operand<Corner>(arguments[0]) : nullptr;
        const Corner* second = first ? operand<Corner>(arguments[1]) : nullptr;
        if (second)
            value = Box(*first, *second);
        return second;
    }
};

} // namespace python::slots
