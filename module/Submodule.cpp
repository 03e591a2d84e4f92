#include "module/Submodule.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

bp::object addSubmodule(const char* name)
{
    bp::scope parent;
    const std::string fullName = std::string(bp::extract<std::string>(parent.attr("__name__"))) + "." + name;
    const bp::object submodule{bp::handle<>(bp::borrowed(PyImport_AddModule(fullName.c_str())))};
    parent.attr(name) = submodule;
    return submodule;
}

} // namespace python
