#include "runtime/QtCall.h"

#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThread>

#include <mutex>
#include <utility>
#include <vector>

namespace python {

namespace {

IRunObserver* runObserver()
{
    const IAppWrapper* app = applicationInterface();
    return app ? app->runObserver() : nullptr;
}

} // namespace

QtCall::QtCall(const char* name) : m_monitor(runObserver(), name)
{
    PyErr_Fetch(&m_pending[0], &m_pending[1], &m_pending[2]);
    ++s_depth;
}

QtCall::~QtCall()
{
    leave();
    PyErr_Restore(m_pending[0], m_pending[1], m_pending[2]);
}

/// Objects that wait for their end. Lives as long as the process, in the application's thread.
class QtCall::Remains : public QObject
{
public:
    static Remains& instance()
    {
        static Remains* only = [] {
            auto* remains = new Remains;
            remains->moveToThread(QCoreApplication::instance()->thread());
            return remains;
        }();
        return *only;
    }

    void add(QObject& object)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_objects.emplace_back(&object);
        s_hasRemains = true;
    }

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        // An event loop inside of a handler came first; the end of that handler asks again.
        if (isUnderWay())
            return true;
        std::vector<QPointer<QObject>> objects;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            objects.swap(m_objects);
            s_hasRemains = false;
        }
        for (const QPointer<QObject>& object : objects) {
            const LateGilLock lock;
            if (object)
                destroyNow(*object);
        }
        return true;
    }

private:
    std::mutex m_mutex;
    std::vector<QPointer<QObject>> m_objects;
};

void QtCall::destroyLater(QObject& object)
{
    // Qt waits for the end of the event loop that it is in. Outside of any, and for other threads, it does not wait at
    // all, but would destroy the object in the next loop, however deep inside the object's own handlers that runs.
    const bool isHere = QThread::currentThread() == object.thread();
    if (isHere && object.thread()->loopLevel() > 0) {
        object.deleteLater();
        return;
    }
    Remains::instance().add(object);
    if (!isHere || !isUnderWay())
        askForRemains();
}

void QtCall::releaseLater(PyObject* reference)
{
    struct Released : QObject
    {
        explicit Released(PyObject* held) : object(held) {}
        ~Released() override
        {
            const LateGilLock lock;
            if (lock)
                Py_DECREF(object);
        }
        PyObject* object;
    };

    const QCoreApplication* application = QCoreApplication::instance();
    const bool endsNothing = Py_REFCNT(reference) > 1;
    if (endsNothing || !application || application->thread() != QThread::currentThread())
        Py_DECREF(reference);
    else if (s_released)
        s_released->push_back(reference);
    else
        destroyLater(*new Released(reference));
}

void QtCall::destroyNow(QObject& object)
{
    std::vector<PyObject*> released;
    std::vector<PyObject*>* outer = std::exchange(s_released, &released);
    delete &object;
    s_released = outer;
    for (PyObject* reference : released)
        Py_DECREF(reference);
}

void QtCall::askForRemains()
{
    QCoreApplication::postEvent(&Remains::instance(), new QEvent(QEvent::User));
}

} // namespace python
