#include "module/data/ProjectDirectories.h"

#include "runtime/Errors.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QFileInfo>

namespace bp = boost::python;

namespace python {

namespace {

constexpr const char* g_expectedStr = "Project, expected 'str' but got '%s'";
constexpr const char* g_expectedKind = "Project, expected 'ObjectId' but got '%s'";

/// RuntimeError with a text that names `name`; the host's reason becomes its cause.
[[noreturn]] void raiseFailure(const char* format, const QString& name, const QString& reason)
{
    PyErr_SetString(PyExc_RuntimeError, reason.toUtf8().constData());
    raiseFromPending(PyExc_RuntimeError, format, name.toLocal8Bit().constData());
}

/// The str elements of a sequence; `format` has a "%s" for a wrong element's type and a "%d" for its index.
QStringList requireFilenames(const bp::object& sequence, const char* format)
{
    const Py_ssize_t size = PyObject_Size(sequence.ptr());
    if (size < 0)
        raisePending();
    QStringList names;
    for (Py_ssize_t i = 0; i < size; ++i) {
        const bp::object element = owned(PySequence_GetItem(sequence.ptr(), i));
        if (!isStr(element.ptr()))
            raise(PyExc_TypeError, format, typeName(element), static_cast<int>(i));
        names << requireStr(element, g_expectedStr);
    }
    return names;
}

/// File names become object names.
QStringList baseNames(QStringList filenames)
{
    for (QString& name : filenames)
        name = QFileInfo(name).completeBaseName();
    return filenames;
}

void addVirtualDirectory(const ProjectHandle& self, const bp::object& kind, const bp::object& name,
                         const bp::object& parent)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    const QString directory = requireStr(name, g_expectedStr);
    const QString above = parent.is_none() ? QString() : requireStr(parent, g_expectedStr);
    if (const auto done = project.directories(id).addDirectory(directory, above); !done)
        raiseFailure("Project, unable to create folder '%s'", directory, done.failure().sentence);
}

void removeVirtualDirectory(const ProjectHandle& self, const bp::object& kind, const bp::object& name)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    const QString directory = requireStr(name, g_expectedStr);
    if (const auto done = project.directories(id).removeDirectory(directory); !done)
        raiseFailure("Project, unable to remove directory '%s'", directory, done.failure().sentence);
}

bp::object getVirtualDirectories(const ProjectHandle& self)
{
    return textList(self.get().directoryNames());
}

bp::object getObjectsInVirtualDirectory(const ProjectHandle& self, const bp::object& kind, const bp::object& name)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    const QString directory = requireStr(name, g_expectedStr);
    return textList(project.objectsInDirectory(id, directory));
}

void setObjectsInVirtualDirectory(const ProjectHandle& self, const bp::object& objects, const bp::object& kind,
                                  const bp::object& name)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    const QString directory = requireStr(name, g_expectedStr);
    const QStringList filenames = requireFilenames(objects, "expected 'str' but got '%s' at index %d");
    if (filenames.isEmpty())
        raise(PyExc_RuntimeError, "Project, empty list supplied");
    if (const auto done = project.directories(id).fileObjects(baseNames(filenames), directory); !done)
        raiseFailure("Project, unable to add files to folder '%s'", directory, done.failure().sentence);
}

bp::object singleElementList(const bp::object& object)
{
    bp::list list;
    list.append(object);
    return list;
}

void setObjectInVirtualDirectory(const ProjectHandle& self, const bp::object& object, const bp::object& kind,
                                 const bp::object& name)
{
    setObjectsInVirtualDirectory(self, singleElementList(object), kind, name);
}

void removeObjectsFromVirtualDirectory(const ProjectHandle& self, const bp::object& objects, const bp::object& kind)
{
    HVProject& project = self.get();
    const ObjectKind id = requireObjectKind(kind, g_expectedKind);
    const QStringList filenames = requireFilenames(objects, "Project, expected 'str' but got '%s' at index %d");
    for (const QString& filename : filenames)
        if (!QFileInfo::exists(filename))
            raise(PyExc_RuntimeError, "Project, object '%s' does not exist", filename.toLocal8Bit().constData());
    if (const auto done = project.directories(id).unfileObjects(baseNames(filenames)); !done)
        raise(PyExc_RuntimeError, "Project, %s", done.failure().sentence.toUtf8().constData());
}

