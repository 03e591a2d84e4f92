#include "module/gui/ObjectHandle.h"

#include "module/gui/ObjectPeer.h"
#include "runtime/Errors.h"

#include <QHash>

namespace python {

namespace {

struct Entry
{
    const ObjectHandle* handle;
    PyObject* self; // borrowed; the entry goes with the handle
};

QHash<QObject*, Entry>& entries()
{
    static QHash<QObject*, Entry> all;
    return all;
}

} // namespace

ObjectHandle::~ObjectHandle()
{
    if (!m_isRemembered)
        return;
    // An object at the address of a destroyed one may have got a handle of its own.
    const auto entry = entries().find(m_object);
    if (entry != entries().end() && entry->handle == this)
        entries().erase(entry);
}

PyObject* ObjectHandle::known(QObject* object)
{
    if (const auto* peer = dynamic_cast<ObjectPeer*>(object))
        return peer->self();
    const auto entry = entries().constFind(object);
    return entry != entries().constEnd() && entry->handle->objectOrNull() == object ? entry->self : nullptr;
}

void ObjectHandle::remember(ObjectHandle& handle, PyObject* self)
{
    if (handle.isScriptMade())
        return;
    handle.m_watched = handle.m_object;
    handle.m_isRemembered = true;
    entries().insert(handle.m_object, {&handle, self});
}

void ObjectHandle::raiseDeleted() const
{
    raise(PyExc_RuntimeError, "%s has been deleted", m_className);
}

} // namespace python
