#pragma once

#include <memory>

class HVProjectService;

namespace hv {
class JobManager;
}

namespace workbench {

/// What the application has without any window: the open project and the long work, which ends with the objects that it
/// needs. GUI thread only. It may be made before there is an application object; a project is opened with one.
class Services
{
public:
    Services();
    ~Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    HVProjectService& projects() const { return *m_projects; }
    /// Null after end().
    hv::JobManager* jobs() const { return m_jobs.get(); }

    /// Ends the long work and closes the project, while everything that looks at them is whole.
    void end();

private:
    std::unique_ptr<HVProjectService> m_projects;
    std::unique_ptr<hv::JobManager> m_jobs;
};

} // namespace workbench
