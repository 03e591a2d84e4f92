#include "runtime/RunMonitor.h"

#include "host/services/IAppWrapper.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

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

/// Ignored by default everywhere, so a late one harms nobody. The interpreter turns it into a call between two
/// instructions; unlike a pending call it also wakes time.sleep and select.
constexpr int g_signal = SIGURG;

pthread_t g_guiThread;
IRunObserver* g_observed = nullptr; // of the run under way; touched on the GUI thread only
bool g_breathing = false;
bool g_paused = false;

/// Sends the signal at the interval for its lifetime.
class Ticker
{
public:
    Ticker() : m_thread([this] { tick(); }) {}
    ~Ticker()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_ended = true;
        }
        m_wake.notify_one();
        m_thread.join();
    }
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;

private:
    void tick()
    {
        // This thread must not take the signals that are meant for the GUI thread.
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, nullptr);
        std::unique_lock lock(m_mutex);
        while (!m_wake.wait_for(lock, g_interval, [this] { return m_ended; }))
            pthread_kill(g_guiThread, g_signal);
    }

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_ended = false;
    std::thread m_thread;
};

std::unique_ptr<Ticker>& ticker()
{
    static std::unique_ptr<Ticker> current;
    return current;
}

/// The interpreter calls it as handler(signal number, frame) on the GUI thread.
PyObject* breathe(PyObject* /*self*/, PyObject* /*arguments*/)
{
    if (!g_observed || g_breathing || g_paused)
        Py_RETURN_NONE;
    g_breathing = true;
    const bool stop = g_observed->breathe();
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
{
    if (!observer || g_observed || !pthread_equal(pthread_self(), g_guiThread))
        return;
    m_observer = observer;
    g_observed = observer;
    observer->runStarted(fileName);
    ticker() = std::make_unique<Ticker>();
}

RunMonitor::~RunMonitor()
{
    if (!m_observer)
        return;
    ticker().reset();
    g_observed = nullptr;
    m_observer->runFinished();
}

bool RunMonitor::isBreathing()
{
    return g_breathing;
}

RunPause::RunPause() : m_wasPaused(std::exchange(g_paused, true))
{
    ticker().reset();
}

RunPause::~RunPause()
{
    g_paused = m_wasPaused;
    if (g_observed && !g_paused)
        ticker() = std::make_unique<Ticker>();
}

void RunMonitor::install()
{
    g_guiThread = pthread_self();
    const bp::object signal = bp::import("_signal");
    signal.attr("signal")(g_signal, owned(PyCFunction_New(&g_breathe, nullptr)));
    // System calls of other libraries are restarted rather than cut short by a tick.
    signal.attr("siginterrupt")(g_signal, false);
}

void enableKeyboardInterrupt()
{
    const bp::object signal = bp::import("_signal");
    const bp::object handler = signal.attr("default_int_handler");
    signal.attr("signal")(SIGINT, handler);
}

} // namespace python
