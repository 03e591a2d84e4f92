#pragma once

#include <boost/python/detail/wrap_python.hpp>

struct _PyInterpreterFrame;

namespace debugger {

/// Decides which frames are traced. Asked with the interpreter lock held, on the thread that is traced.
class LineWatcher
{
public:
    virtual ~LineWatcher() = default;
    /// Whether the frame's lines must be seen. Leaves a pending exception alone.
    virtual bool wantsLines(const _PyInterpreterFrame* frame) const = 0;
    /// Changes whenever wantsLines() may answer differently for a frame that is running.
    virtual unsigned epoch() const = 0;
    /// No Python code is running on the thread any more.
    virtual void outermostFrameLeft() = 0;
};

/// Keeps a trace function installed on one thread, and the other frames fast.
///
/// The interpreter executes every instruction slowly, three to four times, while a frame is traced, whatever the trace
/// function does. So the evaluation of frames is hooked (PEP 523), and tracing is switched on for those frames only
/// that the watcher wants to see. What remains for all others is a call that the interpreter does not inline.
///
/// Scripts that trace or profile themselves take precedence: while a foreign function is installed nothing is touched;
/// once it has gone, ours returns with the next frame that is wanted.
class Tracing
{
public:
    /// `trace` is the function that the interpreter gets to see. The watcher outlives the object.
    Tracing(LineWatcher& watcher, Py_tracefunc trace) : m_watcher(watcher), m_trace(trace) {}
    ~Tracing();
    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;

    /// For the calling thread, whose running frames are looked at as well. Needs the lock. At most one object is on.
    void start();
    /// Needs the lock; any thread.
    void stop();
    bool isOn() const { return m_thread != nullptr; }
    bool isOnThread(const PyThreadState* thread) const { return m_thread == thread; }

    /// Asks the watcher about all frames that are running. Needs the lock.
    void lookAgain();

private:
    static PyObject* evaluate(PyThreadState* thread, _PyInterpreterFrame* frame, int throwing);
    PyObject* evaluateWatched(PyThreadState* thread, _PyInterpreterFrame* frame, int throwing);
    static void restoreCaller(PyThreadState* thread, unsigned char before, unsigned epoch);
    bool isForeign(const PyThreadState* thread) const;
    void install(PyThreadState* thread);
    bool wantsLoop(const _PyInterpreterFrame* innermost) const;

    LineWatcher& m_watcher;
    const Py_tracefunc m_trace;
    PyThreadState* m_thread = nullptr; // while on
    const char* m_stackFloor = nullptr;
};

} // namespace debugger
