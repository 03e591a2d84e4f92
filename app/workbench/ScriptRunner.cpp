#include "app/workbench/ScriptRunner.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptName.h"
#include "editor/HVPythonTextEdit.h"
#include "runtime/HVPythonExecutionContext.h"
#include "runtime/ScriptArguments.h"

#include <QFileInfo>
#include <QStatusBar>

namespace workbench {

namespace {

const QString g_action = QStringLiteral("EXECUTE_PYTHON_IN_EDITOR");

QString sentence(python::RunEnd end)
{
    switch (end) {
    case python::RunEnd::Finished:
        return ScriptRunner::tr("The script has finished.");
    case python::RunEnd::NotRun:
        return ScriptRunner::tr("The script is empty.");
    case python::RunEnd::Stopped:
        return ScriptRunner::tr("The script was stopped.");
    case python::RunEnd::ExitedZero:
    case python::RunEnd::ExitedNonZero:
        return ScriptRunner::tr("The script has ended with sys.exit().");
    default:
        return ScriptRunner::tr("The script has ended with an error; see the messages.");
    }
}

} // namespace

ScriptRunner::ScriptRunner(MainWindow& window, const HVPythonExecutionContext& context)
    : m_window(window), m_context(context)
{
    window.actionDispatcher().setHandler(g_action, [this](QObject* /*sender*/, QObject* target) {
        if (auto* editor = qobject_cast<HVPythonTextEdit*>(target))
            execute(*editor);
    });
}

ScriptRunner::~ScriptRunner()
{
    m_window.actionDispatcher().setHandler(g_action, {});
}

void ScriptRunner::execute(HVPythonTextEdit& editor)
{
    if (m_window.runIndicator()->isRunning()) {
        m_window.statusBar()->showMessage(tr("A script is running already."));
        return;
    }
    // A script without a file has no place of its own, and the application's current folder is nobody's choice.
    const QString file = editor.filename();
    const QString folder = file.isEmpty() ? QString() : QFileInfo(file).absolutePath();
    const python::ScriptArguments presented({file}, folder, file);
    m_context.executePythonCode(editor.plainText(), &editor, scriptName(editor));
    m_window.statusBar()->showMessage(sentence(m_context.lastRunEnd()));
}

} // namespace workbench
