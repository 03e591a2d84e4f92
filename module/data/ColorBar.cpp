#include "host/display/ColorBar.h"

#include "host/display/PaletteCatalogue.h"
#include "host/formats/ColorBarFile.h"
#include "module/Bindings.h"
#include "module/PathArgument.h"
#include "module/data/ColorTuple.h"
#include "module/data/DataHandle.h"
#include "runtime/Errors.h"
#include "runtime/NumberArguments.h"

#include <boost/python.hpp>

#include <QFileInfo>

namespace bp = boost::python;

namespace python {

namespace {

using display::ColorBar;
using display::PaletteCatalogue;
using Bar = DataHandle<ColorBar>;

void save(Bar& self, const PathText& path)
{
    const QString filename = path.text;
    const QByteArray shown = filename.toUtf8();
    const QFileInfo file(filename);
    if (file.exists())
        raise(PyExc_FileExistsError, "ColorBar, file '%s' already exists", shown.constData());
    Bar renamed = self;
    if (self->name() != file.completeBaseName()) {
        if (PyErr_WarnEx(PyExc_RuntimeWarning,
                         "ColorBar, filename and ColorBar.name do not match, overwriting ColorBar.name", 1) < 0)
            raisePending();
        renamed.edit().setName(file.completeBaseName());
    }
    if (const auto saved = renamed.save(ObjectKind::ColorBar, filename, Existing::Refused); !saved) {
        PyErr_SetString(PyExc_IOError, saved.failure().sentence.toUtf8().constData());
        raiseFromPending(PyExc_IOError, "ColorBar, unable to create file '%s'", shown.constData());
    }
    self = renamed;
}

Bar fromFile(const PathText& path, const QString& name)
{
    const QString filename = path.text;
    const QByteArray shown = filename.toUtf8();
    if (!QFileInfo::exists(filename))
        raise(PyExc_FileNotFoundError, "ColorBar.fromFile(), file '%s' does not exist", shown.constData());
    if (name.isEmpty())
        if (auto opened = Bar::open(ObjectKind::ColorBar, filename))
            return *opened;
    // One map of several; or once more, for the bare reason.
    const auto bar = display::readColorBar(filename, name);
    if (!bar)
        raise(PyExc_IOError, "ColorBar.fromFile(), unable to read file '%s': %s", shown.constData(),
              bar.failure().sentence.toUtf8().constData());
    return {*bar, filename};
}

Bar namedByType(display::ColorBarType type)
{
    const auto* palette = PaletteCatalogue::instance().find(type);
    if (!palette)
        raise(PyExc_ValueError, "ColorBar.named(), there is no palette with the number %d", static_cast<int>(type));
    return palette->colorBar;
}

Bar namedByIdentifier(const QString& identifier)
{
    const auto* palette = PaletteCatalogue::instance().find(identifier);
    if (!palette)
        raise(PyExc_ValueError, "ColorBar.named(), there is no palette '%s'", identifier.toUtf8().constData());
    return palette->colorBar;
}

bp::list paletteNames()
{
    bp::list names;
    for (const auto& palette : PaletteCatalogue::instance().palettes())
        names.append(palette.identifier);
    return names;
}

int length(const Bar& /*self*/)
{
    return ColorBar::Count;
}

std::size_t entryIndex(const bp::object& index)
{
    const long long entry = requirePosition(index, "ColorBar, expected 'int' but got '%s'");
    if (!isValidIndex(entry, ColorBar::Count))
        raise(PyExc_IndexError, "ColorBar, index %R is not in [0, %d)", index.ptr(), ColorBar::Count);
    return static_cast<std::size_t>(entry);
}

bp::object item(const Bar& self, const bp::object& index)
{
    return colorTuple(self->colors()[entryIndex(index)]);
}

void setItem(Bar& self, const bp::object& index, const bp::object& color)
{
    const std::size_t entry = entryIndex(index);
    const QRgb chosen = colorFromTuple("ColorBar", color);
    self.edit().setColor(static_cast<int>(entry), chosen);
}

bp::list colors(const Bar& self)
{
    bp::list all;
    for (const QRgb color : self->colors())
        all.append(colorTuple(color));
    return all;
}

void setColors(Bar& self, const bp::object& sequence)
{
    const Py_ssize_t count = PySequence_Check(sequence.ptr()) ? PySequence_Size(sequence.ptr()) : -1;
    if (count < 0)
        raise(PyExc_TypeError, "ColorBar.colors, expected a sequence of colours but got '%s'", typeName(sequence));
    if (count < 1 || count > ColorBar::Count)
        raise(PyExc_ValueError, "ColorBar.colors, expected 1 to %d colours but got %zd", ColorBar::Count, count);
    QVector<QRgb> bands;
    for (Py_ssize_t i = 0; i < count; ++i)
        bands.append(colorFromTuple("ColorBar.colors", owned(PySequence_GetItem(sequence.ptr(), i))));
    self.edit().setBands(bands);
}

void setRange(Bar& self, double minimum, double maximum)
{
    if (!self.edit().setRange(minimum, maximum))
        raise(PyExc_ValueError, "ColorBar.setRange(), minimum must be less than maximum and both finite");
}

bp::tuple bounds(const Bar& self)
{
    return bp::make_tuple(self->firstBound(), self->lastBound());
}

[[noreturn]] void raiseBounds(const char* function)
{
    raise(PyExc_ValueError, "ColorBar.%s, the bounds must satisfy 0 <= first < last < %d", function, ColorBar::Count);
}

void setBounds(Bar& self, const bp::object& pair)
{
    int first = 0, last = 0;
    if (!PyTuple_Check(pair.ptr()) || PyTuple_GET_SIZE(pair.ptr()) != 2)
        raise(PyExc_TypeError, "ColorBar.bounds, expected a tuple of two integers but got '%s'", typeName(pair));
    if (!PyArg_ParseTuple(pair.ptr(), "ii;ColorBar.bounds, expected a tuple of two integers", &first, &last))
        raisePending();
    if (!self.edit().setBounds(first, last))
        raiseBounds("bounds");
}

void interpolate(Bar& self, int first, int last, display::ColorSpace space)
{
    if (!display::isColorSpace(space))
        raise(PyExc_ValueError, "ColorBar.interpolate(), unknown colour space %d", static_cast<int>(space));
    if (!self.edit().interpolate(first, last, space))
        raiseBounds("interpolate()");
}

void stretchBounds(Bar& self)
{
    self.edit().stretch(self->firstBound(), self->lastBound(), false);
}

void stretch(Bar& self, int first, int last)
{
    if (!self.edit().stretch(first, last, false))
        raiseBounds("stretch()");
}

bp::object optionalColor(const std::optional<QRgb>& color)
{
    return color ? colorTuple(*color) : bp::object();
}

std::optional<QRgb> optionalFrom(const char* function, const bp::object& color)
{
    return color.is_none() ? std::nullopt : std::optional(colorFromTuple(function, color));
}

/// The file format holds everything but the bounds.
struct Pickling : bp::pickle_suite
{
    static bp::tuple getstate(const Bar& bar)
    {
        const QByteArray map = display::writeColorMap(*bar);
        return bp::make_tuple(owned(PyBytes_FromStringAndSize(map.constData(), map.size())), bounds(bar));
    }

