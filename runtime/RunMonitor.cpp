#include "runtime/RunMonitor.h"

#include "host/services/IAppWrapper.h"
#include "runtime/Errors.h"
#include "runtime/ForkedChild.h"
#include "runtime/WakeUpSignal.h"

#include <boost/python.hpp>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace bp = boost::python;

namespace python {

namespace {

constexpr std::chrono::milliseconds g_interval{40};

/// The ticking goes on this long without a run, so that handlers in quick succession wake no thread.
constexpr int g_idleTicks = 25;

pthread_t g_guiThread;

// Of the run under way; touched on the GUI thread only.
IRunObserver* g_observer = nullptr;
const char* g_name = nullptr; // of a run that the observer has not been told of
bool g_breathing = false;
bool g_paused = false;

/// Sends the signal at the interval while it is wanted. The thread is never joined: it sleeps when nothing runs and
/// ends with the process.
class Ticker
{
public:
    void setWanted(bool wanted)
    {
        m_wanted = wanted;
        if (wanted && m_asleep)
            wake();
    }

private:
    void wake()
    {
        const std::lock_guard lock(m_mutex);
        if (!m_started) {
            m_started = true;
            std::thread([this] { tick(); }).detach();
        }
        m_asleep = false;
        m_wake.notify_one();
    }

    void tick()
    {
        // This thread must not take the signals that are meant for the GUI thread.
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, nullptr);
        for (int idle = 0;;) {
            std::this_thread::sleep_for(g_interval);
            if (m_wanted) {
                idle = 0;
                pthread_kill(g_guiThread, g_wakeUpSignal);
            } else if (++idle >= g_idleTicks) {
                std::unique_lock lock(m_mutex);
                m_asleep = true;
                // A run that began in between has not seen the thread asleep.
                m_wake.wait(lock, [this] { return !m_asleep || m_wanted; });
                m_asleep = false;
                idle = 0;
            }
        }
    }

    std::atomic<bool> m_wanted = false;
    std::atomic<bool> m_asleep = true;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_started = false;
};

Ticker& ticker()
{
    static auto* const only = new Ticker; // its thread outlives every static object
    return *only;
}

void beginRun(IRunObserver* observer)
{
    g_observer = observer;
    ticker().setWanted(!g_paused);
}

bool isObservable(const IRunObserver* observer)
{
    return observer && !g_observer && !ForkedChild::isHere() && pthread_equal(pthread_self(), g_guiThread);
}

/// The interpreter calls it as handler(signal number, frame) on the GUI thread.
PyObject* breathe(PyObject* /*self*/, PyObject* /*arguments*/)
{
    if (!g_observer || g_breathing || g_paused)
        Py_RETURN_NONE;
    g_breathing = true;
    if (g_name)
        g_observer->runStarted(QString::fromLatin1(std::exchange(g_name, nullptr)));
    const bool stop = g_observer->breathe();
    g_breathing = false;
    if (stop) {
        PyErr_SetNone(PyExc_KeyboardInterrupt);
        return nullptr;
    }
    Py_RETURN_NONE;
}

PyMethodDef g_breathe = {"__strativo_breathe", breathe, METH_VARARGS, nullptr};

} // namespace

RunMonitor::RunMonitor(IRunObserver* observer, const QString& fileName)
    : m_isOutermost(isObservable(observer)), m_isInChild(ForkedChild::isHere())
{
    if (!m_isOutermost)
        return;
    observer->runStarted(fileName);
    beginRun(observer);
}

RunMonitor::RunMonitor(IRunObserver* observer, const char* name)
    : m_isOutermost(isObservable(observer)), m_isInChild(ForkedChild::isHere())
{
    if (!m_isOutermost)
        return;
    g_name = name;
    beginRun(observer);
}

RunMonitor::~RunMonitor()
{
    if (ForkedChild::isHere() && !m_isInChild) [[unlikely]]
        ForkedChild::leave();
    if (!m_isOutermost)
        return;
    ticker().setWanted(false);
    IRunObserver* observer = std::exchange(g_observer, nullptr);
    if (!std::exchange(g_name, nullptr))
        observer->runFinished();
}

bool RunMonitor::isBreathing()
{
    return g_breathing;
}

RunPause::RunPause() : m_wasPaused(std::exchange(g_paused, true))
{
    ticker().setWanted(false);
}

RunPause::~RunPause()
{
    g_paused = m_wasPaused;
    ticker().setWanted(g_observer && !g_paused);
}

void RunMonitor::abandon()
{
    g_observer = nullptr;
    g_name = nullptr;
}

void RunMonitor::install()
{
    g_guiThread = pthread_self();
    installWakeUpSignal(g_breathe);
}

void enableKeyboardInterrupt()
{
    const bp::object signal = bp::import("_signal");
    const bp::object handler = signal.attr("default_int_handler");
    signal.attr("signal")(SIGINT, handler);
}

} // namespace python
