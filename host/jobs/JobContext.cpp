#include "host/jobs/JobContext.h"

#include <algorithm>

namespace hv {

std::optional<double> JobProgress::fraction() const
{
    if (!m_measured.load(std::memory_order_relaxed))
        return std::nullopt;
    return static_cast<double>(position()) / whole;
}

QString JobProgress::text() const
{
    const std::lock_guard lock(m_mutex);
    return m_text;
}

void JobProgress::setText(const QString& text)
{
    const std::lock_guard lock(m_mutex);
    m_text = text;
}

JobContext::JobContext(JobContext& outer, std::int64_t share)
    : m_progress(outer.m_progress), m_length(outer.take(share)), m_isPart(true)
{}

JobContext::~JobContext()
{
    if (m_isPart)
        m_progress.m_position.fetch_add(m_length - positionOf(m_done), std::memory_order_relaxed);
}

void JobContext::setSteps(std::int64_t steps)
{
    m_steps = steps;
    if (steps > 0 && !m_isPart)
        m_progress.m_measured.store(true, std::memory_order_relaxed);
}

void JobContext::advance(std::int64_t count)
{
    if (const std::int64_t length = take(count); length != 0)
        m_progress.m_position.fetch_add(length, std::memory_order_relaxed);
}

std::int64_t JobContext::take(std::int64_t count)
{
    if (m_steps <= 0 || count <= 0)
        return 0;
    const std::int64_t before = m_done.fetch_add(count, std::memory_order_relaxed);
    // Differences of one function of the steps add up to the whole, whoever takes which step and however it is rounded.
    return positionOf(before + count) - positionOf(before);
}

std::int64_t JobContext::positionOf(std::int64_t done) const
{
    if (m_steps <= 0)
        return 0;
    return static_cast<std::int64_t>(static_cast<double>(std::min(done, m_steps)) / static_cast<double>(m_steps) *
                                     static_cast<double>(m_length));
}

} // namespace hv
