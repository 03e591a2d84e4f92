#include "editor/debugger/Stepper.h"

#include "editor/debugger/FrameLayout.h"

namespace debugger {

namespace {

/// A frame that comes back after it has been left.
bool canResume(PyFrameObject* frame)
{
    return (strativo_objectCode(frame)->co_flags & (CO_GENERATOR | CO_COROUTINE | CO_ASYNC_GENERATOR)) != 0;
}

bool isOwn(PyFrameObject* frame)
{
    const std::optional<QString> file = fileOf(strativo_objectCode(frame));
    return file && !isShipped(*file);
}

} // namespace

void Stepper::start(Resume step, PyFrameObject* frame)
{
    cancel();
    m_into = step == Resume::StepInto;
    if (step == Resume::StepOver)
        aimAt(frame);
    else if (step == Resume::StepOut)
        aimAtCallerOf(frame);
}

void Stepper::cancel()
{
    m_into = false;
    // Emptied first: the last reference to a frame may run code.
    const std::vector<PyFrameObject*> targets = std::exchange(m_targets, {});
    for (PyFrameObject* frame : targets)
        Py_DECREF(frame);
}

void Stepper::aimAt(PyFrameObject* frame)
{
    if (isTarget(frame))
        return;
    Py_INCREF(frame);
    m_targets.push_back(frame);
}

void Stepper::aimAtCallerOf(PyFrameObject* frame)
{
    PyFrameObject* caller = PyFrame_GetBack(frame);
    while (caller && !isOwn(caller)) {
        PyFrameObject* next = PyFrame_GetBack(caller);
        Py_DECREF(caller);
        caller = next;
    }
    if (caller)
        aimAt(caller);
    Py_XDECREF(caller);
}

void Stepper::frameLeft(PyFrameObject* frame)
{
    if (!isTarget(frame))
        return;
    // A generator that yields may be asked again before its caller reaches another line: either ends the step.
    if (!canResume(frame)) {
        m_targets.erase(std::find(m_targets.begin(), m_targets.end(), frame));
        aimAtCallerOf(frame);
        Py_DECREF(frame);
        return;
    }
    aimAtCallerOf(frame);
}

} // namespace debugger
