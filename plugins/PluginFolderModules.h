#pragma once

#include <boost/python/handle.hpp>

#include <QString>

/// What a plug-in's folder leaves in the interpreter. Everything here needs the interpreter lock.
namespace python {

/// Keeps a folder at the end of sys.path for its lifetime. The destructor removes the entry by its value; when a script
/// has taken it out meanwhile, IndexError "element not found" is printed.
class PluginSearchPath
{
public:
    /// `entry` is the folder with a separator at its end.
    explicit PluginSearchPath(const QString& entry);
    ~PluginSearchPath();
    PluginSearchPath(const PluginSearchPath&) = delete;
    PluginSearchPath& operator=(const PluginSearchPath&) = delete;

    /// False with the exception pending: the entry could not be added.
    bool isAdded() const { return m_added; }

private:
    boost::python::handle<> m_entry;
    bool m_added = false;
};

/// Makes the next import of anything in `folder` read the files again: takes the modules whose files lie in it out of
/// sys.modules and drops what the finders remember of it. Modules that a plug-in was loaded as ("<init>_<digits>")
/// stay.
void forgetModulesOfFolder(const QString& folder, const QString& init);

} // namespace python
