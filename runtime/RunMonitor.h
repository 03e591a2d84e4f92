#pragma once

#include <QString>

class IRunObserver;

namespace python {

/// Keeps the application alive while Python code occupies the GUI thread: for its lifetime the observer breathes about
/// every 40 ms, between two instructions of the code or in the middle of a blocking call such as time.sleep, and a
/// request to stop raises KeyboardInterrupt there.
///
/// Made and destroyed on the GUI thread with the interpreter lock held. Runs nest; the outermost one is observed. A
/// null observer, or another thread, makes it do nothing of that.
///
/// It is also where a process that the code forked ends: the copy does not come back into the application.
class RunMonitor
{
public:
    /// The observer learns of the run at once.
    RunMonitor(IRunObserver* observer, const QString& fileName);
    /// The observer learns of the run at its first breath, and never of a shorter one: for the many short calls with
    /// which windows ask scripts. `name` stays valid; it costs some nanoseconds.
    RunMonitor(IRunObserver* observer, const char* name);
    ~RunMonitor();
    RunMonitor(const RunMonitor&) = delete;
    RunMonitor& operator=(const RunMonitor&) = delete;

    /// Whether the observer is at it just now: windows paint, and the user's input is kept back.
    static bool isBreathing();

    /// Forgets the run under way: in a forked copy of the process there is no application to keep alive.
    static void abandon();

    /// Registers the wake-up signal with the interpreter; once, on the thread that started it.
    static void install();

private:
    bool m_isOutermost = false;
    const bool m_isInChild;
};

/// For a run that waits in an event loop of its own, as in the debugger: for the object's lifetime the observer does
/// not breathe, whatever Python code runs meanwhile. On the GUI thread with the interpreter lock held; nests.
class RunPause
{
public:
    RunPause();
    ~RunPause();
    RunPause(const RunPause&) = delete;
    RunPause& operator=(const RunPause&) = delete;

private:
    const bool m_wasPaused;
};

/// Makes Ctrl+C raise KeyboardInterrupt in the running script, as in plain Python; for programs on a terminal. Needs
/// the interpreter lock, on the thread that started the interpreter.
void enableKeyboardInterrupt();

} // namespace python
