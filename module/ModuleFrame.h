#pragma once

#include <boost/python/detail/wrap_python.hpp>

/// module: the scripting module `strativo_python`. The frame is the ordered list of its registrations and nothing else;
/// each family of classes registers itself in a folder of its own (core, data, app, gui), one file per class.

/// Registered as a built-in module before the interpreter starts, so it exists only inside the application.
extern "C" PyObject* PyInit_strativo_python();
