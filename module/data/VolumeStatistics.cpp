#include "host/volume/VolumeHeader.h"
#include "module/Bindings.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

using hv::VolumeStatistics;

double percentile(const VolumeStatistics& self, double percent)
{
    if (!(percent >= 0.0 && percent <= 100.0))
        raise(PyExc_ValueError, "VolumeStatistics.percentile(), expected a number from 0 to 100");
    const auto value = self.percentile(percent);
    if (!value)
        raise(PyExc_RuntimeError, "VolumeStatistics.percentile(), there are no samples with a value");
    return *value;
}

} // namespace

void bindVolumeStatistics()
{
    bp::class_<VolumeStatistics>("VolumeStatistics", "Of the samples of a volume that hold a value and are numbers.",
                                 bp::no_init)
        .def("percentile", percentile, bp::args("self", "percent"),
             "percentile(percent: float) -> float\n\n"
             "The value that this many per cent of the samples do not exceed, between the kept ones on a straight "
             "line. Of large volumes from an even choice of their rows, with a relative error below 1 %.\n\n"
             "Raises ValueError outside of 0 to 100, RuntimeError when no sample has a value.")
        .def_readonly("count", &VolumeStatistics::count, "int: How many samples have a value. Read-only.")
        .def_readonly("mean", &VolumeStatistics::mean, "float: Their mean; 0 when there are none. Read-only.")
        .def_readonly("standardDeviation", &VolumeStatistics::deviation, "float: Read-only.")
        .def_readonly("minimum", &VolumeStatistics::minimum, "float: The smallest. Read-only.")
        .def_readonly("maximum", &VolumeStatistics::maximum, "float: The largest. Read-only.");
}

} // namespace python
