#include "app/workbench/MainMenus.h"

#include "app/workbench/JobsDock.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/ProjectMenu.h"
#include "app/workbench/RecentScripts.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptFiles.h"
#include "app/workbench/SettingsMenu.h"
#include "app/workbench/Theme.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/services/HVIconStore.h"
#include "host/widgets/HVPluginContributions.h"
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

/// An action with everything that is shown of it. `icon` and `shortcut` may be empty.
template <typename Context, typename Handler>
QAction* addAction(QMenu* menu, const char* icon, const QString& text, const QKeySequence& shortcut, const QString& tip,
                   Context* context, Handler handler)
{
    QAction* action = menu->addAction(HVIconStore::icon(QLatin1String(icon)), text);
    action->setShortcut(shortcut);
    const QString keys = shortcut.toString(QKeySequence::NativeText);
    action->setToolTip(keys.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, keys));
    action->setStatusTip(tip);
    QObject::connect(action, &QAction::triggered, context, handler);
    return action;
}

/// Editing commands go to whatever has the focus, as far as it knows them.
void editFocus(const char* slot)
{
    QWidget* focus = QApplication::focusWidget();
    if (focus && focus->metaObject()->indexOfMethod(QByteArray(slot).append("()").constData()) >= 0)
        QMetaObject::invokeMethod(focus, slot);
}

} // namespace

MainMenus::MainMenus(MainWindow& window) : QObject(&window), m_window(window)
{
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    explainWhenEmpty(addMenu(tr("Modules")), tr("No interpretation modules are installed"));
    makeToolsMenu();
    makeSettingsMenu();
    makeWindowMenu();
    makeHelpMenu();
    explainWhenEmpty(addMenu(tr("Extensions")), tr("Loaded plug-ins put their commands here"));

    QToolBar* bar = window.toolBar();
    bar->addActions({m_new, m_open, m_save});
    bar->addSeparator();
    bar->addActions({m_run, window.runIndicator()->stopAction()});

    const auto update = [this] {
        const bool editor = m_window.activeEditor() != nullptr;
        m_save->setEnabled(editor);
        for (QAction* action : qAsConst(m_editorActions))
            action->setEnabled(editor);
        m_run->setEnabled(editor && !m_window.runIndicator()->isRunning());
        for (QAction* action : qAsConst(m_windowActions))
            action->setEnabled(!m_window.workspace()->subWindowList().isEmpty());
    };
    connect(window.workspace(), &QMdiArea::subWindowActivated, this, update);
    connect(window.runIndicator(), &RunIndicator::runningChanged, this, update);
    update();
}

QMenu* MainMenus::addMenu(const QString& title)
{
    QMenu* menu = m_window.menuBar()->addMenu(title);
    menu->setToolTipsVisible(true);
    return menu;
}

void MainMenus::makeFileMenu()
{
    QMenu* menu = addMenu(tr("File"));
    new ProjectMenu(m_window, *menu);
    menu->addSeparator();
    m_new = addAction(menu, "new_script_24", tr("New Script"), QKeySequence::New, tr("Begin a new Python script"),
                      &m_window, [this] { m_window.newScript(); });
    m_open = addAction(menu, "projectopen24", tr("Open Script..."), QKeySequence::Open, tr("Open Python scripts"),
                       &m_window, [this] { m_window.chooseScript(); });
    QMenu* recent = menu->addMenu(HVIconStore::icon(QStringLiteral("recent_24")), tr("Recent Scripts"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentScripts(recent); });
    QMenu* ofProject = menu->addMenu(HVIconStore::icon(QStringLiteral("folder_24")), tr("Project Scripts"));
    connect(ofProject, &QMenu::aboutToShow, this, [this, ofProject] { fillProjectScripts(ofProject); });
    menu->addSeparator();
    m_save = addAction(menu, "save24", tr("Save"), QKeySequence::Save, tr("Save the script"), &m_window,
                       [this] { m_window.saveScript(); });
    QAction* saveAs =
        addAction(menu, "", tr("Save As..."), tr("Ctrl+Shift+S"), tr("Save the script under another name"), &m_window,
                  [this] { m_window.saveScriptAs(); });
    connect(menu, &QMenu::aboutToShow, saveAs, [this, saveAs] { saveAs->setEnabled(m_window.activeEditor()); });
    connect(menu, &QMenu::aboutToHide, saveAs, [saveAs] { saveAs->setEnabled(true); });
    menu->addSeparator();
    addAction(menu, "exit_24", tr("Exit"), tr("Ctrl+Q"), tr("Leave Strativo"), &m_window, &QWidget::close);
}

