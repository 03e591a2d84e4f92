#pragma once

#include "host/services/HVEventBus.h"

namespace headless {

class TerminalProgress;

/// Sends the event bus to the process's streams as it comes: what scripts write to standard output goes there, all else
/// to standard error. Nothing is buffered, so nothing is lost however the process ends.
class StandardStreams final : public HVEventBus::Sink
{
public:
    /// Success notices, the start-up notice among them, are shown only when `verbose`.
    /// `progress` (not owned, null for none) makes way for other text.
    explicit StandardStreams(bool verbose, TerminalProgress* progress = nullptr);
    ~StandardStreams();
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

    void receive(const HVEventBus::Message& message) override;
    bool mayBlock() const override { return true; }
    int failure() const override { return m_failure; }

private:
    void makeWay(std::string_view text);

    const bool m_verbose;
    TerminalProgress* const m_progress;
    int m_failure = 0;
};

} // namespace headless
