#include "host/display/Enumerations.h"
#include "host/kinds/randomline/RandomLineKind.h"
#include "module/Bindings.h"
#include "module/CheckedSetter.h"
#include "module/PathArgument.h"
#include "module/core/CrsArgument.h"
#include "module/data/DataHandle.h"
#include "module/data/RandomLineSection.h"
#include "module/data/VolumeHandle.h"
#include "runtime/GilLock.h"

#include <QFileInfo>

namespace bp = boost::python;

namespace python {

namespace {

using display::InterpolationMethod;
using Frame = hv::RandomLine::Frame;
/// Holds what the kind reads; the text is made when it is saved.
using Line = DataHandle<hv::RandomLineText>;

std::shared_ptr<Line> open(const PathText& path)
{
    if (!QFileInfo::exists(path.text))
        raise(PyExc_FileNotFoundError, "RandomLine, file '%s' does not exist.", path.text.toUtf8().constData());
    auto opened = Line::open(ObjectKind::RandomLine, path.text);
    if (!opened) {
        PyErr_SetString(PyExc_IOError, opened.failure().sentence.toUtf8().constData());
        raiseFromPending(PyExc_RuntimeError, "RandomLine, unable to create 'RandomLine' object");
    }
    return std::make_shared<Line>(*opened);
}

QString name(const Line& self)
{
    return QFileInfo(self.filename()).completeBaseName();
}

core::vec2 nodeOf(const bp::object& node)
{
    if (const bp::extract<const core::vec2&> point(node); point.check())
        return point();
    if (const bp::extract<const core::vec3&> point(node); point.check())
        return {point().x, point().y};
    const Py_ssize_t size = PySequence_Check(node.ptr()) && !isStr(node.ptr()) ? PySequence_Size(node.ptr()) : -1;
    PyErr_Clear();
    if (size != 2 && size != 3)
        raise(PyExc_TypeError, "RandomLine.nodes, expected points of two or three numbers but got '%s'",
              typeName(node));
    const auto number = [&](int i) {
        return Argument<double>::from(owned(PySequence_GetItem(node.ptr(), i)).ptr(), "RandomLine.nodes");
    };
    return {number(0), number(1)};
}

void setNodes(Line& self, bp::object points)
{
    hv::RandomLine line = self->line;
    line.nodes.clear();
    const bp::object iterator = owned(PyObject_GetIter(points.ptr()));
    while (PyObject* next = PyIter_Next(iterator.ptr()))
        line.nodes.push_back(nodeOf(owned(next)));
    if (PyErr_Occurred())
        raisePending();
    if (const QString fault = line.fault(); !fault.isEmpty())
        raise(PyExc_ValueError, "RandomLine.nodes, %s", fault.toUtf8().constData());
    self.edit().line = line;
}

bp::list nodes(const Line& self)
{
    bp::list points;
    for (const core::vec2& node : self->line.nodes)
        points.append(node);
    return points;
}

georef::ScaleType frame(const Line& self)
{
    return self->line.frame == Frame::Survey ? georef::ScaleType::Survey : georef::ScaleType::World;
}

void setFrame(Line& self, georef::ScaleType frame)
{
    if (frame != georef::ScaleType::World && frame != georef::ScaleType::Survey)
        raise(PyExc_ValueError, "RandomLine.frame, expected ScaleType.World or ScaleType.Survey");
    self.edit().line.frame = frame == georef::ScaleType::Survey ? Frame::Survey : Frame::World;
}

bp::object crs(const Line& self)
{
    return crsObject(self->line.crs);
}

void setCrs(Line& self, bp::object crs)
{
    const georef::Crs chosen = crsOrNone(crs, "RandomLine.crs");
    self.edit().line.crs = chosen;
}

void requireSound(const char* where, const hv::RandomLine& line)
{
    if (const QString fault = line.fault(); !fault.isEmpty())
        raise(PyExc_RuntimeError, "%s, %s", where, fault.toUtf8().constData());
}

void save(Line& self, const bp::object& path)
{
    const QString filename =
        path.is_none() ? self.filename() : Argument<PathText>::from(path.ptr(), "RandomLine.save()").text;
    const QFileInfo file(filename);
    if (filename.isEmpty())
        raise(PyExc_ValueError, "RandomLine.save(), the line has no file yet: name one");
    const bool isOwn = !self.filename().isEmpty() && file == QFileInfo(self.filename());
    if (file.exists() && !isOwn)
        raise(PyExc_FileExistsError, "RandomLine, file '%s' exists already", filename.toUtf8().constData());
    requireSound("RandomLine.save()", self->line);
    hv::RandomLine line = self->line;
    line.name = file.completeBaseName();
    Line saved(hv::RandomLineText::of(line), self.filename());
    if (const auto done = saved.save(ObjectKind::RandomLine, filename, isOwn ? Existing::Replaced : Existing::Refused);
        !done)
        raise(PyExc_IOError, "RandomLine, %s", done.failure().sentence.toUtf8().constData());
    self = saved;
}

hv::Interpolation interpolationOf(InterpolationMethod method)
{
    switch (method) {
    case InterpolationMethod::NoInterpolation:
        return hv::Interpolation::Nearest;
    case InterpolationMethod::Bilinear:
        return hv::Interpolation::Linear;
    default:
        raise(PyExc_ValueError, "RandomLine.section(), expected NoInterpolation or Bilinear");
    }
}

std::shared_ptr<RandomLineSection> section(const Line& self, const VolumeHandle& volume, InterpolationMethod method,
                                           double spacing)
{
    requireSound("RandomLine.section()", self->line);
    if (!(spacing >= 0.0))
        raise(PyExc_ValueError, "RandomLine.section(), the spacing must not be negative");
    const hv::Interpolation interpolation = interpolationOf(method);
    const auto file = volume.file();
    const hv::RandomLine line = self->line;
    auto made = [&] {
        const GilRelease unlocked;
        return hv::sectionAlong(*file, line, interpolation, spacing);
    }();
    if (!made)
        raise(PyExc_RuntimeError, "RandomLine.section(), %s", made.failure().sentence.toUtf8().constData());
    return std::make_shared<RandomLineSection>(std::move(*made));
}

} // namespace

void bindRandomLine()
{
    bp::class_<Line, std::shared_ptr<Line>>(
        "RandomLine",
        "A line on the map along which sections of volumes are cut, straight from node to node. What a script changes "
        "is its own until save().",
        bp::init<>(bp::args("self"), "__init__() -> None\n\nA line without nodes and without a file."))
        .def("__init__", bp::make_constructor(open, bp::default_call_policies(), bp::args("filename")),
             "__init__(filename: str | os.PathLike) -> None\n\n"
             "Opens a random line's file.\n\n"
             "Raises FileNotFoundError, or RuntimeError, whose cause tells what is wrong with the file.")
        .add_property(
            "filename", +[](const Line& self) { return self.filename(); },
            "str: The file that the line was read from or saved to; empty when there is none. Read-only.")
        .add_property("name", name, "str: The file's name without folder and suffix. Read-only.")
        .add_property("nodes", nodes, checkedSetter("RandomLine.nodes", setNodes),
                      "list[vec2]: A copy of the nodes: map x and y, or inline and crossline numbers, as frame says. "
                      "Anything with points of two or three numbers can be assigned: tuples, vec2, vec3, a Vec3Array, "
                      "an array of shape (n, 2) or (n, 3), whose third number is left out.\n\n"
                      "Setting raises ValueError for fewer than two nodes and for numbers that are not finite, "
                      "TypeError for what is no point.")
        .add_property("frame", frame, checkedSetter("RandomLine.frame", setFrame),
                      "ScaleType: What the nodes are: ScaleType.World, map x and y (at first), or ScaleType.Survey, "
                      "inline and crossline numbers. Setting it converts nothing; other values raise ValueError.")
        .add_property("crs", crs, checkedSetter("RandomLine.crs", setCrs),
                      "Crs | None: The reference system of nodes in map coordinates; None when it is not stated.")
        .def("save", save, (bp::arg("self"), bp::arg("filename") = bp::object()),
             "save(filename: str | os.PathLike | None = None) -> None\n\n"
             "Writes the line into a new file, or anew into its own, which None is. In the project's folder of random "
             "lines, getNewFilename() gives such a path, it becomes an object of the project.\n\n"
             "Raises FileExistsError when there is another file already, RuntimeError for a line without nodes, "
             "ValueError when no file is named, IOError when it can not be written.")
        .def("section", section,
             (bp::arg("self"), bp::arg("volume"), bp::arg("interpolation") = InterpolationMethod::Bilinear,
              bp::arg("spacing") = 0.0),
             "section(volume: Volume, interpolation: InterpolationMethod = InterpolationMethod.Bilinear, spacing: "
             "float = 0.0) -> RandomLineSection\n\n"
             "The section of a volume's file along the line. NoInterpolation takes the trace of the nearest bin, "
             "Bilinear makes it of the four around it, of which those without a value do not count. spacing is the "
             "distance of the traces in the unit of the map coordinates; 0 takes one for every bin that is crossed. "
             "Nodes in map coordinates are those of the volume: nothing is transformed between reference systems. "
             "Other Python threads run meanwhile.\n\n"
             "Raises RuntimeError for a line without nodes, a volume without a file, and when it can not be read; "
             "ValueError for another interpolation or a negative spacing.");
}

} // namespace python
