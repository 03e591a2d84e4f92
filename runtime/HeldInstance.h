#pragma once

#include <boost/python.hpp>

#include <cstddef>
#include <memory>
#include <typeinfo>

namespace python {

/// The direct way from a Python object to the C++ object inside it, for classes registered with std::shared_ptr<T> as
/// their held type (what ValueInstance.h does for classes held by value). The pointer is shared: a host object that
/// outlives the Python one keeps a copy of it.
///
/// Needs the interpreter lock. adopt() is called once, right after the class is registered. The state belongs to the
/// scripting library; hidden, it is reached without a detour through the library's address table.
template <typename T>
class __attribute__((visibility("hidden"))) HeldInstance
{
    using Pointer = std::shared_ptr<T>;
    using Holder = boost::python::objects::pointer_holder<Pointer, T>;

public:
    static void adopt(PyTypeObject* type) { s_type = type; }
    static PyTypeObject* type() { return s_type; }

    static bool check(PyObject* object)
    {
        return Py_TYPE(object) == s_type || PyType_IsSubtype(Py_TYPE(object), s_type);
    }

    /// The C++ object inside an object that passes check(). Null when a subclass never called __init__.
    static T* get(PyObject* object)
    {
        auto* holder = reinterpret_cast<boost::python::objects::instance<>*>(object)->objects;
        if (holder && *reinterpret_cast<void**>(holder) == s_holderVptr) [[likely]]
            return reinterpret_cast<Pointer*>(reinterpret_cast<char*>(holder) + s_pointerOffset)->get();
        return find(object, holder);
    }

private:
    /// Any other holder and the first call. The usual holder's virtual table and the place of the pointer in it are
    /// remembered: the holder knows its pointer but does not show it.
    static T* find(PyObject* object, boost::python::instance_holder* holder)
    {
        if (holder && typeid(*holder) == typeid(Holder)) {
            void* pointer = holder->holds(boost::python::type_id<Pointer>(), false);
            s_pointerOffset = static_cast<char*>(pointer) - reinterpret_cast<char*>(holder);
            s_holderVptr = *reinterpret_cast<void**>(holder);
        }
        return static_cast<T*>(boost::python::converter::get_lvalue_from_python(
            object, boost::python::converter::registered<T>::converters));
    }

    static inline PyTypeObject* s_type = nullptr;
    static inline void* s_holderVptr = nullptr;
    static inline std::ptrdiff_t s_pointerOffset = 0;
};

} // namespace python
