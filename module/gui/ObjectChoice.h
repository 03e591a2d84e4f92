#pragma once

#include "host/data/HVProject.h"
#include "module/gui/Property.h"

#include <boost/python.hpp>

#include <QPointer>

#include <optional>
#include <set>

/// What the widgets that choose an object of the project have in common: the kinds that they offer and the object that
/// is chosen, which scripts know by its file name and its kind, as those of `Project`.
namespace python {

/// The class's messages. `kind` and `listedKind` hold one "%s" for a type's name.
struct ChoiceTexts
{
    const char* className;
    const char* kind;
    const char* listedKind;
    const char* noProject;
};

/// The file of a chosen object: a str, None for no object.
struct ChosenFile
{
    ChosenFile(const QString& file) : path(file) {} // implicit: it stands for the QString of a signal
    QString path;
};
inline PyObject* toPython(const ChosenFile& file)
{
    return file.path.isEmpty() ? boost::python::incref(Py_None) : toPython(file.path);
}

/// In the order in which the project browser has them.
boost::python::object kindList(const std::set<ObjectKind>& kinds);
/// The kinds in an argument: an ObjectId, several of them, or None for all, which is the empty set.
std::set<ObjectKind> kindsArgument(const boost::python::object& value, const ChoiceTexts& texts);
/// The file name in an argument, a str or os.PathLike; empty for None.
QString fileArgument(const boost::python::object& value, const ChoiceTexts& texts);
[[noreturn]] void raiseNotOffered(const QString& path, const ChoiceTexts& texts);

/// The widget in `Q` that chooses, and how an object is chosen there: false for what can not be.
template <typename Q>
struct Chooser
{
    static Q& of(Q& widget) { return widget; }
    static bool choose(Q& widget, const QString& path) { return widget.setObject(path); }
};

template <typename Q>
boost::python::object kinds(Q& widget)
{
    return kindList(Chooser<Q>::of(widget).kinds());
}

template <typename Q, const ChoiceTexts& texts>
void setKinds(Q& widget, const boost::python::object& value)
{
    // Going through the kinds may run code of the script, which may destroy the widget.
    const QPointer<Q> living(&widget);
    std::set<ObjectKind> kinds = kindsArgument(value, texts);
    if (!living)
        raise(PyExc_RuntimeError, "%s has been deleted", texts.className);
    Chooser<Q>::of(widget).setKinds(std::move(kinds));
}

template <typename Q>
ChosenFile objectFilename(Q& widget)
{
    return Chooser<Q>::of(widget).object();
}

template <typename Q, const ChoiceTexts& texts>
void setObjectFilename(Q& widget, const boost::python::object& value)
{
    const QString path = fileArgument(value, texts);
    if (path.isEmpty()) {
        Chooser<Q>::of(widget).setObject({});
        return;
    }
    if (!Chooser<Q>::of(widget).project())
        raise(PyExc_RuntimeError, "%s", texts.noProject);
    if (!Chooser<Q>::choose(widget, path))
        raiseNotOffered(path, texts);
}

template <typename Q>
boost::python::object objectId(Q& widget)
{
    const auto& chooser = Chooser<Q>::of(widget);
    const QString path = chooser.object();
    const HVProject* project = chooser.project();
    const std::optional<ObjectKind> kind = project && !path.isEmpty() ? project->kindOf(path) : std::nullopt;
    return kind ? boost::python::object(*kind) : boost::python::object();
}

template <typename Q, const ChoiceTexts& texts>
PyGetSetDef kindsProperty()
{
    return property<kinds<Q>, setKinds<Q, texts>>("kinds",
                                                  "list[ObjectId]: The kinds of object to choose from, all of them at "
                                                  "first. One ObjectId can be set as well, and None for all.");
}

template <typename Q, const ChoiceTexts& texts>
PyGetSetDef objectFilenameProperty()
{
    return property<objectFilename<Q>, setObjectFilename<Q, texts>>(
        "objectFilename",
        "str | None: The file of the chosen object, an absolute path, as Project.objects() has it; "
        "None when none is chosen. An os.PathLike can be set as well. Setting raises ValueError for what is "
        "no object to choose from, RuntimeError when no project is open.");
}

template <typename Q>
PyGetSetDef objectIdProperty()
{
    return readOnly<objectId<Q>>("objectId",
                                 "ObjectId | None: The kind of the chosen object; None when none is chosen.");
}

} // namespace python
