#include "host/services/HVMessageQueue.h"

#include <utility>

namespace {

constexpr std::size_t g_byteLimit = 32u << 20;

} // namespace

HVMessageQueue::HVMessageQueue(std::size_t lineLimit, std::function<void()> wake)
    : m_lineLimit(lineLimit), m_wake(std::move(wake))
{}

void HVMessageQueue::receive(const HVEventBus::Message& message)
{
    {
        const std::lock_guard lock(m_mutex);
        m_queued.append(message.level, message.text);
        m_reveal = m_reveal || message.reveal || HVMessageBatch::isStream(message.level);
        // Twice the limit, so that the cost of cutting is spread over as many messages as are dropped.
        if (m_queued.lineCount() > 2 * m_lineLimit || m_queued.byteCount() > 2 * g_byteLimit)
            m_queued.keepNewest(m_lineLimit, g_byteLimit);
        if (std::exchange(m_woken, true))
            return;
    }
    m_wake();
}

bool HVMessageQueue::take(HVMessageBatch& batch)
{
    bool reveal = false;
    {
        const std::lock_guard lock(m_mutex);
        m_woken = false;
        reveal = std::exchange(m_reveal, false);
        if (batch.isEmpty()) {
            batch.clear();
            std::swap(batch, m_queued);
        } else {
            batch.append(m_queued);
            m_queued.clear();
        }
    }
    batch.keepNewest(m_lineLimit, g_byteLimit);
    return reveal;
}
