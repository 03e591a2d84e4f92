#include "module/Bindings.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

#include <QColor>

#include <array>

namespace bp = boost::python;

namespace python {

namespace {

int byteArgument(const char* name, int value)
{
    if (value < 0 || value > 255)
        raise(PyExc_ValueError, "Color.%s, %d is not in 0 to 255", name, value);
    return value;
}

double shareArgument(const char* name, double value)
{
    if (!(value >= 0 && value <= 1))
        raise(PyExc_ValueError, "Color.%s, the value must be in 0 to 1", name);
    return value;
}

QColor* makeColor(int red, int green, int blue, int alpha)
{
    return new QColor(byteArgument("red", red), byteArgument("green", green), byteArgument("blue", blue),
                      byteArgument("alpha", alpha));
}

void setRed(QColor& self, int value)
{
    self.setRed(byteArgument("red", value));
}
void setGreen(QColor& self, int value)
{
    self.setGreen(byteArgument("green", value));
}
void setBlue(QColor& self, int value)
{
    self.setBlue(byteArgument("blue", value));
}
void setAlpha(QColor& self, int value)
{
    self.setAlpha(byteArgument("alpha", value));
}
void setRedF(QColor& self, double value)
{
    self.setRedF(shareArgument("redF", value));
}
void setGreenF(QColor& self, double value)
{
    self.setGreenF(shareArgument("greenF", value));
}
void setBlueF(QColor& self, double value)
{
    self.setBlueF(shareArgument("blueF", value));
}
void setAlphaF(QColor& self, double value)
{
    self.setAlphaF(shareArgument("alphaF", value));
}

} // namespace

void bindColor()
{
    bp::class_<QColor>("Color", "A colour; alpha 255 is opaque.", bp::no_init)
        .def("__init__",
             bp::make_constructor(
                 makeColor, bp::default_call_policies(),
                 (bp::arg("red") = 0, bp::arg("green") = 0, bp::arg("blue") = 0, bp::arg("alpha") = 255)),
             "Color(red: int = 0, green: int = 0, blue: int = 0, alpha: int = 255) -> None\n\n"
             "Raises ValueError for a component outside 0 to 255.")
        .add_property("red", &QColor::red, setRed, "int: Red, 0 to 255.")
        .add_property("redF", &QColor::redF, setRedF, "float: Red, 0 to 1.")
        .add_property("blue", &QColor::blue, setBlue, "int: Blue, 0 to 255.")
        .add_property("blueF", &QColor::blueF, setBlueF, "float: Blue, 0 to 1.")
        .add_property("green", &QColor::green, setGreen, "int: Green, 0 to 255.")
        .add_property("greenF", &QColor::greenF, setGreenF, "float: Green, 0 to 1.")
        .add_property("alpha", &QColor::alpha, setAlpha, "int: Opacity, 0 (clear) to 255 (opaque).")
        .add_property("alphaF", &QColor::alphaF, setAlphaF, "float: Opacity, 0 (clear) to 1 (opaque).")
        .def(bp::self == bp::self)
        .def(bp::self != bp::self);
}

} // namespace python
