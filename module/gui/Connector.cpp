#include "module/gui/Connector.h"

#include "runtime/Errors.h"

namespace python {

namespace {

const boost::python::object& requireCallable(const boost::python::object& callable, const char* method)
{
    if (!PyCallable_Check(callable.ptr()))
        raise(PyExc_TypeError, "%s, expected callable object, but got '%s' instead", method, typeName(callable));
    return callable;
}

} // namespace

Connection::Connection(QObject& sender, const boost::python::object& callable, const char* method)
    : callback(requireCallable(callable, method), method), receiver(new HeldReference(&sender, callback.reference()))
{}

} // namespace python
