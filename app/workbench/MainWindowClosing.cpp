// How documents and the main window close, and what closes with it.
#include "app/workbench/MainWindow.h"
#include "app/workbench/OpenScripts.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/UnsavedScriptsDialog.h"
#include "editor/HVPythonTextEdit.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QToolBar>

namespace workbench {

namespace {

HVPythonTextEdit* editorIn(const QMdiSubWindow& document)
{
    return qobject_cast<HVPythonTextEdit*>(document.widget());
}

bool isPartOfWindow(const QWidget& widget)
{
    return qobject_cast<const QDockWidget*>(&widget) || qobject_cast<const QToolBar*>(&widget);
}

/// Closing one may destroy others.
template <typename Widget>
QList<QPointer<Widget>> watched(const QList<Widget*>& widgets)
{
    return {widgets.begin(), widgets.end()};
}

} // namespace

bool MainWindow::eventFilter(QObject* receiver, QEvent* event)
{
    auto* document = event->type() == QEvent::Close ? qobject_cast<QMdiSubWindow*>(receiver) : nullptr;
    const HVPythonTextEdit* editor = document ? editorIn(*document) : nullptr;
    if (!editor)
        return QMainWindow::eventFilter(receiver, event);
    // The script's own editor is in use during a run.
    if (m_runIndicator->isRunning()) {
        tell(tr("A script is running; stop it first."));
        event->ignore();
        return true;
    }
    // What the editor asks about is what the user sees.
    if (editor->document()->isModified())
        m_workspace->setActiveSubWindow(document);
    return false;
}

void MainWindow::closeDocument()
{
    if (QMdiSubWindow* document = m_workspace->currentSubWindow())
        document->close();
}

bool MainWindow::saveScripts(const QList<HVPythonTextEdit*>& scripts)
{
    QMdiSubWindow* inFront = m_workspace->currentSubWindow();
    for (HVPythonTextEdit* editor : scripts) {
        // Saving may ask for a name or whether to overwrite.
        showEditor(*editor);
        if (!editor->saveToFile() || !QFileInfo::exists(editor->filename()))
            return false;
    }
    m_workspace->setActiveSubWindow(inFront);
    return true;
}

bool MainWindow::settleUnsavedScripts()
{
    if (m_runIndicator->isRunning()) {
        tell(tr("A script is running; stop it first."));
        return false;
    }
    QList<HVPythonTextEdit*> unsaved;
    for (HVPythonTextEdit* editor : editors())
        if (editor->document()->isModified())
            unsaved.append(editor);
    if (unsaved.isEmpty())
        return true;
    switch (UnsavedScriptsDialog(unsaved, this).ask()) {
    case UnsavedScriptsDialog::Answer::Save:
        return saveScripts(unsaved);
    case UnsavedScriptsDialog::Answer::Discard:
        return true;
    default:
        return false;
    }
}

bool MainWindow::closeSettledDocuments()
{
    // Documents of scripts and plug-ins may refuse, so they come before any text is given up.
    for (const QPointer<QMdiSubWindow>& document : watched(m_workspace->subWindowList()))
        if (document && !editorIn(*document) && !document->close())
            return false;
    for (HVPythonTextEdit* editor : editors())
        editor->document()->setModified(false);
    m_workspace->closeAllSubWindows();
    return m_workspace->subWindowList().isEmpty();
}

bool MainWindow::closeAllDocuments()
{
    return settleUnsavedScripts() && closeSettledDocuments();
}

void MainWindow::closeOtherWindows()
{
    for (const QPointer<QWidget>& window : watched(QApplication::topLevelWidgets())) {
        if (!window || window == this || !window->isVisible() || isPartOfWindow(*window))
            continue;
        // It has a say in what it does before it goes, not in whether it goes.
        if (!window->close() && window)
            window->hide();
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    // In an event loop of the script's own, which must end before its windows may go.
    if (m_runIndicator->isRunning()) {
        m_closeAfterRun = true;
        // A paused script would wait for a command that no longer comes.
        if (m_runIndicator->isPaused())
            m_runIndicator->askToStop();
        return;
    }
    if (!settleUnsavedScripts())
        return;
    const QByteArray session = openScripts(*this);
    if (!closeSettledDocuments())
        return;
    keepOpenScripts(session);
    keepLayout();
    closeOtherWindows();
    event->accept();
    Q_EMIT closed();
}

} // namespace workbench
