#include "app/workbench/WindowlessApp.h"

#include "host/data/HVProjectService.h"

#include <QCoreApplication>

namespace workbench {

QString WindowlessApp::version() const
{
    return QCoreApplication::applicationVersion();
}

HVProject* WindowlessApp::currentProject() const
{
    return m_services->projects().project();
}

hv::ChangeLog* WindowlessApp::projectChanges() const
{
    HVProject* project = currentProject();
    return project ? &project->changes() : nullptr;
}

void WindowlessApp::refreshProject(std::optional<int> objectKind)
{
    HVProject* project = currentProject();
    const auto kind = objectKind ? objectKindFromNumber(*objectKind) : std::nullopt;
    if (project && (kind || !objectKind))
        project->refresh(kind);
}

void WindowlessApp::refreshPalettes()
{
    refreshProject(static_cast<int>(ObjectKind::ColorBar));
}

} // namespace workbench
