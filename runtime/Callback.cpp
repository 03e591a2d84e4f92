#include "runtime/Callback.h"

#include "runtime/Errors.h"
#include "runtime/QtCall.h"
#include "runtime/Ref.h"

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
    const Ref callable = Ref::borrow(m_reference.get());
    if (!callable)
        return;
    const Ref argument = Ref::steal(makeArgument ? makeArgument(maker) : nullptr);
    Ref result;
    if (argument || !makeArgument)
        result = Ref::steal(argument ? PyObject_CallOneArg(callable.get(), argument.get())
                                     : PyObject_CallNoArgs(callable.get()));
    if (!result)
        printPendingError();
}

} // namespace python
