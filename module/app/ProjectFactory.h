#pragma once

#include <boost/python/object.hpp>

namespace python {

/// Who makes the Python object of the open project, called only while one is open. The project's binding sets it.
void setProjectFactory(boost::python::object (*make)());

} // namespace python
