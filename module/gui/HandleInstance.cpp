#include "module/gui/HandleInstance.h"

#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

namespace {

/// Holds a handle of any class, so that it is found without knowing which.
class HandleHolder final : public bp::instance_holder
{
public:
    explicit HandleHolder(std::shared_ptr<ObjectHandle> handle) : m_handle(std::move(handle)) {}
    ObjectHandle& handle() const { return *m_handle; }

private:
    void* holds(bp::type_info wanted, bool /*nullPointerOnly*/) override
    {
        return bp::objects::find_dynamic_type(m_handle.get(), bp::type_id<ObjectHandle>(), wanted);
    }

    std::shared_ptr<ObjectHandle> m_handle;
};

using Instance = bp::objects::instance<HandleHolder>;

ObjectHandle* findHandle(PyObject* object)
{
    auto* holder = reinterpret_cast<Instance*>(object)->objects;
    // A class may also derive from one of another family.
    for (; holder; holder = holder->next())
        if (auto* ours = dynamic_cast<HandleHolder*>(holder))
            return &ours->handle();
    return nullptr;
}

PyObject* makeRoom(PyTypeObject* type, PyObject* /*arguments*/, PyObject* /*keywords*/)
{
    constexpr Py_ssize_t room = bp::objects::additional_instance_size<HandleHolder>::value;
    PyObject* object = type->tp_alloc(type, room);
    // How the binding layer notes that the room is free.
    if (object)
        Py_SET_SIZE(object, -(room + static_cast<Py_ssize_t>(offsetof(bp::objects::instance<>, storage))));
    return object;
}

void place(PyObject* self, const std::shared_ptr<ObjectHandle>& handle)
{
    void* memory = HandleHolder::allocate(self, offsetof(Instance, storage), sizeof(HandleHolder));
    (new (memory) HandleHolder(handle))->install(self);
    ObjectHandle::remember(*handle, self);
}

} // namespace

void reserveHandle(PyTypeObject* type)
{
    type->tp_new = makeRoom;
    // What a class written in Python finds as super().__new__: the interpreter's function, for this class.
    PyObject* objectsOwn = PyDict_GetItemString(PyBaseObject_Type.tp_dict, "__new__");
    const bp::object function = owned(PyCFunction_NewEx(reinterpret_cast<PyCFunctionObject*>(objectsOwn)->m_ml,
                                                        reinterpret_cast<PyObject*>(type), nullptr));
    if (PyObject_SetAttrString(reinterpret_cast<PyObject*>(type), "__new__", function.ptr()) < 0)
        raisePending();
}

ObjectHandle& handleOf(PyObject* self)
{
    ObjectHandle* handle = findHandle(self);
    if (!handle) [[unlikely]]
        raise(PyExc_RuntimeError, "%s, super().__init__() was never called", typeName(self));
    return *handle;
}

ObjectHandle* handleOrNull(PyObject* object)
{
    return PyObject_TypeCheck(object, classOf<ObjectHandle>()) ? findHandle(object) : nullptr;
}

void installHandle(PyObject* self, const std::shared_ptr<ObjectHandle>& handle)
{
    if (findHandle(self))
        raise(PyExc_RuntimeError, "%s.__init__() has already been called", handle->className());
    place(self, handle);
}

bp::object makeInstance(PyTypeObject* type, const std::shared_ptr<ObjectHandle>& handle)
{
    const bp::object made = owned(makeRoom(type, nullptr, nullptr));
    place(made.ptr(), handle);
    return made;
}

} // namespace python
