#include "app/workbench/MainMenus.h"

#include "app/workbench/Commands.h"
#include "app/workbench/JobsDock.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/ProjectMenu.h"
#include "app/workbench/RecentScripts.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptFiles.h"
#include "app/workbench/SettingsMenu.h"
#include "app/workbench/Theme.h"
#include "app/workbench/VolumeFiles.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/icons/HVIconStore.h"
#include "host/widgets/HVUndoStack.h"
#include "runtime/HVPythonDocumentation.h"

#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>

namespace workbench {

namespace {

constexpr int g_mostNumbered = 10; // scripts that a key opens while their menu is shown

/// Editing commands go to whatever has the focus, as far as it knows them; false when it does not.
bool editFocus(const char* slot)
{
    QWidget* focus = QApplication::focusWidget();
    if (!focus || focus->metaObject()->indexOfMethod(QByteArray(slot).append("()").constData()) < 0)
        return false;
    return QMetaObject::invokeMethod(focus, slot);
}

/// A text that nobody can edit has nothing to undo, whatever it says.
bool isReadOnlyTextInFocus()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus && focus->property("readOnly").toBool();
}

} // namespace

MainMenus::MainMenus(MainWindow& window) : QObject(&window), m_window(window), m_commands(window.commands())
{
    m_commands.fill(*window.menuBar());
    m_commands.fill(*window.toolBar());
    new ProjectMenu(window);
    new VolumeFiles(window);
    handleFileCommands();
    handleEditorCommands();
    handleViewCommands();
    handleWindowCommands();
    handleHelpCommands();
    handleSettings(m_commands);
    explainWhenEmpty(m_commands.menu("modules"), tr("No interpretation modules are installed"));
    explainWhenEmpty(m_commands.menu("extensions"), tr("Loaded plug-ins put their commands here"));

    connect(window.workspace(), &QMdiArea::subWindowActivated, this, &MainMenus::updateContexts);
    connect(window.runIndicator(), &RunIndicator::runningChanged, this, &MainMenus::updateContexts);
    connect(window.runIndicator(), &RunIndicator::pausedChanged, this, &MainMenus::updateContexts);
    connect(window.projects(), &HVProjectService::projectChanged, this, &MainMenus::updateContexts);
    updateContexts();
}

void MainMenus::updateContexts()
{
    const RunIndicator& run = *m_window.runIndicator();
    Contexts now = run.isRunning() ? Context::Running : Context::Idle;
    now.setFlag(Context::Paused, run.isPaused());
    now.setFlag(Context::Document, !m_window.workspace()->subWindowList().isEmpty());
    now.setFlag(Context::Script, m_window.activeEditor());
    now.setFlag(Context::Project, m_window.projects()->project());
    m_commands.setContexts(now);
}

void MainMenus::handleFileCommands()
{
    m_commands.handle("script.new", &m_window, &MainWindow::newScript);
    m_commands.handle("script.open", &m_window, &MainWindow::chooseScript);
    m_commands.handle("script.save", &m_window, &MainWindow::saveScript);
    m_commands.handle("script.save-as", &m_window, &MainWindow::saveScriptAs);
    m_commands.handle("application.exit", &m_window, &QWidget::close);
    m_commands.handleMenu("recent-scripts", this, &MainMenus::fillRecentScripts);
    m_commands.handleMenu("project-scripts", this, &MainMenus::fillProjectScripts);
}

template <typename Function>
void MainMenus::handleWithEditor(const char* id, Function function)
{
    m_commands.handle(id, this, [this, function] {
        if (HVPythonTextEdit* editor = m_window.activeEditor())
            std::invoke(function, editor);
    });
}

void MainMenus::handleEditorCommands()
{
    // A text in focus has changes of its own, which come before the project's.
    const auto undo = [this](const char* id, const char* slot, void (HVUndoStack::*ofProject)()) {
        m_commands.handle(id, this, [this, slot, ofProject] {
            if (isReadOnlyTextInFocus() || !editFocus(slot))
                (m_window.projectUndo()->*ofProject)();
        });
    };
    undo("edit.undo", "undo", &HVUndoStack::undo);
    undo("edit.redo", "redo", &HVUndoStack::redo);
    for (const auto& [id, slot] : std::initializer_list<std::pair<const char*, const char*>>{
             {"edit.cut", "cut"}, {"edit.copy", "copy"}, {"edit.paste", "paste"}, {"edit.select-all", "selectAll"}})
        m_commands.handle(id, this, [name = slot] { editFocus(name); });

    handleWithEditor("script.find", &HVPythonTextEdit::showSearchBar);
    handleWithEditor("script.find-next", &HVPythonTextEdit::findNext);
    handleWithEditor("script.find-previous", &HVPythonTextEdit::findPrevious);
    handleWithEditor("script.replace", &HVPythonTextEdit::showReplaceBar);
    handleWithEditor("script.toggle-comment", &HVPythonTextEdit::toggleComment);
    handleWithEditor("script.run", &HVPythonTextEdit::execute);
    handleWithEditor("script.go-to-line", [](HVPythonTextEdit* editor) { editor->goToLine(); });
}

