#include "module/Bindings.h"
#include "module/Submodule.h"
#include "module/data/SegyParts.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

void bindSegy()
{
    bp::object segy = addSubmodule("segy");
    segy.attr("__doc__") = "Seismic volumes from SEG-Y files and into them.";
    const bp::scope in(segy);
    bindSegyExporter();
    bindSegyImport();
}

} // namespace python
