#include "runtime/Remains.h"

#include "runtime/LateRelease.h"
#include "runtime/QtCall.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThread>

#include <mutex>
#include <utility>
#include <vector>

namespace python {

namespace {

/// What the object held that destroyNow() destroys; null outside of it. GUI thread.
std::vector<Ref>* g_released = nullptr;

/// A reference that goes with a Qt object.
class Released final : public QObject
{
public:
    explicit Released(Ref held) : m_held(std::move(held)) {}
    ~Released() override { releaseLate(m_held); }

private:
    Ref m_held;
};

} // namespace

/// Objects that wait for their end. Lives as long as the process, in the application's thread.
class Remains::Queue final : public QObject
{
public:
    static Queue& instance()
    {
        static Queue* only = [] {
            auto* queue = new Queue;
            queue->moveToThread(QCoreApplication::instance()->thread());
            return queue;
        }();
        return *only;
    }

    void add(QObject& object)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_objects.emplace_back(&object);
        s_areWaiting = true;
    }

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        // An event loop inside of a handler came first; the end of that handler calls again.
        if (QtCall::isUnderWay())
            return true;
        for (const QPointer<QObject>& object : take()) {
            const LateGilLock lock;
            if (object)
                destroyNow(*object);
        }
        return true;
    }

private:
    std::vector<QPointer<QObject>> take()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        s_areWaiting = false;
        return std::exchange(m_objects, {});
    }

    std::mutex m_mutex;
    std::vector<QPointer<QObject>> m_objects;
};

void Remains::destroyNow(QObject& object)
{
    std::vector<Ref> released;
    std::vector<Ref>* outer = std::exchange(g_released, &released);
    delete &object;
    g_released = outer;
}

void Remains::destroyLater(QObject& object)
{
    // Qt waits for the end of the event loop that it is in. Outside of any, and for other threads, it does not wait at
    // all, but would destroy the object in the next loop, however deep inside the object's own handlers that runs.
    const bool isHere = QThread::currentThread() == object.thread();
    if (isHere && object.thread()->loopLevel() > 0) {
        object.deleteLater();
        return;
    }
    Queue::instance().add(object);
    if (!isHere || !QtCall::isUnderWay())
        call();
}

void Remains::releaseLater(Ref reference)
{
    const QCoreApplication* application = QCoreApplication::instance();
    const bool endsNothing = Py_REFCNT(reference.get()) > 1;
    if (endsNothing || !application || application->thread() != QThread::currentThread())
        reference.reset();
    else if (g_released)
        g_released->push_back(std::move(reference));
    else
        destroyLater(*new Released(std::move(reference)));
}

void Remains::call()
{
    QCoreApplication::postEvent(&Queue::instance(), new QEvent(QEvent::User));
}

} // namespace python
