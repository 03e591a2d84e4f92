#pragma once

#include "host/services/HVEventBus.h"

namespace headless {

/// Sends the event bus to the process's streams as it comes: what scripts write to standard output goes there, all else
/// to standard error. Nothing is buffered, so nothing is lost however the process ends.
class StandardStreams final : public HVEventBus::Sink
{
public:
    /// Success notices, the start-up notice among them, are shown only when `verbose`.
    explicit StandardStreams(bool verbose);
    ~StandardStreams();
    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

    void receive(const HVEventBus::Message& message) override;
    bool mayBlock() const override { return true; }

private:
    bool m_verbose;
};

} // namespace headless
