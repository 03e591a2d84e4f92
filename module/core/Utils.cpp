#include "module/Bindings.h"
#include "module/Submodule.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

void bindUtils()
{
    bp::object utils = addSubmodule("utils");
    utils.attr("__doc__") = "Conversion of points between block, survey and world coordinates.";
}

} // namespace python
