#include "module/Bindings.h"
#include "module/Submodule.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

void bindSegy()
{
    bp::object segy = addSubmodule("segy");
    segy.attr("__doc__") = "Export of seismic volumes to SEG-Y files.";
}

} // namespace python
