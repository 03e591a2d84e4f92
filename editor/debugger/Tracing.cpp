// How frames are traced one by one, in CPython 3.11.
//
// An evaluation loop of the interpreter is a C call with a _PyCFrame, whose `use_tracing` makes every instruction of
// the loop take the slow way past the trace function. One loop runs several Python frames when calls are inlined; a
// call that is evaluated through a hook never is, so that here a frame begins a loop of its own. evaluateWatched() sets
// the flag of the caller's loop before, which the new loop copies, and restoreCaller() sets it again after, since the
// loop that ends hands its own on. lookAgain() is for loops that run already: breakpoints that are set during a pause.
//
// Where calls are inlined past the hook all the same, `__getitem__` of a class, FrameLayout.c forbids it. Loops that
// were entered before start(), which may run several frames, are traced when one of their frames is wanted
// (wantsLoop()).
#include "editor/debugger/Tracing.h"

#include "editor/debugger/FrameLayout.h"
#include "runtime/GilLock.h"

#include <pthread.h>

namespace debugger {

namespace {

Tracing* g_active = nullptr; // guarded by the interpreter lock

constexpr unsigned char g_traced = 255; // the interpreter ORs it into its opcodes
constexpr unsigned char g_untraced = 0;

void hookEvaluation(_PyFrameEvalFunction function)
{
    _PyInterpreterState_SetEvalFrameFunc(PyInterpreterState_Get(), function);
}

/// The address below which half of the calling thread's stack is used up.
const char* middleOfStack()
{
    pthread_attr_t attributes;
    void* lowest = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return nullptr;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return static_cast<const char*>(lowest) + size / 2;
}

} // namespace

Tracing::~Tracing()
{
    const python::LateGilLock lock;
    if (lock)
        stop();
}

void Tracing::start()
{
    if (isOn())
        return;
    m_thread = PyThreadState_Get();
    m_stackFloor = middleOfStack();
    g_active = this;
    install(m_thread);
    hookEvaluation(&Tracing::evaluate);
    lookAgain();
}

void Tracing::stop()
{
    if (!isOn())
        return;
    if (g_active == this) {
        g_active = nullptr;
        hookEvaluation(_PyEval_EvalFrameDefault);
    }
    const bool own = PyThreadState_Get() == m_thread;
    if (own && !isForeign(m_thread))
        PyEval_SetTrace(nullptr, nullptr);
    lookAgain();
    m_thread = nullptr;
}

bool Tracing::isForeign(const PyThreadState* thread) const
{
    return thread->c_profilefunc || (thread->c_tracefunc && thread->c_tracefunc != m_trace);
}

void Tracing::install(PyThreadState* thread)
{
    if (!thread->c_tracefunc)
        PyEval_SetTrace(m_trace, nullptr);
}

bool Tracing::wantsLoop(const _PyInterpreterFrame* innermost) const
{
    for (const _PyInterpreterFrame* frame = innermost; frame; frame = strativo_callerInLoop(frame))
        if (m_watcher.wantsLines(frame))
            return true;
    return false;
}

void Tracing::lookAgain()
{
    if (!isOn() || isForeign(m_thread))
        return;
    const bool active = g_active == this;
    if (active)
        install(m_thread);
    // During a trace function the interpreter itself looks after the innermost loop.
    for (_PyCFrame* loop = m_thread->tracing ? m_thread->cframe->previous : m_thread->cframe; loop;
         loop = loop->previous)
        loop->use_tracing = active && wantsLoop(loop->current_frame) ? g_traced : g_untraced;
}

PyObject* Tracing::evaluate(PyThreadState* thread, _PyInterpreterFrame* frame, int throwing)
{
    if (!g_active || g_active->m_thread != thread || thread->tracing || g_active->isForeign(thread))
        return _PyEval_EvalFrameDefault(thread, frame, throwing);
    return g_active->evaluateWatched(thread, frame, throwing);
}

PyObject* Tracing::evaluateWatched(PyThreadState* thread, _PyInterpreterFrame* frame, int throwing)
{
    const unsigned char before = thread->cframe->use_tracing;
    const unsigned epoch = m_watcher.epoch();
    // A hooked call takes room on the C stack, an ordinary one does not: a script that recurses deeply, as it may, goes
    // on without the hook, and traced throughout so that no breakpoint is missed.
    const bool deep = static_cast<const char*>(__builtin_frame_address(0)) < m_stackFloor;
    const bool wanted = deep || m_watcher.wantsLines(frame);
    if (wanted) {
        install(thread);
        strativo_forbidInlining(frame);
    }
    thread->cframe->use_tracing = wanted ? g_traced : g_untraced;
    if (deep)
        hookEvaluation(_PyEval_EvalFrameDefault);
    PyObject* result = _PyEval_EvalFrameDefault(thread, frame, throwing);
    // From here on this object may be gone.
    if (deep && g_active)
        hookEvaluation(&Tracing::evaluate);
    restoreCaller(thread, before, epoch);
    return result;
}

/// The interpreter hands the state of a frame that ends on to its caller.
void Tracing::restoreCaller(PyThreadState* thread, unsigned char before, unsigned epoch)
{
    _PyCFrame* caller = thread->cframe;
    if (!thread->c_tracefunc && !thread->c_profilefunc) {
        caller->use_tracing = g_untraced;
    } else if (g_active && g_active->m_thread == thread && !g_active->isForeign(thread)) {
        const bool same = g_active->m_watcher.epoch() == epoch;
        caller->use_tracing = same ? before : g_active->wantsLoop(caller->current_frame) ? g_traced : g_untraced;
    }
    if (caller == &thread->root_cframe && g_active && g_active->m_thread == thread)
        g_active->m_watcher.outermostFrameLeft();
}

} // namespace debugger
