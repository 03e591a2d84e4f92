#include "runtime/ForkedChild.h"

#include "runtime/Errors.h"
#include "runtime/ExitStatus.h"
#include "runtime/GuiThread.h"
#include "runtime/PendingError.h"
#include "runtime/RunMonitor.h"

#include <boost/python.hpp>

#include <unistd.h>

namespace bp = boost::python;

namespace python {

namespace {

int statusOfPending()
{
    if (!PyErr_Occurred())
        return 0;
    if (!PyErr_ExceptionMatches(PyExc_SystemExit)) {
        printPendingError();
        return 1;
    }
    PendingError error;
    const int status = exitStatus(error.value(), true);
    error.drop();
    return status;
}

/// A script may have put a stream with a buffer in place.
void flush(const char* name)
{
    PyObject* stream = PySys_GetObject(name);
    Ref::steal(stream ? PyObject_CallMethod(stream, "flush", nullptr) : nullptr);
    PyErr_Clear();
}

/// A copy that was made on another thread has no main thread; without this the end of its only thread would call the
/// exit handlers of the application's libraries, which wait for threads that are not there.
struct OnlyThread
{
    ~OnlyThread() { ::_exit(0); }
};

} // namespace

PyObject* ForkedChild::begin(PyObject* exitFunction, PyObject* /*arguments*/)
{
    s_isHere = true;
    RunMonitor::abandon();
    if (!isGuiThread()) {
        thread_local const OnlyThread leaves;
        static_cast<void>(leaves);
    }
    if (const Ref os = Ref::steal(PyImport_ImportModule("os")))
        PyObject_SetAttrString(os.get(), "_exit", exitFunction);
    if (PyErr_Occurred())
        return nullptr;
    Py_RETURN_NONE;
}

void ForkedChild::install()
{
    static PyMethodDef begin = {"__strativo_forked", &ForkedChild::begin, METH_NOARGS, nullptr};
    const bp::object os = bp::import("os");
    const bp::object exitFunction = os.attr("_exit");
    bp::dict hooks;
    hooks["after_in_child"] = owned(PyCFunction_New(&begin, exitFunction.ptr()));
    const bp::tuple none;
    owned(PyObject_Call(bp::object(os.attr("register_at_fork")).ptr(), none.ptr(), hooks.ptr()));
}

void ForkedChild::leave()
{
    const int status = statusOfPending();
    flush("stdout");
    flush("stderr");
    ::_exit(status);
}

} // namespace python
