#include "module/Bindings.h"
#include "module/core/ValueState.h"
#include "module/drawing/GeometryArgument.h"

#include <boost/python.hpp>

#include <QRect>

#include <cmath>

namespace bp = boost::python;

namespace python {

namespace {

/// The first and last pixel in each direction, wide enough for sums.
struct Edges
{
    long long left, top, right, bottom;
};

bool fits(long long number)
{
    return saturated(number) == number;
}

/// False with OverflowError pending.
bool assign(QRect& rectangle, const Edges& edges)
{
    if (!fits(edges.left) || !fits(edges.top) || !fits(edges.right) || !fits(edges.bottom) ||
        !fits(edges.right - edges.left + 1) || !fits(edges.bottom - edges.top + 1)) {
        PyErr_SetString(PyExc_OverflowError, "Rectangle, the edges and the size do not fit 32 bits");
        return false;
    }
    rectangle.setCoords(static_cast<int>(edges.left), static_cast<int>(edges.top), static_cast<int>(edges.right),
                        static_cast<int>(edges.bottom));
    return true;
}

template <typename T>
constexpr const char* g_className = std::is_same_v<T, QPoint>  ? "Point"
                                    : std::is_same_v<T, QSize> ? "Size"
                                                               : "int";

template <typename T, void (*change)(Edges&, const T&)>
int setEdges(PyObject* object, PyObject* argument, void* member)
{
    QRect* rectangle = slots::self<QRect>(object);
    T given{};
    if (!rectangle || !readMember(argument, given, static_cast<const char*>(member), g_className<T>))
        return -1;
    Edges edges{rectangle->left(), rectangle->top(), rectangle->right(), rectangle->bottom()};
    change(edges, given);
    return assign(*rectangle, edges) ? 0 : -1;
}

template <int (QRect::*getter)() const>
PyObject* getInt(PyObject* object, void* /*name*/)
{
    const QRect* rectangle = slots::self<QRect>(object);
    return rectangle ? PyLong_FromLong((rectangle->*getter)()) : nullptr;
}

void setWidth(Edges& edges, const int& width)
{
    edges.right = edges.left + width - 1;
}
void setHeight(Edges& edges, const int& height)
{
    edges.bottom = edges.top + height - 1;
}
void setSize(Edges& edges, const QSize& size)
{
    setWidth(edges, size.width());
    setHeight(edges, size.height());
}
void setTopLeft(Edges& edges, const QPoint& corner)
{
    edges.left = corner.x();
    edges.top = corner.y();
}
void setTopRight(Edges& edges, const QPoint& corner)
{
    edges.right = corner.x();
    edges.top = corner.y();
}
void setBottomLeft(Edges& edges, const QPoint& corner)
{
    edges.left = corner.x();
    edges.bottom = corner.y();
}

void* named(const char* member)
{
    return const_cast<char*>(member);
}

PyGetSetDef g_properties[] = {
    {"topLeft", slots::get<QRect, &QRect::topLeft>, setEdges<QPoint, setTopLeft>,
     "Point: The first pixel. Setting it moves the left and the top edge.", named("Rectangle.topLeft")},
    {"topRight", slots::get<QRect, &QRect::topRight>, setEdges<QPoint, setTopRight>,
     "Point: The last pixel of the first row, at topLeft.x + width - 1. Setting it moves the right and the top edge.",
     named("Rectangle.topRight")},
    {"bottomLeft", slots::get<QRect, &QRect::bottomLeft>, setEdges<QPoint, setBottomLeft>,
     "Point: The first pixel of the last row, at topLeft.y + height - 1. Setting it moves the left and the bottom "
     "edge.",
     named("Rectangle.bottomLeft")},
    {"width", getInt<&QRect::width>, setEdges<int, setWidth>,
     "int: The number of pixels in a row. Setting it moves the right edge.", named("Rectangle.width")},
    {"height", getInt<&QRect::height>, setEdges<int, setHeight>,
     "int: The number of rows. Setting it moves the bottom edge.", named("Rectangle.height")},
    {"size", slots::get<QRect, &QRect::size>, setEdges<QSize, setSize>,
     "Size: Width and height. Setting it moves the right and the bottom edge.", named("Rectangle.size")},
};

bool readProper(PyObject* argument, bool& proper)
{
    if (!PyBool_Check(argument)) {
        PyErr_Format(PyExc_TypeError, "Rectangle.contains(), expected 'bool' but got '%s' instead", typeName(argument));
        return false;
    }
    proper = argument == Py_True;
    return true;
}

PyObject* contains(PyObject* object, PyObject* arguments, PyObject* keywords)
{
    static const char* names[] = {"point", "proper", nullptr};
    const QRect* rectangle = slots::self<QRect>(object);
    PyObject *pointObject = nullptr, *properObject = Py_False;
    if (!rectangle || !PyArg_ParseTupleAndKeywords(arguments, keywords, "O|O:contains", const_cast<char**>(names),
                                                   &pointObject, &properObject))
        return nullptr;
    QPoint point;
    bool proper = false;
    const Reading reading = read(pointObject, point);
    if (reading == Reading::OtherType)
        PyErr_Format(PyExc_TypeError, "Rectangle.contains(), expected 'Point' but got '%s' instead",
                     typeName(pointObject));
    if (reading != Reading::Done || !readProper(properObject, proper))
        return nullptr;
    return PyBool_FromLong(rectangle->contains(point, proper));
}

int initialize(PyObject* object, PyObject* arguments, PyObject* keywords)
{
    static const char* names[] = {"x", "y", "width", "height", nullptr};
    static const char* cornerNames[] = {"topLeft", "size", nullptr};
    static const char* members[] = {"Rectangle.x", "Rectangle.y", "Rectangle.width", "Rectangle.height"};
    PyObject* given[4] = {};
    int numbers[4] = {};
    // Two objects, in place or by name, are a corner and a size, unless the first is a number.
    const bool isByName = keywords && PyDict_GetItemString(keywords, "topLeft");
    const bool isCorner =
        isByName || (PyTuple_GET_SIZE(arguments) > 0 && !PyIndex_Check(PyTuple_GET_ITEM(arguments, 0)));
    if (isCorner) {
        QPoint corner;
        QSize size;
        if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "OO:Rectangle", const_cast<char**>(cornerNames),
                                         &given[0], &given[1]) ||
            !readMember(given[0], corner, "Rectangle.topLeft", "Point") ||
            !readMember(given[1], size, "Rectangle.size", "Size"))
            return -1;
        numbers[0] = corner.x();
        numbers[1] = corner.y();
        numbers[2] = size.width();
        numbers[3] = size.height();
    } else {
        if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "|OOOO:Rectangle", const_cast<char**>(names), &given[0],
                                         &given[1], &given[2], &given[3]))
            return -1;
        for (std::size_t i = 0; i < 4; ++i)
            if (given[i] && !readMember(given[i], numbers[i], members[i], "int"))
                return -1;
    }
    Edges edges{numbers[0], numbers[1], 0, 0};
    setWidth(edges, numbers[2]);
    setHeight(edges, numbers[3]);
    QRect rectangle;
    if (!assign(rectangle, edges))
        return -1;
    return bp::handle_exception([&] { ValueInstance<QRect>::put(object, rectangle); }) ? -1 : 0;
}

