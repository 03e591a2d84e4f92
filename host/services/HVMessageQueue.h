#pragma once

#include "host/services/HVEventBus.h"
#include "host/services/HVMessageBatch.h"

#include <functional>

/// Carries messages from the threads that send them to the one that shows them, without slowing the senders: a message
/// costs a copy into a buffer, and the receiver is woken once per batch.
///
/// Only the newest lines are kept (at most twice `lineLimit` between two takes, exactly `lineLimit` afterwards, and
/// about 32 MB), since older ones would scroll out of sight anyway.
class HVMessageQueue final : public HVEventBus::Sink
{
public:
    /// `wake` is called on the sending thread by the first message after a take; it must be quick and must not send
    /// messages. It is typically a post to the GUI thread.
    HVMessageQueue(std::size_t lineLimit, std::function<void()> wake);

    void receive(const HVEventBus::Message& message) override;

    /// Adds everything queued to `batch` and cuts that to the newest lines. True when one of the messages wants to be
    /// seen: it asked to, or it is output of a script.
    bool take(HVMessageBatch& batch);

    std::size_t lineLimit() const { return m_lineLimit; }

private:
    const std::size_t m_lineLimit;
    const std::function<void()> m_wake;

    std::mutex m_mutex;
    HVMessageBatch m_queued;
    bool m_reveal = false;
    bool m_woken = false;
};
