#include "module/Bindings.h"
#include "module/CheckedSetter.h"
#include "module/drawing/ColorArgument.h"
#include "runtime/Errors.h"
#include "runtime/TextConversion.h"

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

QColor* copyColor(const QColor& color)
{
    return new QColor(color);
}

bp::object written(const bp::object& self)
{
    const QColor& color = bp::extract<const QColor&>(self);
    const QString alpha = color.alpha() == 255 ? QString() : QStringLiteral(", %1").arg(color.alpha());
    return textObject(QStringLiteral("%1(%2, %3, %4%5)")
                          .arg(typeName(self))
                          .arg(color.red())
                          .arg(color.green())
                          .arg(color.blue())
                          .arg(alpha));
}

/// The components as they are stored, in 16 bits each.
struct ColorState : bp::pickle_suite
{
    static bp::tuple getstate(const bp::object& self)
    {
        const QRgba64 stored = bp::extract<const QColor&>(self)().rgba64();
        return bp::make_tuple(int{stored.red()}, int{stored.green()}, int{stored.blue()}, int{stored.alpha()},
                              self.attr("__dict__"));
    }
    static void setstate(const bp::object& self, const bp::tuple& state)
    {
        const auto component = [&](int index) { return bp::extract<quint16>(bp::object(state[index]))(); };
        QColor& color = bp::extract<QColor&>(self);
        color = QColor::fromRgba64(component(0), component(1), component(2), component(3));
        self.attr("__dict__").attr("update")(bp::object(state[4]));
    }
    static bool getstate_manages_dict() { return true; }
};

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
    bp::class_<QColor> type("Color",
                            "A colour; alpha 255 is opaque. Wherever a Color is wanted there can stand as well one of "
                            "Colors, a name (\"#ff8000\", \"steelblue\"), or a tuple (red, green, blue) or (red, "
                            "green, blue, alpha).",
                            bp::no_init);
    type.def("__init__",
             bp::make_constructor(
                 makeColor, bp::default_call_policies(),
                 (bp::arg("red") = 0, bp::arg("green") = 0, bp::arg("blue") = 0, bp::arg("alpha") = 255)),
             "Color(red: int = 0, green: int = 0, blue: int = 0, alpha: int = 255) -> None\n\n"
             "Raises ValueError for a component outside 0 to 255.")
        .def("__init__", bp::make_constructor(copyColor, bp::default_call_policies(), bp::arg("color")),
             "Color(color: Color | Colors | str | tuple[int, ...]) -> None\n\nThe same colour. A name is \"#rgb\", "
             "\"#rrggbb\", \"#aarrggbb\" or one of SVG's. Raises ValueError for a name that is no colour.")
        .add_property("red", &QColor::red, checkedSetter("Color.red", setRed), "int: Red, 0 to 255.")
        .add_property("redF", &QColor::redF, checkedSetter("Color.redF", setRedF), "float: Red, 0 to 1.")
        .add_property("blue", &QColor::blue, checkedSetter("Color.blue", setBlue), "int: Blue, 0 to 255.")
        .add_property("blueF", &QColor::blueF, checkedSetter("Color.blueF", setBlueF), "float: Blue, 0 to 1.")
        .add_property("green", &QColor::green, checkedSetter("Color.green", setGreen), "int: Green, 0 to 255.")
        .add_property("greenF", &QColor::greenF, checkedSetter("Color.greenF", setGreenF), "float: Green, 0 to 1.")
        .add_property("alpha", &QColor::alpha, checkedSetter("Color.alpha", setAlpha),
                      "int: Opacity, 0 (clear) to 255 (opaque).")
        .add_property("alphaF", &QColor::alphaF, checkedSetter("Color.alphaF", setAlphaF),
                      "float: Opacity, 0 (clear) to 1 (opaque).")
        .add_property(
            "name",
            +[](const QColor& self) { return self.name(self.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb); },
            "str: \"#rrggbb\", or \"#aarrggbb\" when it is not opaque. Read-only.")
        .def("__repr__", written, "__repr__() -> str")
        .def(bp::self == bp::self)
        .def(bp::self != bp::self)
        .def_pickle(ColorState());
    // It can change.
    type.attr("__hash__") = bp::object();
    registerColorArguments();
}

} // namespace python
