#pragma once

#include <boost/python/detail/wrap_python.hpp>

namespace python {

/// A copy of the process that a script made with os.fork(). It shares the windows' connection with the application and
/// holds locks of threads that it does not have, so it may run Python code but never come back into the application:
/// where it would, it leaves.
///
/// All functions need the interpreter lock.
class ForkedChild
{
public:
    /// Takes note of forks; the child gets `os._exit` back, which multiprocessing ends its processes with. Once, while
    /// there still is an `os._exit`.
    static void install();

    /// Whether this process is such a copy.
    static bool isHere() { return s_isHere; }

    /// Ends the process as the end of a program does: status 0, or that of the pending exception, which is printed.
    /// Nothing of the application's own end happens.
    [[noreturn]] static void leave();

private:
    static PyObject* begin(PyObject* exitFunction, PyObject* arguments);
    static inline bool s_isHere = false;
};

} // namespace python