void MainMenus::makeEditMenu()
{
    QMenu* menu = addMenu(tr("Edit"));
    const auto add = [&](const char* icon, const QString& text, QKeySequence::StandardKey key, const QString& tip,
                         const char* slot) {
        addAction(menu, icon, text, key, tip, this, [slot] { editFocus(slot); });
    };
    add("undo_24", tr("Undo"), QKeySequence::Undo, tr("Take the last change back"), "undo");
    add("redo_24", tr("Redo"), QKeySequence::Redo, tr("Make the change again"), "redo");
    menu->addSeparator();
    add("cut_24", tr("Cut"), QKeySequence::Cut, tr("Move the selection to the clipboard"), "cut");
    add("copy_24", tr("Copy"), QKeySequence::Copy, tr("Copy the selection to the clipboard"), "copy");
    add("paste_24", tr("Paste"), QKeySequence::Paste, tr("Insert the clipboard's contents"), "paste");
    menu->addSeparator();
    add("select_all_24", tr("Select All"), QKeySequence::SelectAll, tr("Select everything"), "selectAll");

    const auto addOfEditor = [&](const char* icon, const QString& text, const QString& keys, const QString& tip,
                                 auto command) {
        QAction* action = addAction(menu, icon, text, keys, tip, this, [this, command] {
            if (HVPythonTextEdit* editor = m_window.activeEditor())
                command(*editor);
        });
        // The keys are the editor's: as shortcuts of the window they would compete with those of other panels.
        action->setShortcutContext(Qt::WidgetShortcut);
        m_editorActions.append(action);
    };
    menu->addSeparator();
    addOfEditor("zoommode16", tr("Find..."), tr("Ctrl+F"), tr("Search the script"),
                [](HVPythonTextEdit& editor) { editor.showSearchBar(); });
    addOfEditor("find_next_16", tr("Find Next"), tr("F3"), tr("Go to the next match"),
                [](HVPythonTextEdit& editor) { editor.findNext(); });
    addOfEditor("find_previous_16", tr("Find Previous"), tr("Shift+F3"), tr("Go to the previous match"),
                [](HVPythonTextEdit& editor) { editor.findPrevious(); });
    addOfEditor("", tr("Replace..."), tr("Ctrl+H"), tr("Search the script and replace"),
                [](HVPythonTextEdit& editor) { editor.showReplaceBar(); });
    addOfEditor("", tr("Go to Line..."), tr("Ctrl+G"), tr("Go to a line of the script"),
                [](HVPythonTextEdit& editor) { editor.goToLine(); });
    addOfEditor("", tr("Toggle Comment"), tr("Ctrl+/"), tr("Comment the lines, or take the comments away"),
                [](HVPythonTextEdit& editor) { editor.toggleComment(); });
}

