#include "module/data/ColorTuple.h"

#include "runtime/Errors.h"

#include <boost/python.hpp>

#include <array>

namespace bp = boost::python;

namespace python {

bp::object colorTuple(QRgb color)
{
    return bp::make_tuple(qRed(color), qGreen(color), qBlue(color), qAlpha(color));
}

QRgb colorFromTuple(const char* function, const bp::object& tuple)
{
    // Text is a sequence too, but never a colour.
    const Py_ssize_t count = PySequence_Check(tuple.ptr()) && !isStr(tuple.ptr()) ? PySequence_Size(tuple.ptr()) : -1;
    if (count < 0)
        PyErr_Clear();
    if (count != 3 && count != 4)
        raise(PyExc_TypeError, "%s, expected a colour of 3 or 4 integers but got '%s'", function, typeName(tuple));
    std::array<int, 4> components{0, 0, 0, 255};
    for (Py_ssize_t i = 0; i < count; ++i) {
        const bp::object item = owned(PySequence_GetItem(tuple.ptr(), i));
        const bp::object index = owned(PyNumber_Index(item.ptr()));
        int overflow = 0;
        const long value = PyLong_AsLongAndOverflow(index.ptr(), &overflow);
        if (overflow != 0 || value < 0 || value > 255)
            raise(PyExc_ValueError, "%s, the colour component %R is not in 0 to 255", function, item.ptr());
        components[static_cast<std::size_t>(i)] = static_cast<int>(value);
    }
    return qRgba(components[0], components[1], components[2], components[3]);
}

} // namespace python
