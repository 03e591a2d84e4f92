#pragma once

#include "runtime/ReferenceHolder.h"

#include <boost/python.hpp>

#include <array>
#include <cstddef>
#include <new>
#include <type_traits>
#include <typeinfo>

namespace python {

/// Direct ways between a C++ value and its Python object, for classes registered as `boost::python::class_<T>` (held by
/// value). The C functions installed by ClassSlots.h use them instead of the converter registry.
///
/// Such an object is one block: the interpreter's header, the attributes, the list of holders, and room in which the
/// first holder lies with the value in it. Holders are told apart by their virtual table: that of the plain holder, and
/// the place of the value in it, are remembered from the first one, so that the way to a value is two loads and a
/// comparison. Every other holder (a reference into a container, one that a subclass with several bases has in front)
/// is asked, as the binding layer does for all.
///
/// Objects of plain values (trivially copyable) are kept for the next one when they die, the way the interpreter keeps
/// floats: only those of the exact class, with no attributes, no weak references and one holder in its own place. An
/// object in the pool keeps its reference to the class and, when it held a value, the finished holder.
///
/// Such objects are not tracked by the cyclic garbage collector: it would find those in the pool and take them for
/// garbage, and it never looks into the attributes of the binding layer's instances anyway.
///
/// Needs the interpreter lock. adopt() is called once, right after the class is registered. The state belongs to the
/// library that registers the class and is of use in that one only; hidden, it is reached without a detour through the
/// library's address table.
template <typename T>
class __attribute__((visibility("hidden"))) ValueInstance
{
    using Holder = boost::python::objects::value_holder<T>;
    using Object = boost::python::objects::instance<Holder>;
    using Reference = ReferenceHolder<T>;

    static constexpr bool s_isPooled = std::is_trivially_copyable_v<T> && std::is_default_constructible_v<T>;

public:
    static void adopt(PyTypeObject* type)
    {
        s_type = type;
        if constexpr (s_isPooled) {
            const T sample{};
            Holder holder(nullptr, boost::ref(sample));
            find(&holder);
            // The class's own deallocator would look for the next different one and find ours again; a base class may
            // be one of these classes too.
            PyTypeObject* base = type->tp_base;
            while (PyType_HasFeature(base, Py_TPFLAGS_HEAPTYPE))
                base = base->tp_base;
            s_deallocate = base->tp_dealloc;
            type->tp_dealloc = release;
            type->tp_alloc = allocate;
            PyType_Modified(type);
        }
    }
    static PyTypeObject* type() { return s_type; }

    static bool check(PyObject* object)
    {
        return Py_TYPE(object) == s_type || PyType_IsSubtype(Py_TYPE(object), s_type);
    }

    /// The value inside an object that passes check(). Null when a subclass never called __init__.
    static T* get(PyObject* object)
    {
        auto* holder = reinterpret_cast<boost::python::objects::instance<>*>(object)->objects;
        if (holder && tableOf(holder) == s_holderTable) [[likely]]
            return valueIn(holder);
        return holder ? find(holder) : nullptr;
    }

    /// New reference to an object that holds a copy of `value`; null with MemoryError pending.
    static PyObject* make(const T& value)
    {
        Object* object = blank();
        if (!object)
            return nullptr;
        if (object->objects)
            *valueIn(object->objects) = value;
        else
            place<Holder>(object, reinterpret_cast<PyObject*>(object), boost::ref(value));
        return reinterpret_cast<PyObject*>(object);
    }

    /// New reference to an object that holds a new T(), for values that are not copied; null with MemoryError pending.
    static PyObject* makeDefault()
    {
        Object* object = blank();
        static_assert(!s_isPooled, "an object from the pool has the value of its former life");
        if (object)
            place<Holder>(object, reinterpret_cast<PyObject*>(object));
        return reinterpret_cast<PyObject*>(object);
    }

    /// New reference to an object that stands for `target` inside `owner`; see ReferenceHolder.
    static PyObject* makeReference(T* target, PyObject* owner)
    {
        static_assert(sizeof(Reference) <= sizeof(Holder), "both kinds of objects share their memory blocks");
        Object* object = blank();
        if (!object)
            return nullptr;
        object->objects = nullptr;
        s_referenceTable = tableOf(place<Reference>(object, target, owner));
        return reinterpret_cast<PyObject*>(object);
    }