void MainMenus::makeViewMenu()
{
    QMenu* menu = addMenu(tr("View"));
    QAction* messages = m_window.messageDock()->toggleViewAction();
    messages->setIcon(HVIconStore::icon(QStringLiteral("messages_24")));
    messages->setShortcut(tr("Alt+1"));
    messages->setToolTip(tr("Show or hide the messages (Alt+1)"));
    QAction* project = m_window.projectDock()->toggleViewAction();
    project->setIcon(HVIconStore::icon(QStringLiteral("folder_24")));
    project->setShortcut(tr("Alt+2"));
    project->setToolTip(tr("Show or hide the project browser (Alt+2)"));
    QAction* jobs = m_window.jobsDock()->toggleViewAction();
    jobs->setIcon(HVIconStore::icon(QStringLiteral("list_24")));
    jobs->setShortcut(tr("Alt+4"));
    jobs->setToolTip(tr("Show or hide the jobs (Alt+4)"));
    QAction* toolBar = m_window.toolBar()->toggleViewAction();
    toolBar->setToolTip(tr("Show or hide the main tool bar"));
    menu->addActions({messages, project, jobs, toolBar});
    menu->addSeparator();

    QMenu* themes = menu->addMenu(HVIconStore::icon(QStringLiteral("color_bar_24")), tr("Theme"));
    auto* group = new QActionGroup(themes);
    const auto add = [&](const char* icon, const QString& text, const QString& tip, Theme theme) {
        QAction* action = addAction(themes, icon, text, {}, tip, this, [theme] { applyTheme(theme); });
        action->setCheckable(true);
        group->addAction(action);
        connect(themes, &QMenu::aboutToShow, action, [action, theme] { action->setChecked(storedTheme() == theme); });
    };
    add("theme_system_24", tr("System"), tr("The colours of the desktop"), Theme::System);
    add("theme_light_24", tr("Light"), tr("Dark text on a light ground"), Theme::Light);
    add("theme_dark_24", tr("Dark"), tr("Light text on a dark ground"), Theme::Dark);
}

void MainMenus::makeToolsMenu()
{
    QMenu* menu = addMenu(tr("Tools"));
    m_run = addAction(menu, "pythonrun24", tr("Run Script"), tr("F5"), tr("Run the script"), this, [this] {
        if (HVPythonTextEdit* editor = m_window.activeEditor())
            editor->execute();
    });
    m_run->setShortcuts({tr("F5"), tr("F8")});
    m_run->setToolTip(tr("Run the script (F5, F8)"));
    menu->addAction(m_window.runIndicator()->stopAction());
}

void MainMenus::makeSettingsMenu()
{
    QMenu* menu = addMenu(tr("Settings"));
    // Its title is not among those that plug-ins may not use.
    menu->setObjectName(hv::ownPartName("settings"));
    fillSettingsMenu(*menu);
}

void MainMenus::makeWindowMenu()
{
    QMenu* menu = addMenu(tr("Window"));
    QMdiArea* area = m_window.workspace();
    addAction(menu, "cascade_24", tr("Cascade"), {}, tr("Lay the documents over each other"), area,
              &QMdiArea::cascadeSubWindows);
    addAction(menu, "tile_24", tr("Tile"), {}, tr("Lay the documents side by side"), area, &QMdiArea::tileSubWindows);
    menu->addSeparator();
    addAction(menu, "next_24", tr("Next"), tr("Ctrl+Tab"), tr("Go to the next document"), area,
              &QMdiArea::activateNextSubWindow);
    addAction(menu, "previous_24", tr("Previous"), tr("Ctrl+Shift+Tab"), tr("Go to the previous document"), area,
              &QMdiArea::activatePreviousSubWindow);
    menu->addSeparator();
    addAction(menu, "close_16", tr("Close"), tr("Ctrl+W"), tr("Close the document"), &m_window,
              &MainWindow::closeDocument);
    addAction(menu, "", tr("Close All"), tr("Ctrl+Shift+W"), tr("Close all documents"), &m_window,
              &MainWindow::closeAllDocuments);
    menu->addSeparator();
    m_windowActions = menu->actions();
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { fillWindowList(menu); });
}

void MainMenus::makeHelpMenu()
{
    QMenu* menu = addMenu(tr("Help"));
    addAction(menu, "python_doc_24", tr("Scripting Documentation"), QKeySequence::HelpContents,
              tr("Open the Python documentation in the web browser"), this, [] { HVPythonDocumentation::openIndex(); });
    menu->addSeparator();
    addAction(menu, "about_24", tr("About Strativo"), {}, tr("Version and licences"), this, &MainMenus::showAbout);
}

void MainMenus::explainWhenEmpty(QMenu* menu, const QString& explanation)
{
    QAction* sentence = menu->addAction(explanation);
    sentence->setEnabled(false);
    connect(menu, &QMenu::aboutToShow, sentence,
            [menu, sentence] { sentence->setVisible(menu->actions().size() == 1); });
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
    menu->setToolTipsVisible(true);
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
