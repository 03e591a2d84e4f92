#pragma once

#include "runtime/Ref.h"

#include <boost/python/detail/wrap_python.hpp>

#include <QString>
#include <QStringList>

namespace python {

/// Presents a run as plain Python presents a script started from the command line: `arguments` (the script's name
/// first) become sys.argv, and `file`, when not empty, becomes `__file__`; both stay for what the script leaves
/// running. `directory`, when not null, is searched first for modules, and taken off the search path at the end.
class ScriptArguments
{
public:
    /// Takes the interpreter lock.
    ScriptArguments(const QStringList& arguments, const QString& directory, const QString& file);
    /// Takes the interpreter lock; nothing is left to do where there is no interpreter any more.
    ~ScriptArguments();
    ScriptArguments(const ScriptArguments&) = delete;
    ScriptArguments& operator=(const ScriptArguments&) = delete;

private:
    /// The very object in sys.path: a script may have put the same folder there itself.
    Ref m_directory;
};

} // namespace python
