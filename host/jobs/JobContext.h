#pragma once

#include "host/core/Result.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>

namespace hv {

/// How far a job is and whether it is asked to stop. Every function may be called on any thread.
class JobProgress
{
public:
    /// What the positions of all steps add up to: fine enough for a bar across a large screen, and so coarse that most
    /// steps of a long loop leave the shared counter alone.
    static constexpr std::int64_t whole = std::int64_t(1) << 20;

    void cancel() { m_cancelled.store(true, std::memory_order_relaxed); }
    bool cancelled() const { return m_cancelled.load(std::memory_order_relaxed); }

    /// From 0 to `whole`.
    std::int64_t position() const { return m_position.load(std::memory_order_relaxed); }
    /// Of the work, in [0, 1]; none while the job has not told how long it is.
    std::optional<double> fraction() const;

    /// What the job is at, for the user.
    QString text() const;
    void setText(const QString& text);

private:
    friend class JobContext;

    std::atomic<bool> m_cancelled = false;
    std::atomic<bool> m_measured = false;
    std::atomic<std::int64_t> m_position = 0;
    mutable std::mutex m_mutex;
    QString m_text; // guarded by the mutex
};

/// What the work of a job sees of the world: it reports progress here and asks whether it is to stop.
///
///     context.setSteps(lines);
///     for (int line = 0; line < lines; ++line) {
///         if (context.cancelled())
///             return JobContext::stopped();
///         ...
///         context.advance();
///     }
///
/// Work asks at least every tenth of a second, so that it stops before anybody gets impatient. setSteps() comes before
/// the first step; everything else may be called on any thread, also on those that the work starts for itself.
class JobContext
{
public:
    /// The whole job.
    explicit JobContext(JobProgress& progress) : m_progress(progress), m_length(JobProgress::whole) {}
    /// A part of the job that counts as `share` steps of `outer`, with steps of its own. Its end takes it to the last
    /// of them; `outer` stays as long.
    JobContext(JobContext& outer, std::int64_t share);
    ~JobContext();
    JobContext(const JobContext&) = delete;
    JobContext& operator=(const JobContext&) = delete;

    /// Below 1 stands for work whose length is not known.
    void setSteps(std::int64_t steps);
    /// More than all steps leave the job at its end.
    void advance(std::int64_t count = 1);

    bool cancelled() const { return m_progress.cancelled(); }
    /// The result of work that was asked to stop, which nobody reads.
    static Failure stopped() { return Failure(QString()); }

    void setText(const QString& text) { m_progress.setText(text); }

private:
    std::int64_t positionOf(std::int64_t done) const;
    /// Takes `count` steps and gives the length that they make of the whole job.
    std::int64_t take(std::int64_t count);

    JobProgress& m_progress;
    const std::int64_t m_length;
    const bool m_isPart = false;
    std::int64_t m_steps = 0;
    std::atomic<std::int64_t> m_done = 0;
};

} // namespace hv
