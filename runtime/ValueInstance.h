#pragma once

#include <boost/python.hpp>

#include <cstddef>
#include <new>
#include <typeinfo>

namespace python {

/// Direct ways between a C++ value and its Python object, for classes registered as `boost::python::class_<T>` (held by
/// value). The C functions installed by ClassSlots.h use them instead of the converter registry.
///
/// Needs the interpreter lock. adopt() is called once, right after the class is registered.
template <typename T>
class ValueInstance
{
    using Holder = boost::python::objects::value_holder<T>;
    using Object = boost::python::objects::instance<Holder>;

public:
    static void adopt(PyTypeObject* type) { s_type = type; }
    static PyTypeObject* type() { return s_type; }

    static bool check(PyObject* object)
    {
        return Py_TYPE(object) == s_type || PyType_IsSubtype(Py_TYPE(object), s_type);
    }

    /// The value inside an object that passes check(). Null when a subclass never called __init__.
    static T* get(PyObject* object)
    {
        auto* holder = reinterpret_cast<boost::python::objects::instance<>*>(object)->objects;
        if (holder && *reinterpret_cast<void**>(holder) == s_holderVptr) [[likely]]
            return reinterpret_cast<T*>(reinterpret_cast<char*>(holder) + s_valueOffset);
        return holder ? find(holder) : nullptr;
    }

    /// New reference to an object that holds a copy of `value`; null with MemoryError pending.
    static PyObject* make(const T& value)
    {
        PyObject* raw = s_type->tp_alloc(s_type, boost::python::objects::additional_instance_size<Holder>::value);
        if (!raw)
            return nullptr;
        auto* object = reinterpret_cast<Object*>(raw);
        auto* holder = new (static_cast<void*>(&object->storage)) Holder(raw, boost::ref(value));
        holder->install(raw);
        // The binding layer finds a holder inside the object by this size.
        Py_SET_SIZE(object, offsetof(Object, storage) +
                                (reinterpret_cast<char*>(holder) - reinterpret_cast<char*>(&object->storage)));
        return raw;
    }

private:
    /// Any other holder (a reference into another object) and the first call: the holder knows its value. The plain
    /// holder's virtual table and the place of the value in it are remembered.
    static T* find(boost::python::instance_holder* holder)
    {
        auto* value = static_cast<T*>(holder->holds(boost::python::type_id<T>(), false));
        if (value && typeid(*holder) == typeid(Holder)) {
            s_valueOffset = reinterpret_cast<char*>(value) - reinterpret_cast<char*>(holder);
            s_holderVptr = *reinterpret_cast<void**>(holder);
        }
        return value;
    }

    static inline PyTypeObject* s_type = nullptr;
    static inline void* s_holderVptr = nullptr;
    static inline std::ptrdiff_t s_valueOffset = 0;
};

} // namespace python
