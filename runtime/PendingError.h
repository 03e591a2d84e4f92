#pragma once

#include "runtime/Ref.h"

namespace python {

/// Takes the pending exception out of the way, so that other code can run, and puts it back at the end in place of
/// whatever is pending then; when none was pending, none is afterwards. Lives on the stack, with the interpreter lock.
class PendingError
{
public:
    PendingError() { PyErr_Fetch(&m_type, &m_value, &m_traceback); }
    ~PendingError()
    {
        if (m_isKept)
            putBack();
    }
    PendingError(const PendingError&) = delete;
    PendingError& operator=(const PendingError&) = delete;

    explicit operator bool() const { return m_type != nullptr; }
    /// False when there is none.
    bool isA(PyObject* type) const { return m_type && PyErr_GivenExceptionMatches(m_type, type); }
    /// Exactly this type; costs nothing.
    bool isExactly(PyObject* type) const { return m_type == type; }

    /// The exception object with its traceback, borrowed; null when there is none. Makes it when it is not made yet.
    PyObject* value();
    /// Borrowed; null when there is none.
    PyObject* traceback() const { return m_traceback; }
    /// An attribute of the exception; none, with nothing pending, when it has no such.
    Ref attribute(const char* name);

    /// Makes it pending now.
    void putBack()
    {
        m_isKept = false;
        PyErr_Restore(std::exchange(m_type, nullptr), std::exchange(m_value, nullptr),
                      std::exchange(m_traceback, nullptr));
    }
    /// It has been dealt with: what is pending at the end stays.
    void drop();

private:
    PyObject* m_type = nullptr;
    PyObject* m_value = nullptr;
    PyObject* m_traceback = nullptr;
    bool m_isKept = true;
    bool m_isMade = false;
};

} // namespace python
