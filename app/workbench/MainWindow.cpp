#include "app/workbench/MainWindow.h"

#include "app/workbench/Commands.h"
#include "app/workbench/EmptyWorkspace.h"
#include "app/workbench/JobsDock.h"
#include "app/workbench/MainMenus.h"
#include "app/workbench/RecentScripts.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptFiles.h"
#include "app/workbench/ScriptName.h"
#include "app/workbench/StubbornScript.h"
#include "app/workbench/TabTips.h"
#include "app/workbench/WindowTitle.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/exchange/VolumeExchange.h"
#include "host/icons/HVIconStore.h"
#include "host/services/HVEventBus.h"
#include "host/widgets/HVMessageWindow.h"
#include "host/widgets/HVPluginContributions.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVUndoList.h"
#include "host/widgets/HVUndoStack.h"

#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

namespace workbench {

namespace {

const QString g_geometryKey = QStringLiteral("workbench/geometry");
const QString g_stateKey = QStringLiteral("workbench/state");
constexpr int g_stateVersion = 1;
constexpr QSize g_preferredSize(1280, 860);

} // namespace

MainWindow::MainWindow() : MainWindow(std::make_shared<Services>()) {}

MainWindow::MainWindow(std::shared_ptr<Services> services)
    : m_services(std::move(services)), m_volumeExchange(new hv::VolumeExchange(*jobs(), this)),
      m_scripts(std::make_unique<ScriptFiles>(*projects())), m_workspace(new QMdiArea), m_messages(new HVMessageWindow),
      m_messageDock(new QDockWidget(tr("Messages"))), m_projectDock(new QDockWidget(tr("Project"))),
      m_undo(new HVUndoStack(this)), m_changesDock(new QDockWidget(tr("Changes"))),
      m_jobsDock(new JobsDock(*jobs(), this)), m_toolBar(new QToolBar(tr("Main Tool Bar")))
{
    m_commands = new Commands(this);
    m_title = std::make_unique<WindowTitle>(*this);
    setWindowIcon(HVIconStore::icon(QStringLiteral("horizon_24")));
    setObjectName(QStringLiteral("mainWindow"));

    m_workspace->setViewMode(QMdiArea::TabbedView);
    m_workspace->setTabsClosable(true);
    m_workspace->setTabsMovable(true);
    m_workspace->setDocumentMode(true);
    for (QTabBar* tabs : m_workspace->findChildren<QTabBar*>()) {
        tabs->setExpanding(false);
        new TabTips(*m_workspace, tabs);
    }
    setCentralWidget(m_workspace);
    auto* empty = new EmptyWorkspace(m_workspace, *m_commands);
    connect(empty, &EmptyWorkspace::newScriptRequested, this, &MainWindow::newScript);
    connect(empty, &EmptyWorkspace::openScriptRequested, this, &MainWindow::chooseScript);
    connect(empty, &EmptyWorkspace::recentScriptRequested, this, &MainWindow::openScript);

    m_messageDock->setObjectName(QStringLiteral("messagesDock"));
    m_messageDock->setWidget(m_messages);
    addDockWidget(Qt::BottomDockWidgetArea, m_messageDock);

    m_projectDock->setObjectName(QStringLiteral("projectDock"));
    addDockWidget(Qt::LeftDockWidgetArea, m_projectDock);

    m_changesDock->setObjectName(QStringLiteral("changesDock"));
    addDockWidget(Qt::LeftDockWidgetArea, m_changesDock);
    m_changesDock->hide();

    addDockWidget(Qt::BottomDockWidgetArea, m_jobsDock);
    tabifyDockWidget(m_messageDock, m_jobsDock);
    m_jobsDock->hide();
    connect(m_jobsDock, &JobsDock::buttonMade, this,
            [this](QToolButton* button) { statusBar()->addPermanentWidget(button); });

    m_volumeExchange->setProject(projects()->project());
    connect(projects(), &HVProjectService::projectChanged, m_volumeExchange, &hv::VolumeExchange::setProject);

    m_toolBar->setObjectName(hv::ownPartName("mainToolBar"));
    m_toolBar->setIconSize({20, 20});
    addToolBar(m_toolBar);

    m_runIndicator = new RunIndicator(this, *m_commands, *m_title, m_messages);
    new MainMenus(*this);
    m_runIndicator->setStopButton(m_toolBar->widgetForAction(m_runIndicator->stopAction()));
    connect(m_runIndicator, &RunIndicator::stopIgnored, this,
            [this](const QString& script) { offerToEnd(*this, script); });
    connect(m_runIndicator, &RunIndicator::runningChanged, this, [this](bool running) {
        if (!running && std::exchange(m_closeAfterRun, false))
            QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    });
}

MainWindow::~MainWindow()
{
    delete m_jobsDock;
    m_services->end();
    // Signals of dying documents must not reach a half-destroyed window.
    m_workspace->disconnect();
}

void MainWindow::fillProjectDock()
{
    m_browser = new HVProjectBrowser;
    m_browser->setJobs(jobs());
    m_browser->setProject(projects()->project());
    m_projectDock->setWidget(m_browser);
    connect(projects(), &HVProjectService::projectChanged, m_browser, &HVProjectBrowser::setProject);
    connect(m_browser, &HVProjectBrowser::menuAboutToShow, m_volumeExchange, &hv::VolumeExchange::fillMenu);
    connect(m_volumeExchange, &hv::VolumeExchange::imported, m_browser, &HVProjectBrowser::select);
    connect(m_browser, &HVProjectBrowser::newProjectRequested, this, &MainWindow::newProjectRequested);
    connect(m_browser, &HVProjectBrowser::openProjectRequested, this, &MainWindow::openProjectRequested);
    connect(m_browser, &HVProjectBrowser::objectActivated, this, [this](ObjectKind kind, const QString& path) {
        if (kind == ObjectKind::PythonScript)
            openScript(path);
    });
}

void MainWindow::fillChangesDock()
{
    m_changesDock->setWidget(new HVUndoList(*m_undo));
    m_undo->setProject(projects()->project());
    connect(projects(), &HVProjectService::projectChanged, m_undo, &HVUndoStack::setProject);
}

bool MainWindow::openProject(const QString& path)
{
    const auto opened = projects()->open(path);
    if (opened) {
        HVProjectService::addRecentProject(projects()->project()->path());
        return true;
    }
    HVEventBus::instance().sendMessage(MessageLevel::Error, opened.failure().sentence, true);
    return false;
}

QMdiSubWindow* MainWindow::addDocument(QWidget* widget)
{
    QMdiSubWindow* document = m_workspace->addSubWindow(widget);
    document->setAttribute(Qt::WA_DeleteOnClose);
    // The keys in the document's own menu are the Window menu's: a key with two owners is dead.
    for (QAction* action : document->systemMenu()->actions())
        action->setShortcutContext(Qt::WidgetShortcut);
    document->setWindowIcon(widget->windowIcon());
    connect(widget, &QWidget::windowIconChanged, document, &QWidget::setWindowIcon);
    document->installEventFilter(this);
    document->showMaximized();
    return document;
}

void MainWindow::destroyDocuments()
{
    for (QMdiSubWindow* document : m_workspace->subWindowList())
        delete document;
}

HVPythonTextEdit* MainWindow::activeEditor() const
{
    const QMdiSubWindow* document = m_workspace->activeSubWindow();
    // While another window is in front, the area still knows which document was.
    if (!document)
        document = m_workspace->currentSubWindow();
    return document ? qobject_cast<HVPythonTextEdit*>(document->widget()) : nullptr;
}

QList<HVPythonTextEdit*> MainWindow::editors() const
{
    QList<HVPythonTextEdit*> all;
    for (const QMdiSubWindow* document : m_workspace->subWindowList())
        if (auto* editor = qobject_cast<HVPythonTextEdit*>(document->widget()))
            all.append(editor);
    return all;
}

void MainWindow::showEditor(HVPythonTextEdit& editor)
{
    for (QMdiSubWindow* document : m_workspace->subWindowList())
        if (document->widget() == &editor)
            m_workspace->setActiveSubWindow(document);
}

HVPythonTextEdit* MainWindow::addEditor(const QString& path)
{
    auto* editor = new HVPythonTextEdit;
    if (!path.isEmpty())
        editor->loadFile(path);
    connect(editor, &HVPythonTextEdit::sendActionToMdi, this,
            [this](QObject* sender, QObject* target, const QString& action) {
                m_dispatcher.dispatch(sender, target, action);
            });
    const QMdiSubWindow* document = addDocument(editor);
    connect(editor, &QWidget::windowTitleChanged, this, &MainWindow::showTabTitles);
    connect(editor, &HVPythonTextEdit::filenameChanged, this, &MainWindow::showTabTitles);
    // Once it has left, and never to a window that is going.
    connect(document, &QObject::destroyed, this, &MainWindow::showTabTitles, Qt::QueuedConnection);
    showTabTitles();
    editor->setFocus();
    Q_EMIT editorAdded(editor);
    return editor;
}

void MainWindow::showTabTitles()
{
    const QList<HVPythonTextEdit*> all = editors();
    for (QMdiSubWindow* document : m_workspace->subWindowList())
        if (const auto* editor = qobject_cast<HVPythonTextEdit*>(document->widget()))
            document->setWindowTitle(tabTitle(*editor, all));
}

HVPythonTextEdit* MainWindow::newScript()
{
    return addEditor(QString());
}

HVPythonTextEdit* MainWindow::openScript(const QString& path)
{
    const QFileInfo info(path);
    for (HVPythonTextEdit* editor : editors()) {
        if (!editor->filename().isEmpty() && QFileInfo(editor->filename()) == info) {
            showEditor(*editor);
            return editor;
        }
    }
    // Tried first, so that a failure leaves no empty window behind.
    QFile file(info.absoluteFilePath());
    if (info.isDir() || !file.open(QIODevice::ReadOnly)) {
        removeRecentScript(path);
        const QString reason = info.isDir() ? tr("It is a folder.") : file.errorString();
        HVEventBus::instance().sendMessage(MessageLevel::Error, tr("Unable to open %1: %2").arg(path, reason), true);
        return nullptr;
    }
    file.close();
    HVPythonTextEdit* editor = addEditor(info.absoluteFilePath());
    addRecentScript(path);
    return editor;
}

void MainWindow::chooseScript()
{
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, tr("Open Script"), m_scripts->folder(), ScriptFiles::filter());
    for (const QString& path : paths)
        openScript(path);
}

