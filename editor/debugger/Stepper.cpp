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
        aimAt(FrameRef::borrow(frame));
    else if (step == Resume::StepOut)
        aimAtCallerOf(frame);
}

void Stepper::cancel()
{
    m_into = false;
    // Emptied first: the last reference to a frame may run code.
    const Targets ended = std::exchange(m_targets, {});
}

void Stepper::aimAt(FrameRef frame)
{
    if (!isTarget(frame.get()))
        m_targets.push_back(std::move(frame));
}

void Stepper::aimAtCallerOf(PyFrameObject* frame)
{
    auto caller = FrameRef::steal(PyFrame_GetBack(frame));
    while (caller && !isOwn(caller.get()))
        caller = FrameRef::steal(PyFrame_GetBack(caller.get()));
    if (caller)
        aimAt(std::move(caller));
}

void Stepper::frameLeft(PyFrameObject* frame)
{
    const auto target = targetOf(frame);
    if (target == m_targets.end())
        return;
    const FrameRef kept = *target;
    // A generator that yields may be asked again before its caller reaches another line: either ends the step.
    if (!canResume(frame))
        m_targets.erase(target);
    aimAtCallerOf(frame);
}

} // namespace debugger
