#pragma once

#include "runtime/SharedReference.h"

#include <boost/python/object.hpp>

namespace python {

/// A Python callable that the application calls later, from a signal. Copies share the callable, see SharedReference.
class Callback
{
public:
    /// `callable` is kept; `name`, which stays valid, is what a run indicator shows while it runs. Needs the
    /// interpreter lock.
    Callback(const boost::python::object& callable, const char* name) : m_reference(callable), m_name(name) {}

    /// Calls it without arguments. Takes the lock; an exception is printed and goes no further. GUI thread only.
    void operator()() const;

    /// The same with the argument that `makeArgument` returns as a new reference; it is called with the lock held.
    template <typename MakeArgument>
    void with(MakeArgument makeArgument) const
    {
        call([](const void* maker) { return (*static_cast<const MakeArgument*>(maker))(); }, &makeArgument);
    }

    const SharedReference& reference() const { return m_reference; }

private:
    void call(PyObject* (*makeArgument)(const void*), const void* maker) const;

    SharedReference m_reference;
    const char* m_name;
};

} // namespace python