bool MainWindow::saveScript()
{
    HVPythonTextEdit* editor = activeEditor();
    if (!editor)
        return false;
    return editor->filename().isEmpty() ? saveScriptAs() : saveUnder(*editor, editor->filename());
}

bool MainWindow::saveScriptAs()
{
    HVPythonTextEdit* editor = activeEditor();
    if (!editor)
        return false;
    const QString path = m_scripts->chooseScriptToSave(this, tr("Save Script As"), editor->filename());
    return !path.isEmpty() && saveUnder(*editor, path);
}

bool MainWindow::saveUnder(HVPythonTextEdit& editor, const QString& path)
{
    const QString before = editor.filename();
    editor.setFilename(path);
    if (!editor.saveToFile()) {
        editor.setFilename(before);
        return false;
    }
    tell(tr("Saved %1").arg(path));
    return true;
}

void MainWindow::restoreLayout()
{
    if (!m_browser) {
        fillProjectDock();
        fillChangesDock();
    }
    const QSettings settings;
    if (!restoreGeometry(settings.value(g_geometryKey).toByteArray())) {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        resize(g_preferredSize.boundedTo(screen.size() * 9 / 10));
        move(screen.center() - rect().center());
        resizeDocks({m_messageDock}, {height() / 4}, Qt::Vertical);
        resizeDocks({m_projectDock}, {width() / 5}, Qt::Horizontal);
    }
    restoreState(settings.value(g_stateKey).toByteArray(), g_stateVersion);
}

void MainWindow::keepLayout() const
{
    QSettings settings;
    settings.setValue(g_geometryKey, saveGeometry());
    settings.setValue(g_stateKey, saveState(g_stateVersion));
}

void MainWindow::tell(const QString& sentence) const
{
    constexpr int milliseconds = 8000;
    statusBar()->showMessage(sentence, milliseconds);
}

} // namespace workbench
