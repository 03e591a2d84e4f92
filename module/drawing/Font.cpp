#include "module/Bindings.h"
#include "module/CheckedSetter.h"
#include "runtime/Errors.h"
#include "runtime/GuiThread.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QFont>

namespace bp = boost::python;

namespace python {

namespace {

constexpr double g_largestSize = 10000;

template <typename Number>
Number requireSize(const char* member, Number size)
{
    if (!(size > 0 && size <= g_largestSize))
        raise(PyExc_ValueError, "Font.%s, the size must be greater than 0 and at most %d", member,
              static_cast<int>(g_largestSize));
    return size;
}

void setPointSize(QFont& self, int size)
{
    self.setPointSize(requireSize("pointSize", size));
}
void setPointSizeF(QFont& self, double size)
{
    self.setPointSizeF(requireSize("pointSizeF", size));
}
void setPixelSize(QFont& self, int size)
{
    self.setPixelSize(requireSize("pixelSize", size));
}
void setWeight(QFont& self, int weight)
{
    if (weight < 0 || weight > 99)
        raise(PyExc_ValueError, "Font.weight, %d is not in 0 to 99", weight);
    self.setWeight(weight);
}

bp::object family(const QFont& self)
{
    return textObject(self.family());
}

QFont* makeFont(const QString& family, const bp::object& pointSize, bool bold, bool italic, bool underline)
{
    requireWindows();
    QFont font;
    if (!family.isEmpty())
        font.setFamily(family);
    if (!pointSize.is_none())
        setPointSizeF(font, bp::extract<double>(pointSize));
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    return new QFont(font);
}

bp::object written(const bp::object& self)
{
    const QFont& font = bp::extract<const QFont&>(self);
    bp::object text = bp::str("%s(%r") % bp::make_tuple(typeName(self), family(font));
    if (font.pointSizeF() > 0)
        text += bp::str(", %g") % bp::make_tuple(font.pointSizeF());
    for (const auto& [name, isOn] :
         {std::pair{"bold", font.bold()}, {"italic", font.italic()}, {"underline", font.underline()}})
        if (isOn)
            text += bp::str(", %s=True") % bp::make_tuple(name);
    return text + ")";
}

/// Qt's own description, which holds everything that the class shows.
struct FontState : bp::pickle_suite
{
    static bp::tuple getstate(const bp::object& self)
    {
        return bp::make_tuple(textState(bp::extract<const QFont&>(self)().toString()), self.attr("__dict__"));
    }
    static void setstate(const bp::object& self, const bp::tuple& state)
    {
        requireWindows();
        QFont font;
        if (!font.fromString(textFromState(state[0])))
            raise(PyExc_ValueError, "Font.__setstate__(), expected a description of a font");
        QFont& restored = bp::extract<QFont&>(self);
        restored = font;
        self.attr("__dict__").attr("update")(bp::object(state[1]));
    }
    static bool getstate_manages_dict() { return true; }
};

} // namespace

void bindFont()
{
    bp::class_<QFont> type(
        "Font", "A font of texts. A family that is not installed is replaced by the most similar one.", bp::no_init);
    type.def("__init__",
             bp::make_constructor(makeFont, bp::default_call_policies(),
                                  (bp::arg("family") = QString(), bp::arg("pointSize") = bp::object(),
                                   bp::arg("bold") = false, bp::arg("italic") = false, bp::arg("underline") = false)),
             "Font(family: str = '', pointSize: float | None = None, bold: bool = False, italic: bool = False, "
             "underline: bool = False) -> None\n\nWithout a family or a size, that of the application's font. Raises "
             "ValueError for a size of 0 or less.")
        .add_property("family", family, checkedSetter("Font.family", &QFont::setFamily),
                      "str: The name of the family, as asked for.")
        .add_property("pointSize", &QFont::pointSize, checkedSetter("Font.pointSize", setPointSize),
                      "int: The size in points, rounded; -1 when it is given in pixels.")
        .add_property("pointSizeF", &QFont::pointSizeF, checkedSetter("Font.pointSizeF", setPointSizeF),
                      "float: The size in points; -1 when it is given in pixels.")
        .add_property("pixelSize", &QFont::pixelSize, checkedSetter("Font.pixelSize", setPixelSize),
                      "int: The size in pixels; -1 when it is given in points.")
        .add_property("bold", &QFont::bold, checkedSetter("Font.bold", &QFont::setBold),
                      "bool: Heavier than normal. Setting it sets weight.")
        .add_property("italic", &QFont::italic, checkedSetter("Font.italic", &QFont::setItalic), "bool: Slanted.")
        .add_property("underline", &QFont::underline, checkedSetter("Font.underline", &QFont::setUnderline),
                      "bool: Underlined.")
        .add_property("strikeOut", &QFont::strikeOut, checkedSetter("Font.strikeOut", &QFont::setStrikeOut),
                      "bool: Struck through.")
        .add_property("weight", &QFont::weight, checkedSetter("Font.weight", setWeight),
                      "int: How heavy, 0 to 99: 25 light, 50 normal, 63 demi-bold, 75 bold, 87 black.")
        .def("__repr__", written, "__repr__() -> str")
        .def(bp::self == bp::self)
        .def(bp::self != bp::self)
        .def_pickle(FontState());
    // It can change.
    type.attr("__hash__") = bp::object();
}

} // namespace python