void MainMenus::handleViewCommands()
{
    m_commands.adopt("view.messages", m_window.messageDock()->toggleViewAction());
    m_commands.adopt("view.project", m_window.projectDock()->toggleViewAction());
    m_commands.adopt("view.changes", m_window.changesDock()->toggleViewAction());
    m_commands.adopt("view.jobs", m_window.jobsDock()->toggleViewAction());
    m_commands.adopt("view.tool-bar", m_window.toolBar()->toggleViewAction());
    auto* group = new QActionGroup(this);
    for (const auto& [id, chosen] : std::initializer_list<std::pair<const char*, Theme>>{
             {"theme.system", Theme::System}, {"theme.light", Theme::Light}, {"theme.dark", Theme::Dark}}) {
        QAction* action = m_commands.handle(id, this, [theme = chosen] { applyTheme(theme); });
        action->setCheckable(true);
        group->addAction(action);
        connect(m_commands.menu("theme"), &QMenu::aboutToShow, action,
                [action, theme = chosen] { action->setChecked(storedTheme() == theme); });
    }
}

void MainMenus::handleWindowCommands()
{
    QMdiArea* area = m_window.workspace();
    m_commands.handle("window.cascade", area, &QMdiArea::cascadeSubWindows);
    m_commands.handle("window.tile", area, &QMdiArea::tileSubWindows);
    m_commands.handle("window.next", area, &QMdiArea::activateNextSubWindow);
    m_commands.handle("window.previous", area, &QMdiArea::activatePreviousSubWindow);
    m_commands.handle("window.close", &m_window, &MainWindow::closeDocument);
    m_commands.handle("window.close-all", &m_window, &MainWindow::closeAllDocuments);
    m_commands.handleMenu("window", this, &MainMenus::fillWindowList);
}

void MainMenus::handleHelpCommands()
{
    m_commands.handle("help.documentation", this, [] { HVPythonDocumentation::openIndex(); });
    m_commands.handle("help.about", this, &MainMenus::showAbout);
}

void MainMenus::explainWhenEmpty(QMenu* menu, const QString& explanation)
{
    QAction* sentence = menu->addAction(explanation);
    sentence->setEnabled(false);
    connect(menu, &QMenu::aboutToShow, sentence,
            [menu, sentence] { sentence->setVisible(menu->actions().last() == sentence); });
}

void MainMenus::fillScripts(QMenu* menu, const QStringList& paths, const QString& none)
{
    menu->clear();
    int number = 0;
    for (const QString& path : paths) {
        // Ampersands of the name are no mnemonics.
        const QString name = QFileInfo(path).fileName().replace(QLatin1Char('&'), QLatin1String("&&"));
        const QString digit = ++number <= g_mostNumbered ? QStringLiteral("&%1  ").arg(number % 10) : QString();
        QAction* action = menu->addAction(digit + name, this, [this, path] { m_window.openScript(path); });
        action->setToolTip(path);
        action->setStatusTip(path);
    }
    if (paths.isEmpty())
        menu->addAction(none)->setEnabled(false);
}

void MainMenus::fillProjectScripts(QMenu* menu)
{
    fillScripts(menu, m_window.scriptFiles().projectScripts(),
                m_window.projects()->project() ? tr("The project has no scripts yet") : tr("No project is open"));
}

void MainMenus::fillRecentScripts(QMenu* menu)
{
    const QStringList paths = recentScripts();
    fillScripts(menu, paths, tr("No scripts were opened yet"));
    if (paths.isEmpty())
        return;
    menu->addSeparator();
    menu->addAction(HVIconStore::icon(QStringLiteral("clear_24")), tr("Clear List"), this, &clearRecentScripts);
}

void MainMenus::fillWindowList(QMenu* menu)
{
    const QList<QMdiSubWindow*> documents = m_window.workspace()->subWindowList();
    for (QAction* action : menu->actions())
        if (action->data().toBool())
            delete action;
    for (QMdiSubWindow* document : documents) {
        QAction* action =
            menu->addAction(document->windowIcon(), document->windowTitle(), m_window.workspace(),
                            [this, shown = QPointer(document)] { m_window.workspace()->setActiveSubWindow(shown); });
        action->setData(true);
        action->setCheckable(true);
        action->setChecked(document == m_window.workspace()->activeSubWindow());
    }
}

void MainMenus::showAbout()
{
    QMessageBox::about(&m_window, tr("About Strativo"),
                       tr("<h3>Strativo %1</h3><p>Seismic interpretation with Python scripting.</p>"
                          "<p>Built with Qt %2, CPython, Boost.Python and PROJ.<br/>Icons: Tabler Icons (MIT).</p>")
                           .arg(QCoreApplication::applicationVersion(), QLatin1String(qVersion())));
}

} // namespace workbench
