#include "module/Bindings.h"
#include "module/gui/Collection.h"
#include "module/gui/HandleInstance.h"

namespace bp = boost::python;

namespace python {

namespace {

bool isDeleted(const ObjectHandle& handle)
{
    return handle.objectOrNull() == nullptr;
}

} // namespace

void bindObject()
{
    const bp::class_<ObjectHandle, boost::noncopyable> object =
        bp::class_<ObjectHandle, boost::noncopyable>("_QObject", "What menus, commands and windows have in common.",
                                                     bp::no_init)
            .add_property("deleted", isDeleted,
                          "bool: Whether the application has destroyed what this object stands for; everything else "
                          "then raises RuntimeError. Read-only.");
    auto* type = reinterpret_cast<PyTypeObject*>(object.ptr());
    showReferencesToCollector(type);
    reserveHandle(type);
}

} // namespace python
