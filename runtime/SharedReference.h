#pragma once

#include <boost/python/object.hpp>

#include <memory>

namespace python {

/// A Python object held by the application. Copies share it, and with the last of them it is let go: on any thread,
/// with or without the interpreter lock, also after the interpreter has gone. Where Qt may be destroying what held it,
/// that is a little later, see Remains::releaseLater().
class SharedReference
{
public:
    /// Needs the interpreter lock, like the functions below.
    explicit SharedReference(const boost::python::object& object);

    /// Borrowed; null after clear().
    PyObject* get() const { return m_holder->object; }
    /// Lets the object go for all copies.
    void clear() const { m_holder->clear(); }

private:
    struct Holder
    {
        explicit Holder(PyObject* held) : object(held) { Py_INCREF(object); }
        ~Holder();
        Holder(const Holder&) = delete;
        Holder& operator=(const Holder&) = delete;
        void clear() { Py_CLEAR(object); }

        PyObject* object;
    };

    std::shared_ptr<Holder> m_holder;
};

} // namespace python