PyObject* repr(PyObject* object)
{
    const QRect* r = slots::self<QRect>(object);
    return r ? PyUnicode_FromFormat("%s(%d, %d, %d, %d)", typeName(object), r->x(), r->y(), r->width(), r->height())
             : nullptr;
}

PyObject* reduce(PyObject* object, PyObject* /*none*/)
{
    const QRect* r = slots::self<QRect>(object);
    if (!r)
        return nullptr;
    const double edges[] = {double(r->left()), double(r->top()), double(r->right()), double(r->bottom())};
    return slots::reduceNumbers(object, edges);
}

PyObject* setState(PyObject* object, PyObject* state)
{
    double edges[4] = {};
    QRect rectangle;
    if (!slots::restoreNumbers(object, state, edges))
        return nullptr;
    // Far out of range is as bad as just out of range, and can be converted.
    const auto whole = [](double edge) { return static_cast<long long>(std::abs(edge) < 1e10 ? edge : 1e10); };
    if (!assign(rectangle, {whole(edges[0]), whole(edges[1]), whole(edges[2]), whole(edges[3])}) ||
        bp::handle_exception([&] { ValueInstance<QRect>::put(object, rectangle); }))
        return nullptr;
    Py_RETURN_NONE;
}

PyMethodDef g_methods[] = {
    {"contains", reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(contains)), METH_VARARGS | METH_KEYWORDS,
     "contains(point: Point | tuple[int, int], proper: bool = False) -> bool\n\nTrue when the pixel is one of the "
     "rectangle's; with `proper` those on its edges do not count. Raises TypeError."},
    {"__reduce__", reduce, METH_NOARGS, "__reduce__() -> tuple\n\nFor copying and pickling."},
    {"__setstate__", setState, METH_O, "__setstate__(state: tuple) -> None\n\nFor copying and pickling."}};

} // namespace

void bindRectangle()
{
    bp::class_<QRect> bound("Rectangle",
                            "A rectangle of whole pixels, given by its first pixel and its size. The last pixel is one "
                            "less than the first plus the size, and topRight and bottomLeft are pixels inside.");
    bound.attr("__hash__") = bp::object();
    auto* type = reinterpret_cast<PyTypeObject*>(bound.ptr());
    ValueInstance<QRect>::adopt(type);
    slots::installComparison<QRect>(type);
    installSlot(type, "__init__", reinterpret_cast<void*>(initialize),
                "__init__(x: int = 0, y: int = 0, width: int = 0, height: int = 0) -> None\n"
                "__init__(topLeft: Point | tuple[int, int], size: Size | tuple[int, int]) -> None\n\nRaises TypeError, "
                "and OverflowError when an edge or the size does not fit 32 bits.");
    installSlot(type, "__repr__", reinterpret_cast<void*>(repr), "__repr__() -> str");
    for (PyMethodDef& method : g_methods)
        installMethod(type, method);
    for (PyGetSetDef& property : g_properties)
        installProperty(type, property);
}

} // namespace python
