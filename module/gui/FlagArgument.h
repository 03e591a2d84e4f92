#pragma once

#include <boost/python/object.hpp>

#include <Qt>

/// Combinations of an enumeration's values as arguments. Scripts combine with |, whose result is a plain int.
namespace python {

/// One `Align` or an int of several. Everything else, other enumerations and bool among it, is a TypeError whose
/// `format` holds one "%s" for the type's name; bits that mean nothing raise ValueError, an int beyond 64 bits raises
/// OverflowError.
Qt::Alignment alignmentArgument(const boost::python::object& argument, const char* format);

/// One of the `KeyboardModifiers` or an int of several; as above.
Qt::KeyboardModifiers modifiersArgument(const boost::python::object& argument, const char* format);

} // namespace python
