#pragma once

#include <boost/python/object.hpp>

#include <QColor>

/// Colours as arguments: a Color, one of Colors, a name or a tuple or list of three or four ints of 0 to 255.
///
/// After registerColorArguments() the binding layer's own functions and properties with a QColor parameter take all of
/// these. Needs the interpreter lock.
namespace python {

/// Anything else is a TypeError whose `format` holds one "%s" for the type's name. ValueError for a name that is no
/// colour and for numbers outside 0 to 255.
QColor colorArgument(const boost::python::object& argument, const char* format);

/// Called once, after the class Color is registered.
void registerColorArguments();

} // namespace python
