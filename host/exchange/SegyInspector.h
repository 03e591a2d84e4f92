#pragma once

#include "host/jobs/JobManager.h"
#include "host/segy/Scan.h"

namespace hv {

/// What a SEG-Y file shows before all of it was looked through.
struct SegyPreview
{
    std::shared_ptr<const segy::SegyFile> file;
    /// Trace headers from the beginning of the file, one after the other.
    QByteArray headers;
    /// As if nobody had said anything about positions.
    segy::PositionGuess guess;
};

/// Looks at a file by jobs, so that a slow disk or a file of hundreds of gigabytes keeps nobody waiting: first at its
/// beginning, then at all traces. Another look ends the one before, and only the last one is told of. Failures are told
/// here alone, not on the event bus.
class SegyInspector : public QObject
{
    Q_OBJECT

public:
    /// `jobs` is not owned.
    explicit SegyInspector(JobManager& jobs, QObject* parent = nullptr);
    ~SegyInspector() override;

    void look(const QString& path, const segy::ScanChoice& choice);
    /// Ends the look; nothing is told.
    void stop();
    bool isBusy() const { return m_job != 0; }

Q_SIGNALS:
    void opened(const hv::SegyPreview& preview);
    void scanned(const std::shared_ptr<const hv::segy::Scan>& scan);
    void failed(const QString& sentence);
    /// Of the look through all traces; none while that is not known.
    void advanced(std::optional<double> fraction);

private:
    template <class T, class Work, class Next>
    void start(const QString& name, Work work, Next next);
    void scan(const QString& path, const segy::ScanChoice& choice);
    void showProgress();

    JobManager& m_jobs;
    JobId m_job = 0;
    int m_look = 0;
};

} // namespace hv
