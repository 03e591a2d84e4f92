#include "host/widgets/HVProjectObjects.h"

#include "host/data/HVProjectService.h"
#include "host/services/HVProjectItemDrag.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace {

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
    if (m_project) {
        m_project->disconnect(this);
        m_project->store().disconnect(this);
    }
    m_hasChanged = false;
    m_project = project;
    if (project) {
        using hv::ObjectKey;
        using hv::ObjectStore;
        const ObjectStore* store = &project->store();
        connect(store, &ObjectStore::listingReset, this, &HVProjectObjects::note);
        connect(store, &ObjectStore::added, this, [this](const ObjectKey& key) { note(key.kind); });
        connect(store, &ObjectStore::removed, this, [this](const ObjectKey& key) { note(key.kind); });
        connect(store, &ObjectStore::renamed, this, [this](const ObjectKey& before, const ObjectKey& after) {
            note(after.kind);
            const QString path = m_project->store().path(after);
            Q_EMIT renamed(m_project->folder(before.kind) + QLatin1Char('/') + before.name + QLatin1Char('.') +
                               QFileInfo(path).suffix(),
                           path);
        });
        connect(store, &ObjectStore::told, this, [this] {
            if (std::exchange(m_hasChanged, false))
                Q_EMIT changed();
        });
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
