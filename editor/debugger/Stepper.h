#pragma once

#include "editor/debugger/CodeMarks.h"
#include "runtime/Ref.h"

#include <algorithm>
#include <vector>

namespace debugger {

/// How a paused script goes on.
enum class Resume
{
    Continue,
    StepOver, ///< to the next line of the same function, or of its caller when it returns
    StepInto, ///< to the next line, also of a function that is called
    StepOut,  ///< to the next line of the caller
    Stop,     ///< KeyboardInterrupt at the line where it stands
};

/// A step under way: which lines end it. Steps pass over the shipped standard library, but stop in functions that it
/// calls. GUI thread, with the interpreter lock.
class Stepper
{
public:
    Stepper() = default;
    Stepper(const Stepper&) = delete;
    Stepper& operator=(const Stepper&) = delete;

    /// Begins the step from `frame`; anything but a step only ends the one under way.
    void start(Resume step, PyFrameObject* frame);
    void cancel();

    bool isActive() const { return m_into || !m_targets.empty(); }
    /// Whether the step needs to see the lines of this frame; `frame` may be null.
    bool follows(const PyFrameObject* frame, const CodeMarks& marks) const
    {
        return (m_into && marks.ownCode) || isTarget(frame);
    }
    /// To be told of every frame that returns or yields while a step is active.
    void frameLeft(PyFrameObject* frame);

private:
    using FrameRef = python::BasicRef<PyFrameObject>;
    using Targets = std::vector<FrameRef>;

    Targets::const_iterator targetOf(const PyFrameObject* frame) const
    {
        return std::find_if(m_targets.begin(), m_targets.end(),
                            [frame](const FrameRef& target) { return target.get() == frame; });
    }
    bool isTarget(const PyFrameObject* frame) const { return frame && targetOf(frame) != m_targets.end(); }
    void aimAt(FrameRef frame);
    void aimAtCallerOf(PyFrameObject* frame);

    bool m_into = false;
    Targets m_targets;
};

} // namespace debugger
