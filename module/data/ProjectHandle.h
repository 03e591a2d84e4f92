#pragma once

#include "host/data/HVProject.h"

#include <boost/python/object.hpp>

#include <QPointer>

/// module/data: the project and what it holds, as scripts see it.
namespace python {

/// What a script holds of the open project: it keeps nothing alive. After the project was closed, and on any thread
/// but the project's own, every use raises RuntimeError.
class ProjectHandle
{
public:
    explicit ProjectHandle(HVProject* project) : m_project(project) {}

    /// The project, or the exception; never null.
    HVProject& get() const;
    bool operator==(const ProjectHandle& other) const { return m_project == other.m_project; }

private:
    QPointer<HVProject> m_project;
};

/// A Python `Project` for the host's project; None for null. Needs the interpreter lock.
boost::python::object projectObject(HVProject* project);

/// The kind that an ObjectId argument names; anything else is a TypeError, whose `format` holds one "%s" for the type.
ObjectKind requireObjectKind(const boost::python::object& argument, const char* format);

/// Makes the Python object of a built-in icon. The windows' half of the module sets it; without that half there are
/// none.
using IconMaker = boost::python::object (*)(const QString& name);
void setIconMaker(IconMaker make);

} // namespace python
