#include "host/widgets/HVProjectObjects.h"

#include "host/data/HVProjectService.h"
#include "host/services/HVProjectItemDrag.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace {

constexpr int g_collectMilliseconds = 50;

std::set<ObjectKind> scriptKinds()
{
    std::set<ObjectKind> kinds;
    for (const ObjectKindInfo& info : objectKinds())
        if (info.kind != ObjectKind::PythonScript)
            kinds.insert(info.kind);
    return kinds;
}

} // namespace

HVProjectObjects::HVProjectObjects(QObject* parent)
    : QObject(parent), m_service(HVProjectService::current()), m_kinds(scriptKinds())
{
    m_changedSoon.setSingleShot(true);
    m_changedSoon.setInterval(g_collectMilliseconds);
    connect(&m_changedSoon, &QTimer::timeout, this, &HVProjectObjects::changed);
    if (m_service) {
        connect(m_service, &HVProjectService::projectChanged, this, &HVProjectObjects::take);
        take(m_service->project());
    }
}

void HVProjectObjects::setProject(HVProject* project)
{
    if (m_service)
        m_service->disconnect(this);
    m_service = nullptr;
    take(project);
}

void HVProjectObjects::take(HVProject* project)
{
    if (m_project)
        m_project->disconnect(this);
    m_changedSoon.stop();
    m_project = project;
    if (project) {
        connect(project, &HVProject::objectsChanged, this, &HVProjectObjects::markChanged);
        connect(project, &HVProject::directoriesChanged, this, &HVProjectObjects::markChanged);
        connect(project, &HVProject::objectRenamed, this, &HVProjectObjects::renamed);
        connect(project, &QObject::destroyed, this, &HVProjectObjects::replaced);
    }
    Q_EMIT replaced();
}

void HVProjectObjects::setKinds(std::set<ObjectKind> kinds)
{
    if (kinds.empty())
        kinds = scriptKinds();
    if (kinds == m_kinds)
        return;
    m_kinds = std::move(kinds);
    Q_EMIT replaced();
}

void HVProjectObjects::markChanged(ObjectKind kind)
{
    if (m_kinds.count(kind) && !m_changedSoon.isActive())
        m_changedSoon.start();
}

QString HVProjectObjects::suitable(const QString& path) const
{
    if (!m_project || path.isEmpty())
        return {};
    const QString absolute = QDir::cleanPath(QDir(m_project->path()).absoluteFilePath(path));
    const auto kind = m_project->kindOf(absolute);
    return kind && m_kinds.count(*kind) ? absolute : QString();
}

QString HVProjectObjects::dropped(const QDropEvent& event) const
{
    const QList<hv::ProjectItem> items = hv::draggedProjectItems(event.mimeData());
    for (const hv::ProjectItem& item : items)
        if (const QString path = suitable(item.path); !path.isEmpty())
            return path;
    // A file manager that shows the project's folders.
    for (const QUrl& url : event.mimeData()->urls())
        if (const QString path = suitable(url.toLocalFile()); QFileInfo(path).isFile())
            return path;
    return {};
}

QString HVProjectObjects::whyNone() const
{
    if (!m_project)
        return tr("No project is open");
    return m_kinds.size() == 1 ? tr("The project has no %1").arg(QLatin1String(objectKindInfo(*m_kinds.begin()).plural))
                               : tr("The project has no such objects");
}
