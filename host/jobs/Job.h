#pragma once

#include "host/jobs/JobContext.h"

#include <functional>
#include <memory>
#include <vector>

namespace hv {

enum class JobState
{
    Waiting, ///< for a thread
    Running,
    Succeeded,
    Failed,
    Cancelled,
};

/// Known for as long as the application runs; never 0.
using JobId = std::int64_t;

/// What a view shows of a job.
struct JobStatus
{
    JobId id = 0;
    QString name;
    /// What it is at; often empty.
    QString text;
    JobState state = JobState::Waiting;
    /// It was asked to stop and has not stopped yet.
    bool cancelling = false;
    /// Of the work, in [0, 1]; none while its length is not known.
    std::optional<double> fraction;
    /// Since it got a thread.
    double secondsTaken = 0;
    std::optional<double> secondsLeft;
};

/// One piece of long work: what the thread that does it and the manager share.
///
/// The state goes from Waiting to Running on the thread of the work, or to Cancelled on the GUI thread, whichever comes
/// first; every other step is the GUI thread's.
class Job
{
public:
    using Work = std::function<Result<void>(JobContext&)>;

    Job(JobId id, QString name, Work work) : m_id(id), m_name(std::move(name)), m_work(std::move(work)) {}

    JobId id() const { return m_id; }
    const QString& name() const { return m_name; }
    JobProgress& progress() { return m_progress; }

    /// On the thread of the work: does it, and lets go of what it holds. False when it was cancelled before.
    bool run();

    /// On the GUI thread: asks to stop; true when the job had not begun and is over by that.
    bool cancel();

    JobState state() const { return m_state.load(std::memory_order_acquire); }
    /// Once run() has returned, on the GUI thread: the state that follows from how it ended.
    JobState end();
    /// Why the job failed or that it was cancelled; only after end().
    const Result<void>& outcome() const { return m_outcome; }

    /// Monotonic; meaningful once the job runs.
    std::int64_t startedAt() const { return m_startedAt.load(std::memory_order_relaxed); }
    static std::int64_t now();

private:
    Result<void> cancelledOutcome() const;

    const JobId m_id;
    const QString m_name;
    Work m_work;
    JobProgress m_progress;
    std::atomic<JobState> m_state = JobState::Waiting;
    std::atomic<std::int64_t> m_startedAt = 0;
    Result<void> m_outcome;
};

} // namespace hv
