#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QByteArray>
#include <QString>

/// Which plug-in a file belongs to. Everything here needs the interpreter lock.
namespace python {

/// A folder as the paths of modules from it begin: absolute, or as it was given to the search path.
class FolderPrefix
{
public:
    explicit FolderPrefix(const QString& folder);

    /// Whether `path` is a str that names something in the folder.
    bool contains(PyObject* path) const;
    int length() const { return m_absolute.size(); }

private:
    QByteArray m_absolute;
    QByteArray m_given;
};

/// From before its startup script is executed until its traces are removed, a plug-in's folder is in use: the modules
/// that it imports from there are parts of it. `name` is the absolute path by which the plug-in is known.
void enterPluginFolder(const QString& name, const QString& folder);
void leavePluginFolder(const QString& name);

/// The name of the innermost folder in use that the file lies in; empty for none.
QString pluginFolderOf(PyObject* file);

} // namespace python
