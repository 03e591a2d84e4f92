#pragma once

#include "editor/debugger/Breakpoints.h"
#include "editor/debugger/CallStack.h"
#include "editor/debugger/Stepper.h"
#include "editor/debugger/Tracing.h"

#include <memory>

namespace debugger {

/// Why and where a script has stopped.
struct Pause
{
    CallStack stack; ///< never empty
    /// A sentence for the user when it is not simply a breakpoint or a step: the exception, a condition that failed.
    QString reason;
    /// The program cannot go on from here: the frames are those of an exception that nobody caught.
    bool postMortem = false;
};

/// The face of the debugger. All calls come on the GUI thread with the interpreter lock held.
class PauseHandler
{
public:
    virtual ~PauseHandler() = default;
    /// False while a nested event loop would do harm.
    virtual bool canPause() const = 0;
    /// Shows the pause and returns when the user has decided; the events of the application go on meanwhile. May end
    /// with the handler and the engine destroyed.
    virtual Resume paused(const Pause& pause) = 0;
};

/// editor/debugger: the engine that stops Python code at breakpoints and in steps, and the panel that shows it.

/// The debugger without its panel. Watches code on the GUI thread only; other Python threads are left alone, and wait
/// for the interpreter lock while a script is paused.
///
/// GUI thread only; at most one engine is enabled at a time. Made and destroyed with or without the lock.
class Engine final : private LineWatcher
{
public:
    /// `trace` is the function that the interpreter gets to see; it passes its events on to traced(). The handler
    /// lives as long as the engine.
    Engine(PauseHandler& handler, Py_tracefunc trace);
    ~Engine() override;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void setEnabled(bool enabled);
    bool isEnabled() const { return m_tracing.isOn(); }

    Breakpoints& breakpoints() { return m_breakpoints; }
    const Breakpoints& breakpoints() const { return m_breakpoints; }

    /// Whether to stop at an exception that ends a script.
    void setStopsAtExceptions(bool stops) { m_stopsAtExceptions = stops; }

    /// The trace function's work; 0, or -1 with KeyboardInterrupt pending when the user stopped the script.
    int traced(PyFrameObject* frame, int event);

    /// An exception that leaves a script: pauses with the frames it came through, innermost first. The lock is held,
    /// no exception is pending.
    void unhandled(PyObject* value, PyObject* traceback);

    /// What breakpoint() does: the next line of the calling function stops. False while the engine is off.
    bool stopAtNextLine();

    bool isPaused() const { return m_paused; }

private:
    bool wantsLines(const _PyInterpreterFrame* frame) const override;
    unsigned epoch() const override { return m_epoch + m_breakpoints.generation(); }
    void outermostFrameLeft() override;

    int reached(PyFrameObject* frame, int line);
    int pause(PyFrameObject* frame, const QString& reason);
    Resume wait(const Pause& pause);
    bool canPause(const QString& where);

    PauseHandler& m_handler;
    Tracing m_tracing;
    Breakpoints m_breakpoints;
    Stepper m_stepper;
    unsigned m_epoch = 0;
    bool m_stopsAtExceptions = true;
    bool m_paused = false;
    bool m_complained = false;
    std::shared_ptr<void> m_life = std::make_shared<int>(); // expires with the engine
};

} // namespace debugger
