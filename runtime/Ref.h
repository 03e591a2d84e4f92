#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <utility>

namespace python {

/// An owned reference to an object of the interpreter, or none. For code that reports failures by null, as the
/// interpreter's functions do; where exceptions unwind, bp::object is the same and never null. The members need the
/// interpreter lock.
///
///     const Ref name = Ref::steal(PyObject_GetAttrString(object, "name"));   // a new reference, or null
///     const Ref kept = Ref::borrow(PyTuple_GET_ITEM(tuple, 0));              // somebody else's
///     return result.release();                                               // to who expects a new one
template <typename T>
class BasicRef
{
public:
    BasicRef() = default;
    /// Takes a new reference over; null gives none.
    static BasicRef steal(T* reference) { return BasicRef(reference); }
    /// One reference more to an object that somebody else keeps; null gives none.
    static BasicRef borrow(T* object)
    {
        Py_XINCREF(object);
        return BasicRef(object);
    }
    ~BasicRef() { Py_XDECREF(m_object); }
    BasicRef(const BasicRef& other) : m_object(other.m_object) { Py_XINCREF(m_object); }
    BasicRef(BasicRef&& other) noexcept : m_object(other.release()) {}
    BasicRef& operator=(BasicRef other) noexcept
    {
        std::swap(m_object, other.m_object); // the old one goes last: its end may run any code
        return *this;
    }

    /// Borrowed.
    T* get() const { return m_object; }
    /// Hands the reference over.
    [[nodiscard]] T* release() { return std::exchange(m_object, nullptr); }
    void reset() { *this = BasicRef(); }
    explicit operator bool() const { return m_object != nullptr; }

private:
    explicit BasicRef(T* object) : m_object(object) {}

    T* m_object = nullptr;
};

using Ref = BasicRef<PyObject>;

} // namespace python
