#pragma once

#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>

/// How long the rest of a job takes, from the steps done so far.
///
/// The time per step is the mean of two averages, over the whole job and over its last five to ten seconds: the first
/// keeps steps of uneven length from shaking the estimate, the second follows a job that gets faster or slower. Times
/// are those of any one monotonic clock.
class HVTimeLeft
{
public:
    using Time = std::chrono::nanoseconds;

    /// Tells of the state after the step at `lastStep`; a few times a second is enough. The time before the first
    /// call counts for nothing.
    void note(Time lastStep, std::int64_t done);

    /// Seconds until `steps` are done; none while there is nothing to judge by.
    std::optional<double> seconds(Time now, std::int64_t steps) const;

    /// For people: "about 2 min left".
    static QString text(double seconds);

private:
    struct Mark
    {
        Time time{};
        std::int64_t done = 0;
    };

    std::optional<double> secondsPerStep(const Mark& since) const;

    bool m_begun = false;
    Mark m_first, m_before, m_recent, m_last;
};
