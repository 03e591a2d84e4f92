#pragma once

#include "runtime/HVPythonStreamCapture.h"

#include <boost/python/detail/wrap_python.hpp>

namespace python {

/// Defines the class "__HVPythonStreamCapture" in `mainModule` and puts the two objects, which the caller owns and
/// keeps until the interpreter is finalised, in place of sys.stdout and sys.stderr.
void installStreamCapture(PyObject* mainModule, HVPythonStreamCapture& standardOutput,
                          HVPythonStreamCapture& standardError);

/// Puts the captures back where a script left sys.stdout or sys.stderr None or missing; redirections stay.
void restoreLostStreams();

} // namespace python
