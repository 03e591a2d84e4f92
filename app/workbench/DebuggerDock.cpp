#include "app/workbench/DebuggerDock.h"

#include "app/workbench/Commands.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptName.h"
#include "editor/HVPythonDebugger.h"
#include "editor/HVPythonTextEdit.h"

#include <QAction>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QTextBlock>

namespace workbench {

namespace {

void connectBreakpoints(HVPythonTextEdit* editor, HVPythonDebugger* debugger)
{
    // An unsaved script has no file name, but runs under one of its own.
    const auto nameOf = [editor](const QString& file) { return file.isEmpty() ? scriptName(*editor) : file; };
    QObject::connect(editor, &HVPythonTextEdit::breakpointAdded, debugger,
                     [=](const QString& file, int line) { debugger->addBreakpoint(nameOf(file), line); });
    // Whoever sets a breakpoint wants it to stop.
    QObject::connect(editor, &HVPythonTextEdit::breakpointMade, debugger,
                     [debugger] { debugger->setDebuggingEnabled(true); });
    QObject::connect(editor, &HVPythonTextEdit::breakpointRemoved, debugger,
                     [=](const QString& file, int line) { debugger->removeBreakpoint(nameOf(file), line); });
    // The editor keeps the settings, since it knows where the line goes.
    QObject::connect(editor, &HVPythonTextEdit::breakpointChanged, debugger, [=](const QString& file, int line) {
        debugger->setBreakpointSettings(nameOf(file), line, editor->breakpointSettings(line));
    });
    QObject::connect(debugger, &HVPythonDebugger::breakpointEdited, editor, [=](const QString& file, int line) {
        if (file == scriptName(*editor))
            editor->setBreakpointSettings(line, debugger->breakpointSettings(file, line));
    });
}

} // namespace

DebuggerDock::DebuggerDock(MainWindow& window)
    : QDockWidget(tr("Debugger"), &window), m_window(window), m_debugger(new HVPythonDebugger(this))
{
    setObjectName(QStringLiteral("debuggerDock"));
    setWidget(m_debugger);
    window.addDockWidget(Qt::RightDockWidgetArea, this);
    hide();

    connect(m_debugger, &HVPythonDebugger::signalBreakpointHit, this, &DebuggerDock::showStoppedLine);
    connect(m_debugger, &HVPythonDebugger::waitingChanged, this, &DebuggerDock::showWaiting);
    connect(m_debugger, &HVPythonDebugger::placeChosen, this, &DebuggerDock::showPlace);
    connect(&window, &MainWindow::editorAdded, this, &DebuggerDock::addEditor);
    for (HVPythonTextEdit* editor : window.editors())
        addEditor(editor);
    connect(window.runIndicator(), &RunIndicator::stopAskedWhilePaused, m_debugger, &HVPythonDebugger::stop);
    connect(m_debugger->commands().last(), &QAction::triggered, window.runIndicator(), &RunIndicator::noteStop);
    handleCommands();
}

void DebuggerDock::handleCommands()
{
    Commands& commands = m_window.commands();
    const auto handle = [&](const char* id, auto handler) {
        commands.handle(id, this, [this, handler] {
            if (HVPythonTextEdit* editor = m_window.activeEditor())
                handler(*editor);
        });
    };
    commands.adopt("view.debugger", toggleViewAction());
    handle("debug.run", [this](HVPythonTextEdit& editor) {
        m_debugger->setDebuggingEnabled(true);
        editor.execute();
    });
    handle("debug.toggle-breakpoint",
           [](HVPythonTextEdit& editor) { editor.toggleBreakpoint(editor.textCursor().blockNumber() + 1); });
    const QList<QAction*> steps = m_debugger->commands();
    int step = 0;
    for (const char* id : {"debug.continue", "debug.step-over", "debug.step-into", "debug.step-out"})
        commands.adopt(id, steps.at(step++));
    handle("debug.run-to-cursor", [this](HVPythonTextEdit& editor) {
        m_debugger->runTo(scriptName(editor), editor.textCursor().blockNumber() + 1);
    });
}

void DebuggerDock::addEditor(HVPythonTextEdit* editor)
{
    connectBreakpoints(editor, m_debugger);
}

HVPythonTextEdit* DebuggerDock::editorOf(const QString& file)
{
    for (HVPythonTextEdit* editor : m_window.editors())
        if (showsScript(*editor, file))
            return editor;
    return QFileInfo(file).isFile() ? m_window.openScript(file) : nullptr;
}

void DebuggerDock::showStoppedLine(int line)
{
    if (m_stoppedEditor)
        m_stoppedEditor->breakpointHit(-1);
    m_stoppedEditor = line == -1 ? nullptr : editorOf(m_debugger->pausedFile());
    if (!m_stoppedEditor)
        return;
    m_window.showEditor(*m_stoppedEditor);
    m_stoppedEditor->breakpointHit(line);
}

void DebuggerDock::showWaiting(bool waiting)
{
    QString place;
    if (waiting) {
        show();
        raise();
        place = tr("line %1 of %2")
                    .arg(QString::number(m_debugger->pausedLine()), QFileInfo(m_debugger->pausedFile()).fileName());
    }
    m_window.runIndicator()->setPaused(place);
}

void DebuggerDock::showPlace(const QString& file, int line)
{
    HVPythonTextEdit* editor = editorOf(file);
    if (!editor)
        return;
    m_window.showEditor(*editor);
    const QTextBlock block = editor->document()->findBlockByNumber(line - 1);
    if (block.isValid())
        editor->setTextCursor(QTextCursor(block));
    editor->centerCursor();
}

} // namespace workbench
