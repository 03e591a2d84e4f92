#include "module/Bindings.h"
#include "module/CheckedSetter.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

#include <QPen>

namespace bp = boost::python;

namespace python {

namespace {

Qt::PenStyle requireStyle(Qt::PenStyle style)
{
    if (style < Qt::NoPen || style > Qt::DashDotDotLine)
        raise(PyExc_ValueError, "Pen.style, unknown style %d", static_cast<int>(style));
    return style;
}

double requireWidth(double width)
{
    if (!(width >= 0 && width <= 1000))
        raise(PyExc_ValueError, "Pen.width, the value must be in 0 to 1000");
    return width;
}

void setStyle(QPen& self, Qt::PenStyle style)
{
    self.setStyle(requireStyle(style));
}

void setWidth(QPen& self, double width)
{
    self.setWidthF(requireWidth(width));
}

QPen* makePen(const QColor& color, double width, Qt::PenStyle style)
{
    return new QPen(color, requireWidth(width), requireStyle(style));
}

bp::tuple contents(const QPen& self)
{
    return bp::make_tuple(self.color(), self.widthF(), self.style());
}

bp::object written(const bp::object& self)
{
    const bp::tuple all = contents(bp::extract<const QPen&>(self));
    return bp::str("%s(%r, %r, PenStyle.%s)") % bp::make_tuple(typeName(self), all[0], all[1], bp::str(all[2]));
}

struct PenState : bp::pickle_suite
{
    static bp::tuple getinitargs(const QPen& self) { return contents(self); }
};

} // namespace

void bindPen()
{
    bp::class_<QPen> type("Pen", "A line style.", bp::no_init);
    type.def("__init__",
             bp::make_constructor(
                 makePen, bp::default_call_policies(),
                 (bp::arg("color") = QColor(Qt::black), bp::arg("width") = 1.0, bp::arg("style") = Qt::SolidLine)),
             "Pen(color: Color = Color(0, 0, 0), width: float = 1, style: PenStyle = PenStyle.SolidLine) -> None\n\n"
             "Raises ValueError for a width outside 0 to 1000.")
        .add_property("style", &QPen::style, checkedSetter("Pen.style", setStyle), "PenStyle: How the line is drawn.")
        .add_property("color", &QPen::color, checkedSetter("Pen.color", &QPen::setColor),
                      "Color: The line's colour. Reading gives a copy; assign it to change the pen.")
        .add_property("width", &QPen::widthF, checkedSetter("Pen.width", setWidth),
                      "float: Width in pixels; 0 is the thinnest line that the display has.")
        .def("__repr__", written, "__repr__() -> str")
        .def(bp::self == bp::self)
        .def(bp::self != bp::self)
        .def_pickle(PenState());
    // It can change.
    type.attr("__hash__") = bp::object();
}

} // namespace python
