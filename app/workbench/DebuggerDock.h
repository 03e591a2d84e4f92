#pragma once

#include <QDockWidget>
#include <QPointer>

class HVPythonDebugger;
class HVPythonTextEdit;

namespace workbench {

class MainWindow;

/// The debugger's place in the workbench: its dock, its commands in the Tools menu, the breakpoints of all editors, and
/// the paused line in the editor that shows it. Lives while there is an interpreter.
class DebuggerDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit DebuggerDock(MainWindow& window);

    HVPythonDebugger* debugger() const { return m_debugger; }

private:
    void handleCommands();
    void addEditor(HVPythonTextEdit* editor);
    void showStoppedLine(int line);
    void showWaiting(bool waiting);
    void showPlace(const QString& file, int line);
    /// The editor of the code that runs under this name, opened when it is a file; null when there is none to show.
    HVPythonTextEdit* editorOf(const QString& file);

    MainWindow& m_window;
    HVPythonDebugger* m_debugger;
    QPointer<HVPythonTextEdit> m_stoppedEditor;
};

} // namespace workbench
