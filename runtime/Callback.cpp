#include "runtime/Callback.h"

#include "runtime/Errors.h"
#include "runtime/QtCall.h"

namespace python {

void Callback::operator()() const
{
    call(nullptr, nullptr);
}

void Callback::call(PyObject* (*makeArgument)(const void*), const void* maker) const
{
    if (!QtCall::isPossible())
        return;
    const QtCall scope(m_name);
    // The call may end the connection, and this object and the callable with it.
    PyObject* callable = m_reference.get();
    if (!callable)
        return;
    Py_INCREF(callable);
    PyObject* argument = makeArgument ? makeArgument(maker) : nullptr;
    PyObject* result = nullptr;
    if (argument || !makeArgument)
        result = argument ? PyObject_CallOneArg(callable, argument) : PyObject_CallNoArgs(callable);
    if (!result)
        printPendingError();
    Py_XDECREF(result);
    Py_XDECREF(argument);
    Py_DECREF(callable);
}

} // namespace python
