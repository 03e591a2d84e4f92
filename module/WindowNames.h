#pragma once

#include <boost/python/object.hpp>

namespace python {

/// Gives a module of values and data the names that only the application has. They can be imported and derived from, so
/// that a script whose file also makes windows gets through its import in a child process; whatever makes or calls
/// something by them raises RuntimeError.
void addWindowNames(boost::python::object module);

} // namespace python
