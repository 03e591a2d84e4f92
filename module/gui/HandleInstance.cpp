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

void place(PyObject* self, const std::shared_ptr<ObjectHandle>& handle)
{
    void* memory = HandleHolder::allocate(self, offsetof(Instance, storage), sizeof(HandleHolder));
    (new (memory) HandleHolder(handle))->install(self);
    ObjectHandle::remember(*handle, self);
}

} // namespace

void reserveHandle(PyTypeObject* type)
{
    // What the binding layer asks a class for; without an answer it makes and drops an exception for every object.
    const bp::object size(bp::objects::additional_instance_size<HandleHolder>::value);
    if (PyObject_SetAttrString(reinterpret_cast<PyObject*>(type), "__instance_size__", size.ptr()) < 0)
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
    const bp::object made = owned(type->tp_alloc(type, 0)); // the handle gets memory of its own
    place(made.ptr(), handle);
    return made;
}

} // namespace python
