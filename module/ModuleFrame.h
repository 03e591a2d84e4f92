#pragma once

#include <boost/python/detail/wrap_python.hpp>

/// module: the scripting module `strativo_python`. The frame is the ordered list of its registrations and nothing else
/// (Registrations.h); each family of classes registers itself in a folder of its own, one file per class: core, data
/// and drawing are values and data, which child processes have too (ValuesModule.cpp), gui and app windows and the
/// application.

extern "C" PyObject* PyInit_strativo_python();

namespace python {

/// Gives interpreters the module, as a built-in one that exists only inside the application, and running code the
/// windows that it needs by itself. Once per process, before the execution context is made.
void installScripting();

} // namespace python
