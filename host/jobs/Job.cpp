#include "host/jobs/Job.h"

#include <QCoreApplication>

#include <chrono>
#include <exception>
#include <new>

namespace hv {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("hv::Job", text);
}

} // namespace

std::int64_t Job::now()
{
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool Job::run()
{
    m_startedAt.store(now(), std::memory_order_relaxed);
    JobState before = JobState::Waiting;
    if (!m_state.compare_exchange_strong(before, JobState::Running, std::memory_order_acq_rel))
        return false;
    // What ends a thread ends the process, and a job must not.
    try {
        JobContext context(m_progress);
        m_outcome = m_work(context);
    } catch (const std::bad_alloc&) {
        m_outcome = Failure(translated("There is not enough memory."));
    } catch (const std::exception& defect) {
        m_outcome = Failure(QString::fromLocal8Bit(defect.what()));
    } catch (...) {
        m_outcome = Failure(translated("An unknown error occurred."));
    }
    // Snapshots may be large; their memory is given back here and not on the GUI thread.
    m_work = nullptr;
    return true;
}

bool Job::cancel()
{
    m_progress.cancel();
    JobState before = JobState::Waiting;
    if (!m_state.compare_exchange_strong(before, JobState::Cancelled, std::memory_order_acq_rel))
        return false;
    m_work = nullptr;
    m_outcome = cancelledOutcome();
    return true;
}

JobState Job::end()
{
    // Also work that was done before it noticed: what it depended on may be gone.
    if (m_progress.cancelled()) {
        m_outcome = cancelledOutcome();
        m_state = JobState::Cancelled;
    } else {
        m_state = m_outcome ? JobState::Succeeded : JobState::Failed;
    }
    return m_state;
}

Result<void> Job::cancelledOutcome() const
{
    return Failure(translated("%1 was cancelled.").arg(m_name));
}

} // namespace hv
