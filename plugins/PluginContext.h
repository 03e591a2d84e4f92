#pragma once

#include <boost/python/object.hpp>

#include <QString>

/// Which plug-in is calling: its folder stands in the globals of the calling Python frame. Code of the editor has none.
/// Everything here needs the interpreter lock and is called from a function that a script called.
namespace python {

/// The value as it stands there, None outside a plug-in.
boost::python::object callingPluginDirectory();

/// The folder's absolute path, empty outside a plug-in.
QString callingPluginFolder();

/// RuntimeError with the text `refusal` outside one.
void requirePlugin(const char* refusal);

} // namespace python
