#pragma once

#include "module/data/ProjectHandle.h"

#include <boost/python/class.hpp>

namespace python {

/// The methods of `Project` that make steps for Undo and that tell of changes.
void defineChangeMethods(boost::python::class_<ProjectHandle>& project);

/// Notes that an object of the application is there because of the calling plug-in, with which it goes. The windows'
/// half of the module sets it; without that half there are no plug-ins.
using PluginPartNote = void (*)(QObject* part);
void setPluginPartNote(PluginPartNote note);

} // namespace python
