#pragma once

#include "module/gui/GuiThread.h"

#include <boost/python.hpp>

#include <QObject>
#include <QPointer>

#include <memory>

/// module/gui: windows, menus and tool bars as scripts see them. A Python object is a handle on a Qt object: using it
/// after the Qt object was destroyed raises RuntimeError, and as long as a handle lives, the same Qt object comes back
/// as the same Python object. Handles are used with the interpreter lock held, on the GUI thread.
namespace python {

class ObjectHandle
{
public:
    /// `object` is not owned; `className` is the Python name and stays valid.
    ObjectHandle(QObject* object, const char* className) : m_object(object), m_key(object), m_className(className) {}
    virtual ~ObjectHandle();
    ObjectHandle(const ObjectHandle&) = delete;
    ObjectHandle& operator=(const ObjectHandle&) = delete;

    /// The Qt object; RuntimeError when it is gone, and on any thread but the main one.
    template <typename Object>
    Object& alive() const
    {
        requireGuiThread();
        if (!m_object)
            raiseDeleted();
        return *static_cast<Object*>(m_object.data());
    }
    QObject* objectOrNull() const { return m_object; }

    /// The Python object of a living handle on `object`, borrowed; null when there is none.
    static PyObject* known(QObject* object);
    static void remember(ObjectHandle& handle, PyObject* self);

private:
    [[noreturn]] void raiseDeleted() const;

    QPointer<QObject> m_object;
    QObject* m_key; // only an address: the object may be gone
    const char* m_className;
};

/// The Python object of a Qt object, None for null.
template <typename Handle, typename Object>
boost::python::object wrapObject(Object* object)
{
    namespace bp = boost::python;
    if (!object)
        return {};
    if (PyObject* self = ObjectHandle::known(object))
        return bp::object(bp::handle<>(bp::borrowed(self)));
    const auto handle = std::make_shared<Handle>(object);
    const bp::object made(handle);
    ObjectHandle::remember(*handle, made.ptr());
    return made;
}

} // namespace python
