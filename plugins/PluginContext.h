#pragma once

#include <boost/python/object.hpp>

#include <QString>

class QObject;

/// Which plug-in is calling. What only plug-ins may do goes by the folder that stands in the globals of the calling
/// Python frame, so it is refused to code of the editor and to a plug-in's helper modules. What is made for a plug-in
/// goes by the file of the calling module. Everything here needs the interpreter lock and is called from a function
/// that a script called.
namespace python {

/// The value as it stands in the globals, None elsewhere.
boost::python::object callingPluginDirectory();

/// The same folder's absolute path, empty where there is none.
QString callingPluginFolder();

/// RuntimeError with the text `refusal` where there is none.
void requirePlugin(const char* refusal);

/// Notes that `object` is there because of the plug-in to which the calling module belongs, if it belongs to one: it
/// goes with the plug-in. See HVPluginContributions.
void noteContribution(QObject* object);

} // namespace python
