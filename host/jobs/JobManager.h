#pragma once

#include "host/jobs/Job.h"
#include "host/objects/ObjectKey.h"
#include "host/services/HVTimeLeft.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <type_traits>

class QThreadPool;

/// host/jobs: long work that the user goes on working beside: threads, progress, cancelling, results.
namespace hv {

/// What a job is and when it loses its purpose.
struct JobInfo
{
    /// For the user: "Histogram of Amplitude".
    QString name;
    /// Objects without which the job is cancelled.
    std::vector<ObjectKey> dependsOn = {};
};

/// The application's long work. There is one manager per application, on the GUI thread.
///
/// The rule for work: it runs on a thread of the pool without the interpreter lock, touches values that nobody changes
/// (snapshots) and readers of its own, no object of Qt's widgets and none of the project's, and never waits for the GUI
/// thread. The GUI thread may be occupied by a script for hours, so results wait for the event loop, and nobody waits
/// for a job while holding the lock.
class JobManager : public QObject
{
    Q_OBJECT

public:
    /// As many jobs at once as the machine has processors; others wait in their order.
    explicit JobManager(QObject* parent = nullptr);
    explicit JobManager(int threads, QObject* parent = nullptr);
    /// Cancels everything and waits for it, for `g_patience` at most. Work that never asks is left to itself: it sees
    /// nothing of the application and its result goes to nobody.
    ~JobManager() override;

    static constexpr std::chrono::milliseconds g_patience{2000};

    /// Starts `work`, a function `Result<T>(JobContext&)`, and tells its end once to `ended`, a function
    /// `void(JobState, Result<T>)`, on the GUI thread, from the event loop and never from here. A job that was
    /// cancelled ends with a Failure, however far it came. A failure is told to the user by the manager. When
    /// `receiver` goes, the job is cancelled and nobody is called; null for none. Both functions are copied.
    template <class Work, class Ended>
    JobId start(JobInfo info, Work work, QObject* receiver, Ended ended)
    {
        using Outcome = std::invoke_result_t<Work&, JobContext&>;
        if constexpr (std::is_same_v<Outcome, Result<void>>) {
            return startErased(std::move(info), std::move(work), receiver, std::move(ended));
        } else {
            // Written by the work, read after its end.
            auto kept = std::make_shared<std::optional<Outcome>>();
            auto keep = [work = std::move(work), kept](JobContext& context) mutable -> Result<void> {
                kept->emplace(work(context));
                if (!**kept)
                    return (*kept)->failure();
                return {};
            };
            auto tell = [ended = std::move(ended), kept](JobState state, Result<void> outcome) mutable {
                if (outcome)
                    ended(state, std::move(**kept));
                else
                    ended(state, Outcome(outcome.failure()));
            };
            return startErased(std::move(info), std::move(keep), receiver, std::move(tell));
        }
    }

    /// Asks the job to stop; one that still waits for a thread never gets it. An id that is not known is no error.
    void cancel(JobId id);
    void cancelAll();
    /// The object is gone.
    void cancelDependents(const ObjectKey& object);
    /// All objects are gone.
    void cancelDependents();

    /// All jobs that have not ended, in the order in which they were started.
    std::vector<JobStatus> jobs() const;
    bool isIdle() const { return m_entries.empty(); }

    /// Looks at the progress of the jobs; a timer does this while there are any, unless the GUI thread is occupied.
    void poll();

Q_SIGNALS:
    /// What jobs() gives is not what it was: ten times a second while jobs run, and whenever one starts or ends.
    void changed();
    /// The job has left the list; comes before its result is told.
    void ended(const hv::JobStatus& job);

private:
    /// The way from the pool's threads to a manager that may go at any time.
    struct Gate;

    using Ended = std::function<void(JobState, Result<void>)>;

    struct Entry
    {
        std::shared_ptr<Job> job;
        std::vector<ObjectKey> dependsOn;
        Ended ended; // dies on the GUI thread
        QPointer<QObject> receiver;
        QMetaObject::Connection receiverGone;
        HVTimeLeft timeLeft = {};
    };

    JobId startErased(JobInfo info, Job::Work work, QObject* receiver, Ended ended);
    template <class Condition>
    void cancelIf(Condition condition);
    void end(JobId id);
    static JobStatus status(const Entry& entry);

    std::shared_ptr<Gate> m_gate;
    std::unique_ptr<QThreadPool> m_pool;
    std::vector<Entry> m_entries;
    JobId m_lastId = 0;
    QTimer m_timer;
};

} // namespace hv
