#pragma once

#include "runtime/GilLock.h"
#include "runtime/RunMonitor.h"

#include <atomic>
#include <vector>

class QObject;

namespace python {

/// The way from the application's windows into Python: holds the interpreter lock, lets the user stop the code when it
/// takes long, and says to destructors that the windows' own code is still on the stack. An exception that is pending
/// (an object may die while one unwinds) waits meanwhile. On the GUI thread; nests.
class QtCall
{
public:
    /// `name`, which stays valid, is what a run indicator shows.
    explicit QtCall(const char* name);
    ~QtCall();
    QtCall(const QtCall&) = delete;
    QtCall& operator=(const QtCall&) = delete;

    /// Windows may outlive the interpreter; then there is nothing to call.
    static bool isPossible() { return Py_IsInitialized() != 0; }

    /// Whether Qt may still use an object that Python code now gives up: such objects are destroyed later.
    static bool isUnderWay() { return s_depth > 0; }

    /// Destroys what Qt may still use once it no longer can. From any thread, with the interpreter lock.
    static void destroyLater(QObject& object);

    /// Lets a reference go that belonged to an object which Qt is just destroying: what this ends may run Python code,
    /// which must not meet half an object. On other threads than Qt's, at once. With the interpreter lock.
    static void releaseLater(PyObject* reference);
    /// Destroys an object that Qt does not use, and releases what it held before returning.
    static void destroyNow(QObject& object);

    /// The same promise for code of the application that lets Python objects go while Qt uses theirs.
    class Guard
    {
    public:
        Guard() { ++s_depth; }
        ~Guard() { leave(); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
    };

private:
    class Remains;

    const GilLock m_lock;
    const RunMonitor m_monitor;
    PyObject* m_pending[3];
    static void leave()
    {
        if (--s_depth == 0 && s_hasRemains.load(std::memory_order_relaxed)) [[unlikely]]
            askForRemains();
    }
    static void askForRemains();

    static inline int s_depth = 0;
    static inline std::vector<PyObject*>* s_released = nullptr; // of the object that destroyNow() destroys
    static inline std::atomic<bool> s_hasRemains = false;
};

} // namespace python
