#include "app/workbench/AppWrapper.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "host/data/HVProjectService.h"

#include <QCoreApplication>

namespace workbench {

QMainWindow* AppWrapper::mainWindow() const
{
    return &m_window;
}

HVMessageWindow* AppWrapper::messageWindow() const
{
    return m_window.messageWindow();
}

IRunObserver* AppWrapper::runObserver() const
{
    return m_window.runIndicator();
}

QString AppWrapper::version() const
{
    return QCoreApplication::applicationVersion();
}

QMdiSubWindow* AppWrapper::addSubWindow(QWidget* widget)
{
    return m_window.addDocument(widget);
}

HVProject* AppWrapper::currentProject() const
{
    return m_window.projects()->project();
}

hv::ChangeLog* AppWrapper::projectChanges() const
{
    HVProject* project = currentProject();
    return project ? &project->changes() : nullptr;
}

void AppWrapper::refreshProject(std::optional<int> objectKind)
{
    HVProject* project = currentProject();
    const auto kind = objectKind ? objectKindFromNumber(*objectKind) : std::nullopt;
    if (project && (kind || !objectKind))
        project->refresh(kind);
}

void AppWrapper::refreshPalettes()
{
    refreshProject(static_cast<int>(ObjectKind::ColorBar));
}

} // namespace workbench
