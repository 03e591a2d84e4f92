#include "runtime/WakeUpSignal.h"

#include "runtime/Errors.h"
#include "runtime/Ref.h"

#include <boost/python.hpp>

#include <cerrno>

namespace bp = boost::python;

namespace python {

namespace {

bool isWakeUpSignal(PyObject* number)
{
    return isInt(number) && PyLong_AsLongLong(number) == g_wakeUpSignal;
}

/// Stands for a function of the signal module whose first argument is a signal; `original` is that function.
PyObject* refuseWakeUpSignal(PyObject* original, PyObject* arguments)
{
    if (PyTuple_GET_SIZE(arguments) > 0 && isWakeUpSignal(PyTuple_GET_ITEM(arguments, 0))) {
        errno = EINVAL;
        return PyErr_SetFromErrno(PyExc_OSError);
    }
    PyErr_Clear();
    return PyObject_Call(original, arguments, nullptr);
}

/// Stands for pthread_sigmask(how, mask).
PyObject* leaveWakeUpSignalOut(PyObject* original, PyObject* arguments)
{
    PyObject* how = nullptr;
    PyObject* mask = nullptr;
    if (!PyArg_UnpackTuple(arguments, "pthread_sigmask", 2, 2, &how, &mask))
        return nullptr;
    const Ref kept = Ref::steal(PySet_New(mask));
    const Ref number = Ref::steal(PyLong_FromLong(g_wakeUpSignal));
    return kept && number && PySet_Discard(kept.get(), number.get()) >= 0
               ? PyObject_CallFunctionObjArgs(original, how, kept.get(), nullptr)
               : nullptr;
}

PyMethodDef g_replacements[] = {
    {"signal", refuseWakeUpSignal, METH_VARARGS,
     "signal(signalnum, handler)\n\nSets the handler of the signal, as in plain Python; SIGURG is the application's."},
    {"siginterrupt", refuseWakeUpSignal, METH_VARARGS,
     "siginterrupt(signalnum, flag)\n\nWhether the signal cuts system calls short; SIGURG is the application's."},
    {"pthread_sigmask", leaveWakeUpSignalOut, METH_VARARGS,
     "pthread_sigmask(how, mask)\n\nBlocks signals, as in plain Python; SIGURG is the application's and stays."},
};

} // namespace

void installWakeUpSignal(PyMethodDef& handler)
{
    bp::object signal = bp::import("_signal");
    // System calls are cut short by it and not begun anew: only so does a wait on a lock come back to the interpreter.
    signal.attr("signal")(g_wakeUpSignal, owned(PyCFunction_New(&handler, nullptr)));
    for (PyMethodDef& replacement : g_replacements) {
        const bp::object original = signal.attr(replacement.ml_name);
        const bp::str module("_signal");
        signal.attr(replacement.ml_name) = owned(PyCFunction_NewEx(&replacement, original.ptr(), module.ptr()));
    }
}

} // namespace python
