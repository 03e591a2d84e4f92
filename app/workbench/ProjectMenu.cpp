#include "app/workbench/ProjectMenu.h"

#include "app/workbench/Commands.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/NewProjectDialog.h"
#include "app/workbench/WindowTitle.h"
#include "host/data/HVProjectService.h"
#include "host/icons/HVIconStore.h"
#include "host/services/HVEventBus.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

namespace workbench {

namespace {

/// The folder that holds the project used last.
QString projectsFolder()
{
    const QStringList recent = HVProjectService::recentProjects();
    return recent.isEmpty() ? QDir::homePath() : QFileInfo(recent.first()).path();
}

} // namespace

ProjectMenu::ProjectMenu(MainWindow& window) : QObject(&window), m_window(window)
{
    Commands& commands = window.commands();
    commands.handle("project.new", this, &ProjectMenu::createProject);
    commands.handle("project.open", this, &ProjectMenu::chooseProject);
    commands.handle("project.close", this, [this] { m_window.projects()->close(); });
    commands.handleMenu("recent-projects", this, &ProjectMenu::fillRecentProjects);

    connect(m_window.projects(), &HVProjectService::projectChanged, this, [this](HVProject* project) {
        if (project)
            connect(project, &HVProject::settingsChanged, this, &ProjectMenu::showTitle);
        showTitle();
    });
    connect(&m_window, &MainWindow::newProjectRequested, this, &ProjectMenu::createProject);
    connect(&m_window, &MainWindow::openProjectRequested, this, &ProjectMenu::chooseProject);
    showTitle();
}

void ProjectMenu::createProject()
{
    NewProjectDialog dialog(projectsFolder(), &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    HVProjectService& projects = *m_window.projects();
    auto made = projects.create(dialog.folder(), dialog.name());
    if (made) {
        HVProjectService::addRecentProject(projects.project()->path());
        if (!dialog.crs().isNull())
            made = projects.project()->setCrs(dialog.crs());
        if (made)
            made = projects.project()->setDomain(dialog.domain());
    }
    if (!made)
        HVEventBus::instance().sendMessage(MessageLevel::Error, made.failure().sentence, true);
}

void ProjectMenu::chooseProject()
{
    const QString path = QFileDialog::getOpenFileName(&m_window, tr("Open Project"), projectsFolder(),
                                                      tr("Strativo projects (%1)").arg(HVProject::projectFileName()));
    if (!path.isEmpty())
        m_window.openProject(path);
}

void ProjectMenu::fillRecentProjects(QMenu* menu)
{
    menu->clear();
    int number = 0;
    for (const QString& path : HVProjectService::recentProjects()) {
        QString name = QFileInfo(path).fileName().replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* action = menu->addAction(QStringLiteral("&%1  %2").arg(++number % 10).arg(name), this, [this, path] {
            if (!m_window.openProject(path) && !QFileInfo::exists(path))
                HVProjectService::removeRecentProject(path);
        });
        action->setToolTip(path);
        action->setStatusTip(path);
    }
    if (number == 0) {
        menu->addAction(tr("No projects were opened yet"))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    menu->addAction(HVIconStore::icon(QStringLiteral("clear_24")), tr("Clear List"),
                    &HVProjectService::clearRecentProjects);
}

void ProjectMenu::showTitle()
{
    const HVProject* project = m_window.projects()->project();
    m_window.title().setProject(project ? project->name() : QString());
}

} // namespace workbench
