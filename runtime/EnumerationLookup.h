#pragma once

#include <boost/python/detail/wrap_python.hpp>

namespace python {

/// Lets the enumerations in `module` give their named values when they are called: Enumeration(number) is the value that
/// its `values` holds under that number (the one registered last, or what registration has put there), instead of a
/// nameless one that only compares equal. A number without a name gives a nameless value as before. Unpickling goes the
/// same way.
///
/// Called once, after all enumerations are registered, with the interpreter lock. Unwinds with the pending exception.
void nameCalledEnumerations(PyObject* module);

} // namespace python
