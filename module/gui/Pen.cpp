#include "module/Bindings.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

#include <QPen>

namespace bp = boost::python;

namespace python {

namespace {

void setStyle(QPen& self, Qt::PenStyle style)
{
    if (style < Qt::NoPen || style > Qt::DashDotDotLine)
        raise(PyExc_ValueError, "Pen.style, unknown style %d", static_cast<int>(style));
    self.setStyle(style);
}

void setWidth(QPen& self, double width)
{
    if (!(width >= 0 && width <= 1000))
        raise(PyExc_ValueError, "Pen.width, the value must be in 0 to 1000");
    self.setWidthF(width);
}

} // namespace

void bindPen()
{
    bp::class_<QPen>("Pen", "A line style.",
                     bp::init<>(bp::args("self"), "Pen() -> None\n\nA solid black line of one pixel."))
        .add_property("style", &QPen::style, setStyle, "PenStyle: How the line is drawn.")
        .add_property("color", &QPen::color, &QPen::setColor,
                      "Color: The line's colour. Reading gives a copy; assign it to change the pen.")
        .add_property("width", &QPen::widthF, setWidth,
                      "float: Width in pixels; 0 is the thinnest line that the display has.")
        .def(bp::self == bp::self)
        .def(bp::self != bp::self);
}

} // namespace python
