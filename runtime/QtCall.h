#pragma once

#include "runtime/GilLock.h"
#include "runtime/PendingError.h"
#include "runtime/Remains.h"
#include "runtime/RunMonitor.h"

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

    /// Whether Qt may still use an object that Python code now gives up: such objects are destroyed later, see Remains.
    static bool isUnderWay() { return s_depth > 0; }

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
    static void leave()
    {
        if (--s_depth == 0 && Remains::areWaiting()) [[unlikely]]
            Remains::call();
    }

    const GilLock m_lock;
    const RunMonitor m_monitor;
    const PendingError m_pending;
    static inline int s_depth = 0;
};

} // namespace python
