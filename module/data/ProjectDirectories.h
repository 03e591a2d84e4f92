#pragma once

#include "module/data/ProjectHandle.h"

#include <boost/python/class.hpp>

namespace python {

/// The methods of `Project` for virtual directories.
void defineDirectoryMethods(boost::python::class_<ProjectHandle>& project);

/// A list of str with the whole text of each; new.
boost::python::object textList(const QStringList& texts);

} // namespace python
