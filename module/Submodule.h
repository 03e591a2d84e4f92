#pragma once

#include <boost/python/object.hpp>

namespace python {

/// Makes the module "<current scope's name>.<name>", importable under that name and an attribute of the current scope.
/// Register into it with `boost::python::scope in(addSubmodule("utils"));`.
boost::python::object addSubmodule(const char* name);

} // namespace python
