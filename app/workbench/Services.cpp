#include "app/workbench/Services.h"

#include "host/data/HVProjectService.h"
#include "host/jobs/JobManager.h"

namespace workbench {

Services::Services() : m_projects(std::make_unique<HVProjectService>()), m_jobs(std::make_unique<hv::JobManager>())
{
    hv::JobManager* jobs = m_jobs.get();
    QObject::connect(m_projects.get(), &HVProjectService::projectAboutToClose, jobs,
                     [jobs] { jobs->cancelDependents(); });
    QObject::connect(m_projects.get(), &HVProjectService::projectChanged, jobs, [jobs](HVProject* project) {
        if (project)
            QObject::connect(&project->store(), &hv::ObjectStore::removed, jobs,
                             [jobs](const hv::ObjectKey& key) { jobs->cancelDependents(key); });
    });
}

Services::~Services()
{
    end();
}

void Services::end()
{
    // Nothing may work on what is going.
    m_jobs.reset();
    m_projects->close();
}

} // namespace workbench
