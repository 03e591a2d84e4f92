#include "host/data/HVProjectService.h"

#include <QSettings>

namespace {

constexpr int g_most = 10;
const QString g_key = QStringLiteral("workbench/recentProjects");
HVProjectService* g_current = nullptr;

} // namespace

HVProjectService::HVProjectService(QObject* parent) : QObject(parent)
{
    g_current = this;
}

HVProjectService::~HVProjectService()
{
    close();
    if (g_current == this)
        g_current = nullptr;
}

HVProjectService* HVProjectService::current()
{
    return g_current;
}

hv::Result<void> HVProjectService::open(const QString& path)
{
    return take(HVProject::open(path));
}

hv::Result<void> HVProjectService::create(const QString& folder, const QString& name)
{
    return take(HVProject::create(folder, name));
}

hv::Result<void> HVProjectService::take(hv::Result<std::unique_ptr<HVProject>> project)
{
    if (!project)
        return project.failure();
    replace(std::move(*project));
    return {};
}

void HVProjectService::close()
{
    if (m_project)
        replace(nullptr);
}

void HVProjectService::replace(std::unique_ptr<HVProject> project)
{
    if (m_project) {
        Q_EMIT projectAboutToClose(m_project.get());
        m_project.reset();
    }
    m_project = std::move(project);
    Q_EMIT projectChanged(m_project.get());
}

QStringList HVProjectService::recentProjects()
{
    return QSettings().value(g_key).toStringList();
}

void HVProjectService::addRecentProject(const QString& path)
{
    QStringList projects = recentProjects();
    projects.removeAll(path);
    projects.prepend(path);
    QSettings().setValue(g_key, QStringList(projects.mid(0, g_most)));
}

void HVProjectService::removeRecentProject(const QString& path)
{
    QStringList projects = recentProjects();
    projects.removeAll(path);
    QSettings().setValue(g_key, projects);
}

void HVProjectService::clearRecentProjects()
{
    QSettings().remove(g_key);
}
