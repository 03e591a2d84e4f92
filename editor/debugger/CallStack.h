#pragma once

#include "runtime/Ref.h"

#include <QString>

#include <optional>
#include <vector>

namespace debugger {

/// The calls of a paused program, innermost first. Holds its frames; needs the interpreter lock throughout.
class CallStack
{
public:
    struct Call
    {
        python::BasicRef<PyFrameObject> frame;
        QString file;
        QString function;
        int line; ///< 1-based, -1 when the code has no lines
    };

    /// `frame` and its callers.
    static CallStack of(PyFrameObject* frame);
    /// The frames that an exception came through, at the lines where it left them.
    static CallStack ofTraceback(PyObject* traceback);

    const std::vector<Call>& calls() const { return m_calls; }
    bool isEmpty() const { return m_calls.empty(); }

private:
    void add(python::BasicRef<PyFrameObject> frame, int line);

    std::vector<Call> m_calls;
};

} // namespace debugger
