#pragma once

#include <QObject>

class HVPythonExecutionContext;
class HVPythonTextEdit;

namespace workbench {

class MainWindow;

/// Runs scripts when their editors ask for it, one at a time, and says in the status bar how each has ended. Lives
/// while there is an interpreter.
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the object.
    ScriptRunner(MainWindow& window, const HVPythonExecutionContext& context);
    ~ScriptRunner() override;

private:
    void execute(HVPythonTextEdit& editor);

    MainWindow& m_window;
    const HVPythonExecutionContext& m_context;
};

} // namespace workbench
