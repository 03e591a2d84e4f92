#include "module/gui/ObjectHandle.h"

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
    forgetEntry();
}

void ObjectHandle::forgetEntry()
{
    // An object at the address of a destroyed one may have got a handle of its own.
    const auto entry = entries().find(m_key);
    if (entry != entries().end() && entry->handle == this)
        entries().erase(entry);
}

PyObject* ObjectHandle::known(QObject* object)
{
    const auto entry = entries().constFind(object);
    return entry != entries().constEnd() && entry->handle->objectOrNull() == object ? entry->self : nullptr;
}

void ObjectHandle::remember(ObjectHandle& handle, PyObject* self)
{
    entries().insert(handle.m_key, {&handle, self});
}

void ObjectHandle::raiseDeleted() const
{
    raise(PyExc_RuntimeError, "%s has been deleted", m_className);
}

} // namespace python
