#include "host/exchange/SegyInspector.h"

#include <QFileInfo>

#include <algorithm>

namespace hv {

namespace {

constexpr std::int64_t g_previewTraces = 200;

Result<SegyPreview> open(const QString& path, const segy::ScanChoice& choice, JobContext& context)
{
    auto file = segy::SegyFile::open(path, choice.format);
    if (!file)
        return file.failure();
    auto guess = segy::guessPositions(**file, {});
    if (!guess)
        return guess.failure();
    SegyPreview preview{*file, {}, std::move(*guess)};
    const std::int64_t count = std::min((*file)->layout().traces, g_previewTraces);
    preview.headers.resize(static_cast<int>(count * segy::g_headerBytes));
    for (std::int64_t trace = 0; trace < count && !context.cancelled(); ++trace) {
        auto* target = reinterpret_cast<std::byte*>(preview.headers.data() + trace * segy::g_headerBytes);
        if (Result<void> read = (*file)->readHeader(trace, target); !read)
            return read.failure();
    }
    return preview;
}

} // namespace

SegyInspector::SegyInspector(JobManager& jobs, QObject* parent) : QObject(parent), m_jobs(jobs)
{
    connect(&jobs, &JobManager::changed, this, &SegyInspector::showProgress);
}

SegyInspector::~SegyInspector() = default; // jobs end with their receiver

void SegyInspector::stop()
{
    ++m_look;
    if (const JobId job = std::exchange(m_job, 0))
        m_jobs.cancel(job);
}

template <class T, class Work, class Next>
void SegyInspector::start(const QString& name, Work work, Next next)
{
    // What the work found out, a failure included, is the value of a job that succeeds: the manager tells nobody.
    const auto tried = [work](JobContext& context) -> Result<Result<T>> { return work(context); };
    m_job = m_jobs.start({name}, tried, this, [this, next, look = m_look](JobState state, Result<Result<T>> outcome) {
        if (look != m_look)
            return;
        m_job = 0;
        if (state == JobState::Cancelled)
            Q_EMIT failed(tr("Looking through the file was cancelled."));
        else if (!outcome || !*outcome)
            Q_EMIT failed(!outcome ? outcome.failure().sentence : outcome->failure().sentence);
        else
            next(**outcome);
    });
}

void SegyInspector::look(const QString& path, const segy::ScanChoice& choice)
{
    stop();
    start<SegyPreview>(
        tr("Open %1").arg(QFileInfo(path).fileName()),
        [path, choice](JobContext& context) { return open(path, choice, context); },
        [this, path, choice, look = m_look](const SegyPreview& preview) {
            Q_EMIT opened(preview);
            if (look == m_look)
                scan(path, choice);
        });
}

void SegyInspector::scan(const QString& path, const segy::ScanChoice& choice)
{
    using Scanned = std::shared_ptr<const segy::Scan>;
    start<Scanned>(
        tr("Look through %1").arg(QFileInfo(path).fileName()),
        [path, choice](JobContext& context) { return segy::scan(path, choice, context); },
        [this](const Scanned& scan) { Q_EMIT scanned(scan); });
}

void SegyInspector::showProgress()
{
    if (!m_job)
        return;
    for (const JobStatus& job : m_jobs.jobs())
        if (job.id == m_job)
            Q_EMIT advanced(job.fraction);
}

} // namespace hv