void removeObjectFromVirtualDirectory(const ProjectHandle& self, const bp::object& object, const bp::object& kind)
{
    removeObjectsFromVirtualDirectory(self, singleElementList(object), kind);
}

void addTopLevelDirectory(const ProjectHandle& self, const bp::object& kind, const bp::object& name)
{
    addVirtualDirectory(self, kind, name, bp::object());
}

} // namespace

bp::object textList(const QStringList& texts)
{
    const bp::object list = owned(PyList_New(texts.size()));
    for (int i = 0; i < texts.size(); ++i)
        PyList_SET_ITEM(list.ptr(), i, bp::incref(textObject(texts[i]).ptr()));
    return list;
}

// The methods take no keywords.
void defineDirectoryMethods(bp::class_<ProjectHandle>& project)
{
    project
        .def(
            "addVirtualDirectory", addVirtualDirectory,
            "addVirtualDirectory(kind: ObjectId, name: str, parent: str | None = None, /) -> None\n\n"
            "Makes a virtual directory for objects of a kind. parent is the directory of the same kind that it is put "
            "into; '' and None make it a top-level one.\n\n"
            "Raises RuntimeError when the kind has a directory of this name already, when the parent is not there, and "
            "when the name is impossible or can not be stored; the cause says which.")
        .def("addVirtualDirectory", addTopLevelDirectory)
        .def("removeVirtualDirectory", removeVirtualDirectory,
             "removeVirtualDirectory(kind: ObjectId, name: str, /) -> None\n\n"
             "Removes a virtual directory. What is in it moves to its parent; of a top-level directory the objects are "
             "in "
             "none then. No file is touched.\n\n"
             "Raises RuntimeError when there is no such directory.")
        .def("getVirtualDirectories", getVirtualDirectories,
             "getVirtualDirectories() -> list[str]\n\n"
             "The names of the virtual directories of all kinds, each name once.")
        .def("setObjectsInVirtualDirectory", setObjectsInVirtualDirectory,
             "setObjectsInVirtualDirectory(objects: Sequence[str], kind: ObjectId, name: str, /) -> None\n\n"
             "Files objects, given by their file names, into a virtual directory. An object is in one directory at "
             "most. Objects need not exist yet.\n\n"
             "Raises TypeError when an element is not a str, RuntimeError when objects is empty, when there is no such "
             "directory and when it can not be stored; the cause says which.")
        .def("setObjectInVirtualDirectory", setObjectInVirtualDirectory,
             "setObjectInVirtualDirectory(object: str, kind: ObjectId, name: str, /) -> None\n\n"
             "Files one object; see setObjectsInVirtualDirectory().")
        .def("removeObjectsFromVirtualDirectory", removeObjectsFromVirtualDirectory,
             "removeObjectsFromVirtualDirectory(objects: Sequence[str], kind: ObjectId, /) -> None\n\n"
             "Takes objects, given by their file names, out of their virtual directory.\n\n"
             "Raises TypeError when an element is not a str, RuntimeError when a file is not there.")
        .def("removeObjectFromVirtualDirectory", removeObjectFromVirtualDirectory,
             "removeObjectFromVirtualDirectory(object: str, kind: ObjectId, /) -> None\n\n"
             "Takes one object out; see removeObjectsFromVirtualDirectory().")
        .def("getObjectsInVirtualDirectory", getObjectsInVirtualDirectory,
             "getObjectsInVirtualDirectory(kind: ObjectId, name: str, /) -> list[str]\n\n"
             "The file names of the objects in a virtual directory, in the order of their names; empty when there is "
             "no such directory. An object without a file in the project is listed with the file name that it would "
             "have.");
}

} // namespace python
