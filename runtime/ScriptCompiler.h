#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QString>

namespace python {

/// Compiles a whole script as a module; `fileName` is the name that tracebacks show. New reference, or null with the
/// exception pending. Unlike the interpreter's own function it refuses text with null characters instead of running
/// the part before the first one. Needs the interpreter lock.
PyObject* compileScript(const QString& code, const QString& fileName);

} // namespace python
