#include "module/gui/ObjectPeer.h"

#include "module/gui/Collection.h"
#include "runtime/ForkedChild.h"
#include "runtime/QtCall.h"
#include "runtime/Ref.h"
#include "runtime/Remains.h"

#include <QThread>

namespace python {

OwningHandle::~OwningHandle()
{
    if (!m_peer)
        return;
    QObject& object = m_peer->object();
    m_peer->detach();
    if (ForkedChild::isHere())
        return; // the window is the parent process's
    const bool isHere = QThread::currentThread() == object.thread();
    if (isHere && object.parent())
        return; // goes with the parent
    if (isHere && !QtCall::isUnderWay()) {
        Remains::destroyNow(object);
        return;
    }
    Remains::destroyLater(object);
    // The collector may be taking apart what the object would still call.
    if (isHere)
        clearReferences(object);
}

void OwningHandle::forgetPeer()
{
    m_peer = nullptr;
    forgetObject();
}

void ObjectPeer::attach(OwningHandle& handle, PyObject* self)
{
    m_handle = &handle;
    m_self = self;
    updateKeeping();
}

void ObjectPeer::detach()
{
    m_handle = nullptr;
    m_self = nullptr;
}

ObjectPeer::~ObjectPeer()
{
    if (!m_handle && !m_kept)
        return; // the Python object went first
    // While the interpreter ends there is no lock to take, but handles are still there to be told.
    const LateGilLock lock;
    const QtCall::Guard guard;
    if (m_handle)
        m_handle->forgetPeer();
    m_handle = nullptr;
    m_self = nullptr;
    if (lock && m_kept)
        Remains::releaseLater(Ref::steal(m_kept));
}

void ObjectPeer::updateKeeping()
{
    const bool wanted = isOwnedByQt();
    if (wanted == (m_kept != nullptr))
        return;
    const LateGilLock lock;
    if (!lock)
        return;
    const QtCall::Guard guard; // Qt is in the middle of the change
    if (wanted) {
        Py_XINCREF(m_self);
        m_kept = m_self;
    } else {
        Py_CLEAR(m_kept);
    }
}

} // namespace python
