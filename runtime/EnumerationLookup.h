#pragma once

#include <boost/python/detail/wrap_python.hpp>
#include <boost/python/object.hpp>

/// What happens when an enumeration is called: Enumeration(number). Needs the interpreter lock.
namespace python {

/// Lets the enumerations in `module` give their named values when they are called: Enumeration(number) is the value
/// that its `values` holds under that number (the one registered last, or what registration has put there), instead of
/// a nameless one that only compares equal. A number without a name gives a nameless value, and OverflowError beyond 60
/// bits, which the binding layer has no room for. Unpickling goes the same way.
///
/// Called once, after all enumerations are registered. Unwinds with the pending exception.
void nameCalledEnumerations(PyObject* module);

/// From now on a number without a name is a ValueError "<class>, <number> <refusal>". `refusal` stays where it is.
void closeEnumeration(const boost::python::object& enumeration, const char* refusal);

} // namespace python