    static void setstate(Bar& bar, const bp::tuple& state)
    {
        const bp::object map = state[0];
        const hv::Result<ColorBar> read =
            PyBytes_Check(map.ptr())
                ? display::readColorMap({PyBytes_AS_STRING(map.ptr()), static_cast<int>(PyBytes_GET_SIZE(map.ptr()))},
                                        {})
                : hv::Failure(QStringLiteral("the state is not that of a colour bar"));
        if (!read)
            raise(PyExc_ValueError, "ColorBar.__setstate__(), %s", read.failure().sentence.toUtf8().constData());
        Bar restored(*read);
        setBounds(restored, state[1]);
        bar = restored;
    }
};

} // namespace

void bindColorBar()
{
    bp::class_<Bar> type(
        "ColorBar",
        "Maps values to colours by 256 entries that span the values from minimum to maximum. A colour is a tuple of "
        "red, green, blue and alpha, each 0 to 255; where one is expected, alpha may be left out (255). Entries are "
        "counted from 0.",
        bp::no_init);
    type.def(bp::init<>(bp::args("self"), "ColorBar() -> None\n\nA grey scale from black to white over [0, 1]."))
        .def("fromFile", fromFile, (bp::arg("filename"), bp::arg("name") = QString()),
             "fromFile(filename: str | os.PathLike, name: str = '') -> ColorBar\n\n"
             "Reads a ParaView colour map (.json) or a GMT colour palette table (.cpt). name picks one of several "
             "colour "
             "maps in a file.\n\n"
             "Raises FileNotFoundError, or IOError that tells what is wrong and in which line.")
        .staticmethod("fromFile")
        .def("named", namedByIdentifier, bp::args("palette"),
             "named(palette: str) -> ColorBar\n\n"
             "A copy of a predefined palette by its identifier ('SEISMIC', see paletteNames()).\n\n"
             "Raises ValueError when there is no such palette.")
        .def("named", namedByType, bp::args("palette"),
             "named(palette: ColorBarType) -> ColorBar\n\n"
             "By its type. The number 11 gives 'GREEN'; ColorBarType.AI gives 'VELOCITY'.\n\n"
             "Raises ValueError for a number without a palette.")
        .staticmethod("named")
        .def("paletteNames", paletteNames,
             "paletteNames() -> list[str]\n\nThe identifiers of the predefined palettes, in the catalogue's order.")
        .staticmethod("paletteNames")
        .def("__len__", length, bp::args("self"), "__len__() -> int\n\n256.")
        .def("__getitem__", item, bp::args("self", "index"),
             "__getitem__(index: int) -> tuple[int, int, int, int]\n\n"
             "The colour of one entry. Raises IndexError outside [0, 256).")
        .def("__setitem__", setItem, bp::args("self", "index", "color"),
             "__setitem__(index: int, color: Sequence[int]) -> None\n\n"
             "Sets the colour of one entry. Raises IndexError outside [0, 256).")
        .def("setRange", setRange, bp::args("self", "minimum", "maximum"),
             "setRange(minimum: float, maximum: float) -> None\n\n"
             "Sets the values that the first and the last entry stand for. Raises ValueError unless minimum < maximum.")
        .def(
            "colorOf", +[](const Bar& self, double value) { return colorTuple(self->colorOf(value)); },
            bp::args("self", "value"),
            "colorOf(value: float) -> tuple[int, int, int, int]\n\n"
            "The colour of a data value: not-a-number and NO_VALUE give noValueColor, values outside the range "
            "belowColor and aboveColor.")
        .def("interpolate", interpolate,
             (bp::arg("self"), bp::arg("first"), bp::arg("last"), bp::arg("space") = display::ColorSpace::RGB),
             "interpolate(first: int, last: int, space: ColorSpace = ColorSpace.RGB) -> None\n\n"
             "Replaces the entries between two others by the way from the one to the other, straight in the given "
             "colour space.\n\n"
             "Raises ValueError unless 0 <= first < last < 256.")
        .def(
            "interpolate", +[](Bar& self) { self.edit().interpolate(); }, bp::args("self"),
            "interpolate() -> None\n\nBetween the two entries of bounds, in RGB.")
        .def("stretch", stretch, bp::args("self", "first", "last"),
             "stretch(first: int, last: int) -> None\n\n"
             "Spreads the entries first to last over the whole bar. Every new entry is one of the old ones, nothing is "
             "blended.\n\n"
             "Raises ValueError unless 0 <= first < last < 256.")
        .def("stretch", stretchBounds, bp::args("self"), "stretch() -> None\n\nThe entries between the two of bounds.")
        .def("save", save, bp::args("self", "filename"),
             "save(filename: str | os.PathLike) -> None\n\n"
             "Writes a new file: a GMT colour palette table when the suffix is .cpt, otherwise a ParaView colour map "
             "(JSON). The name becomes the file's base name, with a RuntimeWarning when it was another.\n\n"
             "Raises FileExistsError when there is a file already, IOError when it can not be written; its cause says "
             "why.")
        .def_pickle(Pickling());
    type.add_property(
            "name", +[](const Bar& self) { return self->name(); },
            +[](Bar& self, const QString& name) { self.edit().setName(name); },
            "str: The name; the base name of the file that the bar was read from or saved to.")
        .add_property(
            "colors", colors, setColors,
            "list[tuple[int, int, int, int]]: A copy of the 256 entries. Fewer may be assigned: each then fills "
            "an equal part of the bar.")
        .add_property(
            "filename", +[](const Bar& self) { return self.filename(); },
            "str: The file that the bar was read from or saved to; empty when there is none. Read-only.")
        .add_property(
            "minimum", +[](const Bar& self) { return self->minimum(); },
            "float: The value that the first entry stands for. Read-only.")
        .add_property(
            "maximum", +[](const Bar& self) { return self->maximum(); },
            "float: The value that the last entry stands for. Read-only.")
        .add_property("bounds", bounds, setBounds,
                      "tuple[int, int]: Two marked entries, first < last; (0, 255) at first.")
        .add_property(
            "noValueColor", +[](const Bar& self) { return colorTuple(self->noValueColor()); },
            +[](Bar& self, const bp::object& color) {
                const auto chosen = colorFromTuple("ColorBar.noValueColor", color);
                self.edit().setNoValueColor(chosen);
            },
            "tuple[int, int, int, int]: For samples without a value; transparent at first.")
        .add_property(
            "belowColor", +[](const Bar& self) { return optionalColor(self->belowColor()); },
            +[](Bar& self, const bp::object& color) {
                const auto chosen = optionalFrom("ColorBar.belowColor", color);
                self.edit().setBelowColor(chosen);
            },
            "tuple[int, int, int, int] | None: For values below minimum; None takes the first entry.")
        .add_property(
            "aboveColor", +[](const Bar& self) { return optionalColor(self->aboveColor()); },
            +[](Bar& self, const bp::object& color) {
                const auto chosen = optionalFrom("ColorBar.aboveColor", color);
                self.edit().setAboveColor(chosen);
            },
            "tuple[int, int, int, int] | None: For values above maximum; None takes the last entry.");
}

} // namespace python
