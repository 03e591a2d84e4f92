#pragma once

#include <boost/python/detail/wrap_python.hpp>

/// The only place where the interpreter lock is taken and given back. Guards live on the stack and are not moved.
namespace python {

/// Holds the interpreter lock; nests, and works on any thread while the interpreter lives.
class GilLock
{
public:
    GilLock() : m_state(PyGILState_Ensure()) {}
    ~GilLock() { PyGILState_Release(m_state); }
    GilLock(const GilLock&) = delete;
    GilLock& operator=(const GilLock&) = delete;

private:
    PyGILState_STATE m_state;
};

/// Gives the lock away for slow work that touches no Python object.
class GilRelease
{
public:
    GilRelease() : m_thread(PyEval_SaveThread()) {}
    ~GilRelease() { PyEval_RestoreThread(m_thread); }
    GilRelease(const GilRelease&) = delete;
    GilRelease& operator=(const GilRelease&) = delete;

private:
    PyThreadState* m_thread;
};

/// For destructors that may run after the interpreter has gone: holds the lock only when there still is one.
///
///     LateGilLock lock;
///     if (lock) Py_CLEAR(m_callable);   // otherwise the object died with the interpreter
class LateGilLock
{
public:
    LateGilLock() : m_held(Py_IsInitialized() != 0)
    {
        if (m_held)
            m_state = PyGILState_Ensure();
    }
    ~LateGilLock()
    {
        if (m_held)
            PyGILState_Release(m_state);
    }
    LateGilLock(const LateGilLock&) = delete;
    LateGilLock& operator=(const LateGilLock&) = delete;
    explicit operator bool() const { return m_held; }

private:
    bool m_held;
    PyGILState_STATE m_state{};
};

} // namespace python
