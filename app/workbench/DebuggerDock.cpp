#include "app/workbench/DebuggerDock.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptName.h"
#include "editor/HVPythonDebugger.h"
#include "editor/HVPythonTextEdit.h"
#include "host/services/HVIconStore.h"

#include <QAction>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QTextBlock>

namespace workbench {

namespace {

void connectBreakpoints(HVPythonTextEdit* editor, HVPythonDebugger* debugger)
{
    // An unsaved script has no file name, but runs under one of its own.
    const auto nameOf = [editor](const QString& file) { return file.isEmpty() ? scriptName(*editor) : file; };
    QObject::connect(editor, &HVPythonTextEdit::breakpointAdded, debugger, [=](const QString& file, int line) {
        debugger->addBreakpoint(nameOf(file), line);
        // Whoever sets a breakpoint wants it to stop.
        debugger->setDebuggingEnabled(true);
    });
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

QMenu* findMenu(const QMenuBar& bar, const QString& title)
{
    for (QAction* action : bar.actions())
        if (action->menu() && action->text() == title)
            return action->menu();
    return nullptr;
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
    addCommands();
}

void DebuggerDock::addCommands()
{
    QAction* shown = toggleViewAction();
    shown->setIcon(HVIconStore::icon(QStringLiteral("pythondebug24")));
    shown->setShortcut(tr("Alt+3"));
    shown->setToolTip(tr("Show or hide the debugger (Alt+3)"));
    if (QMenu* view = findMenu(*m_window.menuBar(), tr("View")))
        view->insertAction(view->actions().value(1), shown);
    QMenu* tools = findMenu(*m_window.menuBar(), tr("Tools"));
    if (!tools)
        return;

    const auto add = [&](const QString& text, const QString& keys, const QString& tip, auto handler) {
        QAction* action = tools->addAction(text, this, [this, handler] {
            if (HVPythonTextEdit* editor = m_window.activeEditor())
                handler(*editor);
        });
        action->setShortcut(keys);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(tip, keys));
        action->setStatusTip(tip);
        return action;
    };
    tools->addSeparator();
    QAction* debug = add(tr("Debug Script"), tr("Ctrl+F5"), tr("Run the script with the debugger enabled"),
                         [this](HVPythonTextEdit& editor) {
                             m_debugger->setDebuggingEnabled(true);
                             editor.execute();
                         });
    debug->setIcon(HVIconStore::icon(QStringLiteral("pythondebug24")));
    connect(m_window.runIndicator(), &RunIndicator::runningChanged, debug, &QAction::setDisabled);
    add(tr("Toggle Breakpoint"), tr("F9"), tr("Set or remove a breakpoint at the cursor's line"),
        [](HVPythonTextEdit& editor) { editor.toggleBreakpoint(editor.textCursor().blockNumber() + 1); });
    tools->addActions(m_debugger->commands().mid(0, 4));
    QAction* runTo = add(tr("Run to Cursor"), tr("Ctrl+F10"), tr("Let the script go on to the cursor's line"),
                         [this](HVPythonTextEdit& editor) {
                             m_debugger->runTo(scriptName(editor), editor.textCursor().blockNumber() + 1);
                         });
    runTo->setEnabled(false);
    connect(m_debugger, &HVPythonDebugger::waitingChanged, runTo, &QAction::setEnabled);
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
