#include "module/Bindings.h"
#include "module/core/CrsArgument.h"
#include "module/data/ProjectChanges.h"
#include "module/data/ProjectDirectories.h"
#include "module/data/ProjectHandle.h"
#include "runtime/Errors.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QThread>

namespace bp = boost::python;

namespace python {

namespace {

IconMaker g_makeIcon = nullptr; // NOLINT: set once, when the module is made

constexpr const char* g_expectedStr = "Project, expected 'str' but got '%s'";
constexpr const char* g_expectedKind = "Project, expected 'ObjectId' but got '%s'";

bp::object path(const ProjectHandle& self)
{
    return textObject(self.get().path());
}

bp::object crs(const ProjectHandle& self)
{
    return crsObject(self.get().crs());
}

void setCrs(const ProjectHandle& self, const bp::object& value)
{
    HVProject& project = self.get();
    if (const auto done = project.setCrs(crsOrNone(value, "Project.crs")); !done)
        raise(PyExc_RuntimeError, "Project.crs, %s", done.failure().sentence.toUtf8().constData());
}

bool hasCrs(const ProjectHandle& self)
{
    return self.get().hasCrs();
}

bp::object allObjects(const ProjectHandle& self)
{
    QStringList paths;
    for (const ObjectKindInfo& info : objectKinds())
        if (info.kind != ObjectKind::PythonScript)
            paths << self.get().objects(info.kind);
    return textList(paths);
}

bp::object objectsOfKind(const ProjectHandle& self, const bp::object& kind)
{
    return textList(self.get().objects(requireObjectKind(kind, g_expectedKind)));
}

bp::object getFilename(const ProjectHandle& self, const bp::object& kind, const bp::object& name)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    const QString text = requireStr(name, g_expectedStr);
    const QString filename = project.filename(id, text);
    if (filename.isEmpty())
        raise(PyExc_ValueError, "Project, '%s' cannot be the name of an object", text.toUtf8().constData());
    return textObject(filename);
}

QString newFilename(HVProject& project, ObjectKind kind, const QString& name)
{
    if (!HVProject::isObjectName(name))
        raise(PyExc_ValueError, "Project, '%s' cannot be the name of an object", name.toUtf8().constData());
    const auto filename = project.newFilename(kind, name);
    if (!filename)
        raise(PyExc_RuntimeError, "Project, %s", filename.failure().sentence.toUtf8().constData());
    return *filename;
}

bp::object getNewFilename(const ProjectHandle& self, const bp::object& kind, const bp::object& name)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    return textObject(newFilename(project, id, requireStr(name, g_expectedStr)));
}

bp::object getDefaultFilename(const ProjectHandle& self, const bp::object& kind)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    return textObject(newFilename(project, id, QString::fromLatin1(objectKindInfo(id).singular)));
}

bp::object icon(const ProjectHandle& self, const bp::object& kind)
{
    self.get();
    const ObjectKindInfo& info = objectKindInfo(requireObjectKind(kind, g_expectedKind));
    if (!g_makeIcon)
        raise(PyExc_RuntimeError, "Project.icon(), icons need the application's windows");
    return g_makeIcon(QLatin1String(info.icon));
}

bp::object equals(const ProjectHandle& self, const bp::object& other)
{
    const bp::extract<const ProjectHandle&> handle(other);
    if (!handle.check())
        return bp::object(bp::handle<>(bp::borrowed(Py_NotImplemented)));
    return bp::object(self == handle());
}

} // namespace

void setIconMaker(IconMaker make)
{
    g_makeIcon = make;
}

HVProject& ProjectHandle::get() const
{
    if (!m_project)
        raise(PyExc_RuntimeError, "Project, the project has been closed");
    if (m_project->thread() != QThread::currentThread())
        raise(PyExc_RuntimeError, "Project, can only be used on the main thread");
    return *m_project;
}

bp::object projectObject(HVProject* project)
{
    return project ? bp::object(ProjectHandle(project)) : bp::object();
}

void bindProject()
{
    bp::class_<ProjectHandle> project(
        "Project",
        "The open project: a folder with a folder of files for each kind of object. getProject() gives it.\n\n"
        "An object's name is its file's name without folder and suffix. After the project was closed, and on another "
        "thread than the main one, every use raises RuntimeError.",
        bp::no_init);
    project.add_property("path", path, "str: The project's folder, an absolute path. Read-only.")
        .add_property(
            "crs", crs, setCrs,
            "Crs | None: The reference system of the project's map coordinates; None when it has none.\n\n"
            "Setting raises TypeError for anything but a Crs or None, RuntimeError when it can not be stored.")
        .def("hasCrs", hasCrs, "hasCrs() -> bool\n\nWhether the project has a reference system.")
        .def("objects", allObjects,
             "objects() -> list[str]\n\n"
             "The file names of all objects of the project, kind by kind, in the order of their names.")
        .def("objects", objectsOfKind,
             "objects(kind: ObjectId, /) -> list[str]\n\n"
             "The file names of the project's objects of one kind, in the order of their names.")
        .def("getFilename", getFilename,
             "getFilename(kind: ObjectId, name: str, /) -> str\n\n"
             "The file name of the object of a name, whether it exists or not.\n\n"
             "Raises ValueError when name is not possible: empty, too long, with a slash or a control character.")
        .def(
            "getNewFilename", getNewFilename,
            "getNewFilename(kind: ObjectId, name: str = ..., /) -> str\n\n"
            "A file name that no object has yet, in a folder that exists: of name, or of 'name 2', 'name 3' and so on. "
            "Without a name that of the kind is taken.\n\n"
            "Raises ValueError when name is not possible, RuntimeError when the folder can not be made.")
        .def("getNewFilename", getDefaultFilename)
        .def("icon", icon, "icon(kind: ObjectId, /) -> Icon\n\nThe icon of a kind, as the project browser shows it.");
    defineDirectoryMethods(project);
    defineChangeMethods(project);
    // A handle is as good as another of the same project; one that compares equal has no lasting identity to hash.
    project.def("__eq__", equals, "__eq__(other: object) -> bool\n\nWhether both stand for the same open project.");
    project.attr("__hash__") = bp::object();
}

} // namespace python
