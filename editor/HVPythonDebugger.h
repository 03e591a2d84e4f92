#pragma once

#include "editor/debugger/Engine.h"

#include <QFrame>
#include <QPointer>

class QAction;
class QCheckBox;
class QLabel;
class QPushButton;
class QToolBar;
class VariableTreeModel;

namespace debugger {
class BreakpointList;
class CallStackList;
class VariableView;
} // namespace debugger

/// The debugger's panel: pauses scripts at breakpoints in a nested event loop, shows the calls and variables of the
/// paused program and resumes on request. What it watches is the engine's business (editor/debugger).
///
/// There is at most one panel at a time. GUI thread only; the interpreter lock is taken where it is needed and stays
/// held during a pause, so other Python threads wait. The panel may be destroyed at any time, also during a pause, and
/// may outlive the interpreter.
class HVPythonDebugger : public QFrame, private debugger::PauseHandler
{
    Q_OBJECT

public:
    explicit HVPythonDebugger(QWidget* parent = nullptr);
    ~HVPythonDebugger() override;

    /// Null while there is no panel.
    static HVPythonDebugger* instance();

    /// `file` is the name under which the script is compiled, or another name of the same existing file; lines are
    /// 1-based. Adding twice and removing an absent one do nothing.
    void addBreakpoint(const QString& file, int line);
    void removeBreakpoint(const QString& file, int line);
    /// Whether there is a breakpoint of exactly this name and line.
    bool isBreakpointHit(const QString& file, int line) const;
    /// Whether and when a breakpoint of exactly this name and line stops; nothing is set where there is none.
    debugger::BreakpointSettings breakpointSettings(const QString& file, int line) const;
    void setBreakpointSettings(const QString& file, int line, const debugger::BreakpointSettings& settings);
    /// The program pauses the next time it reaches the line, in this run; only while waiting.
    void runTo(const QString& file, int line);

    bool debuggingEnabled() const;
    void setDebuggingEnabled(bool enabled);
    bool isWaiting() const { return m_waiting; }
    void setIsWaiting(bool waiting);

    /// Shows the rows of both mappings. Needs the interpreter lock.
    void populateVariables(PyFrameObject* frame, PyObject* globals, PyObject* locals);
    void disableVariablesTree();

    /// Where the paused program stands; empty and -1 while nothing is paused.
    QString pausedFile() const { return m_pausedFile; }
    int pausedLine() const { return m_pausedLine; }

    /// Ends a pause with KeyboardInterrupt in the script.
    void stop();

    /// Continue, step over, step into, step out, stop: with icons and keys, enabled while waiting.
    QList<QAction*> commands() const { return m_commands; }

    /// The function that the interpreter calls for every event; does nothing without a panel.
    static int tracer_fn(PyObject* obj, PyFrameObject* frame, int what, PyObject* arg);

Q_SIGNALS:
    /// A step was asked for; ends the pause, as does signalContinue().
    void signalNextStep();
    void signalContinue();
    /// The line at which the program in pausedFile() has stopped; -1 when it goes on.
    void signalBreakpointHit(int lineNum);
    void sendActionToMdi(QObject* sender, QObject* target, const QString& action);

    /// The user has changed the settings of a breakpoint in the panel.
    void breakpointEdited(const QString& file, int line);
    void waitingChanged(bool waiting);
    /// The user wants to see this line: a call of the stack, or a breakpoint.
    void placeChosen(const QString& file, int line);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool canPause() const override;
    debugger::Resume paused(const debugger::Pause& pause) override;

    void makeCommands(QToolBar* bar);
    void resume(debugger::Resume how);
    void showPause(const debugger::Pause& pause);
    void endPause();
    void showCall(std::size_t index);
    void presentToUser();
    void colourBanner();

    debugger::Engine m_engine;
    QCheckBox* m_enabled;
    QPushButton* m_continue;
    QLabel* m_banner;
    debugger::CallStackList* m_calls;
    debugger::BreakpointList* m_breakpoints;
    debugger::VariableView* m_variables;
    QList<QAction*> m_commands;
    const debugger::Pause* m_pause = nullptr; // while waiting
    debugger::Resume m_resume = debugger::Resume::Continue;
    QString m_pausedFile;
    int m_pausedLine = -1;
    bool m_waiting = false;
};
