#pragma once

#include <boost/python/detail/wrap_python.hpp>

/// Arguments of C functions that are called with METH_FASTCALL | METH_KEYWORDS. All functions need the interpreter lock
/// and report a failure with a pending exception instead of a C++ one, for their callers have a C signature.
namespace python {

/// Puts positional and keyword arguments in the order of `names`; false with TypeError unless each of the `count` names
/// is given once. The results are borrowed.
bool bindArguments(const char* function, const char* const* names, Py_ssize_t count, PyObject* const* arguments,
                   Py_ssize_t positional, PyObject* keywordNames, PyObject** bound);

} // namespace python
