#include "app/headless/TerminalJobs.h"

#include "app/headless/TerminalProgress.h"

namespace headless {

namespace {

HVProgressBarState barOf(const hv::JobStatus& job)
{
    HVProgressBarState bar;
    // Ids of jobs and of bars are counted apart.
    bar.id = static_cast<std::int32_t>(-job.id);
    bar.name = job.text.isEmpty() ? job.name : QStringLiteral("%1: %2").arg(job.name, job.text);
    bar.steps = static_cast<std::int32_t>(hv::JobProgress::whole);
    bar.fraction = job.fraction;
    // A job that does not tell how far it is has nothing left once it is over.
    const double done = job.state == hv::JobState::Succeeded ? 1 : job.fraction.value_or(0);
    bar.done = static_cast<std::int64_t>(done * bar.steps);
    bar.secondsTaken = job.secondsTaken;
    bar.secondsLeft = job.secondsLeft;
    bar.cancelled = job.cancelling || job.state == hv::JobState::Cancelled;
    return bar;
}

} // namespace

TerminalJobs::TerminalJobs(hv::JobManager& jobs, TerminalProgress& progress)
{
    connect(&jobs, &hv::JobManager::changed, this, [&jobs, &progress] {
        std::vector<HVProgressBarState> bars;
        for (const hv::JobStatus& job : jobs.jobs())
            if (job.state == hv::JobState::Running)
                bars.push_back(barOf(job));
        if (bars.size() > 1)
            bars.front().name += QStringLiteral(" (and %1 more)").arg(bars.size() - 1);
        progress.jobsChanged(bars);
    });
    connect(&jobs, &hv::JobManager::ended, this, [&progress](hv::JobStatus job) {
        job.text.clear();
        progress.progressClosed(barOf(job));
    });
}

} // namespace headless
