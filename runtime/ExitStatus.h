#pragma once

#include <boost/python/detail/wrap_python.hpp>

namespace python {

/// The status that the SystemExit `exception` asks a process for. A code that is no number is printed on standard error
/// when `prints`, as plain Python does. Needs the interpreter lock; nothing may be pending, and nothing is afterwards.
int exitStatus(PyObject* exception, bool prints);

} // namespace python