    /// Gives an object whose __init__ was never called (unpickling) its value, or overwrites the one it has.
    static void put(PyObject* object, const T& value)
    {
        if (T* present = get(object)) {
            *present = value;
            return;
        }
        void* memory = Holder::allocate(object, offsetof(Object, storage), sizeof(Holder));
        try {
            (new (memory) Holder(object, boost::ref(value)))->install(object);
        } catch (...) {
            Holder::deallocate(object, memory);
            throw;
        }
    }

private:
    static void* tableOf(boost::python::instance_holder* holder) { return *reinterpret_cast<void**>(holder); }
    static T* valueIn(boost::python::instance_holder* holder)
    {
        return reinterpret_cast<T*>(reinterpret_cast<char*>(holder) + s_valueOffset);
    }

    /// Any other holder and the first call: the holder knows its value. The plain holder's virtual table and the place
    /// of the value in it are remembered.
    [[gnu::noinline, gnu::cold]] static T* find(boost::python::instance_holder* holder)
    {
        if (s_referenceTable && tableOf(holder) == s_referenceTable)
            return static_cast<Reference*>(holder)->target();
        auto* value = static_cast<T*>(holder->holds(boost::python::type_id<T>(), false));
        if (value && typeid(*holder) == typeid(Holder)) {
            s_valueOffset = reinterpret_cast<char*>(value) - reinterpret_cast<char*>(holder);
            s_holderTable = tableOf(holder);
        }
        return value;
    }

    /// An object of the class, either without a holder or with a plain one in its place.
    static Object* blank()
    {
        if constexpr (s_isPooled)
            if (s_poolSize > 0) [[likely]] {
                PyObject* object = s_pool[--s_poolSize];
                _Py_NewReference(object);
                return reinterpret_cast<Object*>(object);
            }
        return reinterpret_cast<Object*>(
            s_type->tp_alloc(s_type, boost::python::objects::additional_instance_size<Holder>::value));
    }

    template <typename H, typename... Arguments>
    static H* place(Object* object, Arguments&&... arguments)
    {
        auto* holder = new (static_cast<void*>(&object->storage)) H(std::forward<Arguments>(arguments)...);
        holder->install(reinterpret_cast<PyObject*>(object));
        // The binding layer finds a holder inside the object by this size.
        Py_SET_SIZE(object, offsetof(Object, storage));
        return holder;
    }

    /// For the class itself; the interpreter gives subclasses its general function.
    static PyObject* allocate(PyTypeObject* type, Py_ssize_t extraBytes)
    {
        PyObject* object = PyType_GenericAlloc(type, extraBytes);
        if (object && PyType_IS_GC(type))
            PyObject_GC_UnTrack(object);
        return object;
    }

    static void release(PyObject* raw)
    {
        auto* object = reinterpret_cast<Object*>(raw);
        PyTypeObject* type = Py_TYPE(raw);
        boost::python::instance_holder* holder = object->objects;
        if (type == s_type && !object->dict && !object->weakrefs &&
            static_cast<void*>(holder) == static_cast<void*>(&object->storage) && !holder->next()) {
            const bool isReference = tableOf(holder) == s_referenceTable;
            if (isReference) {
                // May end the owner, and with it anything.
                holder->~instance_holder();
                object->objects = nullptr;
            }
            if (s_poolSize < s_pool.size() && (isReference || tableOf(holder) == s_holderTable)) [[likely]] {
                s_pool[s_poolSize++] = raw;
                return;
            }
        }
        // An object of a subclass is tracked, and the collector must not meet it half dead.
        if (PyType_IS_GC(type))
            PyObject_GC_UnTrack(raw);
        s_deallocate(raw);
        Py_DECREF(type);
    }

    static inline PyTypeObject* s_type = nullptr;
    static inline void* s_holderTable = nullptr;
    static inline void* s_referenceTable = nullptr;
    static inline std::ptrdiff_t s_valueOffset = 0;
    static inline destructor s_deallocate = nullptr;
    static inline std::array<PyObject*, s_isPooled ? 256 : 0> s_pool{};
    static inline std::size_t s_poolSize = 0;
};

} // namespace python
