#include "runtime/Callback.h"

#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/RunMonitor.h"

namespace python {

class Callback::Reference
{
public:
    explicit Reference(PyObject* object) : callable(object) { Py_INCREF(callable); }
    ~Reference()
    {
        const LateGilLock lock;
        if (lock)
            Py_DECREF(callable);
    }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;

    PyObject* const callable;
};

Callback::Callback(const boost::python::object& callable, QString name)
    : m_reference(std::make_shared<Reference>(callable.ptr())), m_name(std::move(name))
{}

void Callback::operator()() const
{
    // The call may destroy what holds this object, and the object with it.
    const std::shared_ptr<Reference> reference = m_reference;
    const GilLock lock;
    const IAppWrapper* app = applicationInterface();
    const RunMonitor monitor(app ? app->runObserver() : nullptr, m_name);
    PyObject* result = PyObject_CallNoArgs(reference->callable);
    if (!result)
        printPendingError();
    Py_XDECREF(result);
}

} // namespace python
