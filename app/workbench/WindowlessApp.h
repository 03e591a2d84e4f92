#pragma once

#include "app/workbench/Services.h"
#include "host/services/HVProgressBarMgr.h"
#include "host/services/IAppWrapper.h"

namespace workbench {

/// The application as the scripting layer sees it, as far as it needs no window.
class WindowlessApp : public IAppWrapper
{
public:
    explicit WindowlessApp(std::shared_ptr<Services> services) : m_services(std::move(services)) {}

    const std::shared_ptr<Services>& services() const { return m_services; }
    IProgressService* progressService() const override { return &m_progress; }
    QString version() const override;
    HVProject* currentProject() const override;
    hv::ChangeLog* projectChanges() const override;
    void refreshProject(std::optional<int> objectKind) override;
    /// Colour bars are objects of the project; previews follow their files by themselves.
    void refreshPalettes() override;

    /// What progressService() hands out; watched by whatever shows the bars.
    HVProgressBarMgr& progress() const { return m_progress; }

private:
    const std::shared_ptr<Services> m_services;
    mutable HVProgressBarMgr m_progress;
};

} // namespace workbench
