#pragma once

#include <boost/python.hpp>

namespace python {

/// Lets a Python object stand for a value that lives inside another object: the row of a matrix. It keeps the owner
/// alive for as long as itself; `target` must stay where it is for that long. For the binding layer the object is an
/// instance like any other.
template <typename T>
class ReferenceHolder final : public boost::python::instance_holder
{
public:
    ReferenceHolder(T* target, PyObject* owner) : m_target(target), m_owner(owner) { Py_INCREF(owner); }
    ~ReferenceHolder() override { Py_DECREF(m_owner); }

    T* target() const { return m_target; }

private:
    void* holds(boost::python::type_info wanted, bool /*nullPointerOnly*/) override
    {
        return wanted == boost::python::type_id<T>() ? m_target : nullptr;
    }

    T* m_target;
    PyObject* m_owner;
};

} // namespace python
