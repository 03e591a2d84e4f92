#pragma once

#include <boost/python/object.hpp>

#include <QColor>

namespace python {

/// (red, green, blue, alpha), each 0 to 255.
boost::python::object colorTuple(QRgb color);

/// A colour from a sequence of three or four integers of 0 to 255. Otherwise TypeError or ValueError, whose text begins
/// with `function`.
QRgb colorFromTuple(const char* function, const boost::python::object& tuple);

} // namespace python
