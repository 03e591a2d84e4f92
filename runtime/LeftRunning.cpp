#include "runtime/LeftRunning.h"

#include "host/services/IAppWrapper.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/Ref.h"
#include "runtime/RunMonitor.h"

#include <boost/python.hpp>

#include <chrono>
#include <thread>
#include <vector>

namespace bp = boost::python;

namespace python {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds g_patience{500};

/// Stops code that takes longer.
class Deadline final : public IRunObserver
{
public:
    bool hasPassed() const { return Clock::now() > m_end; }

    void runStarted(const QString& /*name*/) override {}
    bool breathe() override { return hasPassed(); }
    void runFinished() override {}

private:
    const Clock::time_point m_end = Clock::now() + g_patience;
};

/// The module, which somebody else imported; null when nobody did.
PyObject* imported(const char* name)
{
    return PyDict_GetItemString(PyImport_GetModuleDict(), name);
}

void callWithin(Deadline& deadline, PyObject* function)
{
    const RunMonitor monitor(&deadline, "exit functions");
    const Ref result = Ref::steal(PyObject_CallNoArgs(function));
    if (!result && deadline.hasPassed() && PyErr_ExceptionMatches(PyExc_KeyboardInterrupt))
        PyErr_Clear();
    else if (!result)
        PyErr_WriteUnraisable(function);
}

/// The functions that end thread pools, which plain Python calls before it waits for threads.
void endThreadPools(PyObject* threading)
{
    const Ref functions = Ref::steal(PyObject_GetAttrString(threading, "_threading_atexits"));
    const Ref newestFirst = Ref::steal(functions ? PySequence_List(functions.get()) : nullptr);
    if (newestFirst && PyList_Reverse(newestFirst.get()) == 0) {
        Deadline deadline;
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(newestFirst.get()); ++i)
            callWithin(deadline, PyList_GET_ITEM(newestFirst.get(), i));
        Ref::steal(PyObject_CallMethod(functions.get(), "clear", nullptr));
    }
    PyErr_Clear();
}

/// As plain Python: thread pools end and threads that are no daemons are waited for.
void waitForThreads(PyObject* threading)
{
    if (!Ref::steal(PyObject_CallMethod(threading, "_shutdown", nullptr)))
        PyErr_WriteUnraisable(threading);
}

/// Those of atexit. Process pools end here, while their threads still work.
void callExitFunctions(Patience patience)
{
    const Ref atexit = Ref::steal(PyImport_ImportModule("atexit"));
    const Ref run = Ref::steal(atexit ? PyObject_GetAttrString(atexit.get(), "_run_exitfuncs") : nullptr);
    if (run && patience == Patience::Short) {
        Deadline deadline;
        callWithin(deadline, run.get());
    } else if (run) {
        Ref::steal(PyObject_CallNoArgs(run.get()));
    }
    PyErr_Clear();
}

/// The other threads that have a thread state, by the id that the interpreter knows them by.
std::vector<unsigned long> otherThreads()
{
    std::vector<unsigned long> threads;
    PyThreadState* own = PyThreadState_Get();
    for (PyThreadState* state = PyInterpreterState_ThreadHead(PyInterpreterState_Get()); state;
         state = PyThreadState_Next(state))
        if (state != own)
            threads.push_back(state->thread_id);
    return threads;
}

/// Finalisation waits for every non-daemon thread; one that cannot be ended must not keep the application from
/// leaving, so the interpreter forgets it. It stops for good when it next asks for the lock.
void forgetThreads(PyObject* threading)
{
    const Ref locks = Ref::steal(PyObject_GetAttrString(threading, "_shutdown_locks"));
    Ref::steal(locks ? PyObject_CallMethod(locks.get(), "clear", nullptr) : nullptr);
    PyErr_Clear();
}

void endOtherThreads()
{
    const Deadline deadline;
    for (unsigned long thread : otherThreads())
        PyThreadState_SetAsyncExc(thread, PyExc_SystemExit);
    while (!otherThreads().empty()) {
        if (deadline.hasPassed()) {
            if (PyObject* threading = imported("threading"))
                forgetThreads(threading);
            return;
        }
        const GilRelease unlocked;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

} // namespace

void endWhatIsLeftRunning(Patience patience)
{
    if (PyObject* threading = imported("threading"))
        patience == Patience::Short ? endThreadPools(threading) : waitForThreads(threading);
    callExitFunctions(patience);
    endOtherThreads();
}

} // namespace python
