#include "host/jobs/JobManager.h"

#include "host/services/HVEventBus.h"

#include <QThread>
#include <QThreadPool>

#include <algorithm>

namespace hv {

namespace {

constexpr std::chrono::milliseconds g_pollInterval{100};

} // namespace

struct JobManager::Gate
{
    std::mutex mutex;
    JobManager* manager; // guarded by the mutex; null once it has gone

    void tellEnd(JobId id)
    {
        const std::lock_guard lock(mutex);
        if (manager)
            QMetaObject::invokeMethod(
                manager, [manager = manager, id] { manager->end(id); }, Qt::QueuedConnection);
    }
};

JobManager::JobManager(QObject* parent) : JobManager(QThread::idealThreadCount(), parent) {}

JobManager::JobManager(int threads, QObject* parent)
    : QObject(parent), m_gate(new Gate{{}, this}), m_pool(std::make_unique<QThreadPool>())
{
    m_pool->setMaxThreadCount(std::max(1, threads));
    m_timer.setInterval(g_pollInterval);
    connect(&m_timer, &QTimer::timeout, this, &JobManager::poll);
}

JobManager::~JobManager()
{
    {
        const std::lock_guard lock(m_gate->mutex);
        m_gate->manager = nullptr;
    }
    for (const Entry& entry : m_entries) {
        disconnect(entry.receiverGone);
        entry.job->cancel();
    }
    // Its destructor would wait for ever.
    if (!m_pool->waitForDone(g_patience.count()))
        static_cast<void>(m_pool.release());
}

JobId JobManager::startErased(JobInfo info, Job::Work work, QObject* receiver, Ended ended)
{
    const JobId id = ++m_lastId;
    auto job = std::make_shared<Job>(id, std::move(info.name), std::move(work));
    Entry entry{job, std::move(info.dependsOn), std::move(ended), receiver, {}};
    if (receiver)
        entry.receiverGone = connect(receiver, &QObject::destroyed, this, [this, id] { cancel(id); });
    else
        entry.receiver = this;
    m_entries.push_back(std::move(entry));
    m_pool->start([job = std::move(job), gate = m_gate] {
        if (job->run())
            gate->tellEnd(job->id());
    });
    m_timer.start();
    Q_EMIT changed();
    return id;
}

template <class Condition>
void JobManager::cancelIf(Condition condition)
{
    bool any = false;
    for (const Entry& entry : m_entries) {
        if (!condition(entry))
            continue;
        any = true;
        if (entry.job->cancel())
            m_gate->tellEnd(entry.job->id());
    }
    if (any)
        Q_EMIT changed();
}

void JobManager::cancel(JobId id)
{
    cancelIf([id](const Entry& entry) { return entry.job->id() == id; });
}

void JobManager::cancelAll()
{
    cancelIf([](const Entry&) { return true; });
}

void JobManager::cancelDependents(const ObjectKey& object)
{
    cancelIf([&object](const Entry& entry) {
        return std::find(entry.dependsOn.begin(), entry.dependsOn.end(), object) != entry.dependsOn.end();
    });
}

void JobManager::cancelDependents()
{
    cancelIf([](const Entry& entry) { return !entry.dependsOn.empty(); });
}

void JobManager::end(JobId id)
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& entry) { return entry.job->id() == id; });
    if (found == m_entries.end())
        return;
    const Entry entry = std::move(*found);
    m_entries.erase(found);
    disconnect(entry.receiverGone);
    if (m_entries.empty())
        m_timer.stop();

    const JobState state = entry.job->end();
    const Result<void>& outcome = entry.job->outcome();
    if (state == JobState::Failed)
        HVEventBus::instance().sendMessage(MessageLevel::Error,
                                           tr("%1 failed. %2").arg(entry.job->name(), outcome.failure().sentence));
    Q_EMIT ended(status(entry));
    Q_EMIT changed();
    if (entry.receiver)
        entry.ended(state, outcome);
}

void JobManager::poll()
{
    for (Entry& entry : m_entries)
        if (entry.job->state() == JobState::Running && entry.job->progress().fraction())
            entry.timeLeft.note(std::chrono::nanoseconds(Job::now()), entry.job->progress().position());
    if (!m_entries.empty())
        Q_EMIT changed();
}

std::vector<JobStatus> JobManager::jobs() const
{
    std::vector<JobStatus> all;
    all.reserve(m_entries.size());
    for (const Entry& entry : m_entries)
        all.push_back(status(entry));
    return all;
}

JobStatus JobManager::status(const Entry& entry)
{
    Job& job = *entry.job;
    JobStatus status{job.id(), job.name(), job.progress().text(), job.state()};
    if (status.state == JobState::Waiting)
        return status;
    status.cancelling = status.state == JobState::Running && job.progress().cancelled();
    status.fraction = job.progress().fraction();
    const std::chrono::nanoseconds now(Job::now());
    status.secondsTaken = std::chrono::duration<double>(now - std::chrono::nanoseconds(job.startedAt())).count();
    if (status.fraction)
        status.secondsLeft = entry.timeLeft.seconds(now, JobProgress::whole);
    return status;
}

} // namespace hv
