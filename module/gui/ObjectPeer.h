#pragma once

#include "module/gui/ObjectHandle.h"

namespace python {

class ObjectPeer;

/// A handle on an object that a script may have made. What a script made is destroyed with the handle, as long as no
/// parent owns it.
class OwningHandle : public ObjectHandle
{
public:
    using ObjectHandle::ObjectHandle;
    ~OwningHandle() override;

    bool isScriptMade() const override { return m_peer != nullptr; }
    void setPeer(ObjectPeer& peer) { m_peer = &peer; }
    /// The object is being destroyed.
    void forgetPeer();

protected:
    /// Null for objects that the application made.
    ObjectPeer* ownPeer() const { return m_peer; }

private:
    ObjectPeer* m_peer = nullptr;
};

/// The part of a Qt object made by a script that knows its Python object, and keeps it for as long as Qt owns the Qt
/// object.
///
/// The two may die in either order; each tells the other. Used on the GUI thread, with the interpreter lock held
/// where nothing else is said.
class ObjectPeer
{
public:
    ObjectPeer() = default;
    ObjectPeer(const ObjectPeer&) = delete;
    ObjectPeer& operator=(const ObjectPeer&) = delete;

    virtual QObject& object() = 0;

    /// `self` is the object that `handle` is inside of; both are borrowed until detach().
    void attach(OwningHandle& handle, PyObject* self);
    virtual void detach();
    /// To be called after every change of isOwnedByQt(), with or without the lock.
    void updateKeeping();

    /// Borrowed; null when the Python object has gone.
    PyObject* self() const { return m_self; }
    /// Borrowed; null unless this object holds a reference to self().
    PyObject* kept() const { return m_kept; }

protected:
    virtual ~ObjectPeer();

    /// Whether the Python object has to live though the script drops it.
    virtual bool isOwnedByQt() = 0;

private:
    OwningHandle* m_handle = nullptr;
    PyObject* m_self = nullptr;
    PyObject* m_kept = nullptr;
};

} // namespace python
