#pragma once

#include <boost/python/object.hpp>

#include <QString>

#include <memory>

namespace python {

/// A Python callable that the application calls later, from a signal. Copies share the callable, which is let go with
/// the last of them, on any thread and also after the interpreter has gone.
class Callback
{
public:
    /// `callable` is kept; `name` is what a run indicator shows while it runs. Needs the interpreter lock.
    Callback(const boost::python::object& callable, QString name);

    /// Calls it without arguments. Takes the lock; an exception is printed and goes no further. GUI thread only.
    void operator()() const;

private:
    class Reference;
    std::shared_ptr<Reference> m_reference;
    QString m_name;
};

} // namespace python
