#include "host/services/HVTimeLeft.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

using Seconds = std::chrono::duration<double>;

constexpr Seconds g_window{5};
/// What is known earlier is mostly chance.
constexpr Seconds g_earliest{1};

QString translated(const char* text)
{
    return QCoreApplication::translate("HVTimeLeft", text);
}

} // namespace

void HVTimeLeft::note(Time lastStep, std::int64_t done)
{
    m_last = {lastStep, done};
    if (!m_begun) {
        m_begun = true;
        m_first = m_before = m_recent = m_last;
    } else if (lastStep - m_recent.time >= g_window) {
        m_before = std::exchange(m_recent, m_last);
    }
}

std::optional<double> HVTimeLeft::secondsPerStep(const Mark& since) const
{
    if (m_last.done <= since.done)
        return std::nullopt;
    return Seconds(m_last.time - since.time).count() / static_cast<double>(m_last.done - since.done);
}

std::optional<double> HVTimeLeft::seconds(Time now, std::int64_t steps) const
{
    const std::optional<double> overall = secondsPerStep(m_first);
    if (!overall || now - m_first.time < g_earliest || steps <= m_last.done)
        return std::nullopt;
    const double step = (*overall + secondsPerStep(m_before).value_or(*overall)) / 2;
    // The step under way has used up some of it.
    const double used = std::min(Seconds(now - m_last.time).count(), step);
    return std::max(0.0, step * static_cast<double>(steps - m_last.done) - used);
}

QString HVTimeLeft::text(double seconds)
{
    if (seconds < 57.5) {
        const double shown = seconds < 10 ? std::max(1.0, std::round(seconds)) : 5 * std::round(seconds / 5);
        return translated("about %1 s left").arg(shown);
    }
    const double minutes = std::max(1.0, std::round(seconds / 60));
    if (minutes < 60)
        return translated("about %1 min left").arg(minutes);
    const double tens = 10 * std::round(seconds / 600);
    if (tens < 24 * 60)
        return std::fmod(tens, 60) == 0
                   ? translated("about %1 h left").arg(tens / 60)
                   : translated("about %1 h %2 min left").arg(std::floor(tens / 60)).arg(std::fmod(tens, 60));
    const double days = std::round(seconds / 86400);
    return days <= 1 ? translated("about 1 day left") : translated("about %1 days left").arg(days, 0, 'f', 0);
}
