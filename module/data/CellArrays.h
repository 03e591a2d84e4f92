#pragma once

#include "module/data/CellChoice.h"
#include "module/data/VolumeHandle.h"

namespace python {

/// The cells as an array, or the one that no slice names as a float. Gives the interpreter lock away meanwhile.
boost::python::object readArray(const hv::VolumeFile& file, const CellChoice& choice);
/// volume[index] = value; gives the lock away meanwhile. Raises what NumPy raises for values that cannot be spread.
void writeCells(const VolumeHandle& volume, const boost::python::object& index, const boost::python::object& value);

} // namespace python
