#include "editor/debugger/TimeLimit.h"

#include "runtime/Ref.h"

#include <boost/python/detail/wrap_python.hpp>

#include <condition_variable>
#include <csignal>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace debugger {

using python::Ref;

namespace {

constexpr std::chrono::milliseconds g_repeat{20}; // code may swallow the exception

bool g_limited = false; // a late signal after the end must not hit the script
bool g_struck = false;

PyObject* takesTooLong()
{
    static PyObject* const type = PyErr_NewException("debugger.TakesTooLong", PyExc_BaseException, nullptr);
    return type;
}

/// The interpreter calls it between two instructions of the GUI thread.
PyObject* strike(PyObject* /*self*/, PyObject* /*arguments*/)
{
    if (!g_limited)
        Py_RETURN_NONE;
    g_struck = true;
    PyErr_SetString(takesTooLong(), "takes too long");
    return nullptr;
}

PyMethodDef g_strike = {"__strativo_time_limit", strike, METH_VARARGS, nullptr};

/// A signal that nothing else uses; 0 when the interpreter does not take it.
int installSignal()
{
    const int number = SIGRTMIN + 7;
    const Ref module = Ref::steal(PyImport_ImportModule("_signal"));
    const Ref handler = Ref::steal(PyCFunction_New(&g_strike, nullptr));
    const Ref before = Ref::steal(
        module && handler ? PyObject_CallMethod(module.get(), "signal", "iO", number, handler.get()) : nullptr);
    PyErr_Clear();
    return before ? number : 0;
}

} // namespace

class TimeLimit::Watch
{
public:
    Watch(std::chrono::milliseconds allowed, int signal)
        : m_thread([this, allowed, signal, target = pthread_self()] { watch(allowed, signal, target); })
    {}
    ~Watch()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_ended = true;
        }
        m_wake.notify_one();
        m_thread.join();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

private:
    void watch(std::chrono::milliseconds allowed, int signal, pthread_t target)
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, nullptr);
        std::unique_lock lock(m_mutex);
        for (auto pause = allowed; !m_wake.wait_for(lock, pause, [this] { return m_ended; }); pause = g_repeat)
            pthread_kill(target, signal);
    }

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ended = false;
    std::thread m_thread; // last: it uses the others
};

TimeLimit::TimeLimit(std::chrono::milliseconds allowed)
{
    static const int signal = installSignal();
    g_struck = false;
    g_limited = true;
    if (signal != 0)
        m_watch = std::make_unique<Watch>(allowed, signal);
}

TimeLimit::~TimeLimit()
{
    m_watch.reset();
    g_limited = false;
}

bool TimeLimit::hasStruck() const
{
    return g_struck;
}

} // namespace debugger
