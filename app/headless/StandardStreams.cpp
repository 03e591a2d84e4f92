#include "app/headless/StandardStreams.h"

#include "app/headless/TerminalProgress.h"
#include "host/services/WriteAll.h"

#include <string>
#include <unistd.h>

namespace headless {

StandardStreams::StandardStreams(bool verbose, TerminalProgress* progress) : m_verbose(verbose), m_progress(progress)
{
    HVEventBus::instance().addSink(this);
}

StandardStreams::~StandardStreams()
{
    HVEventBus::instance().removeSink(this);
}

void StandardStreams::receive(const HVEventBus::Message& message)
{
    switch (static_cast<MessageLevel>(message.level)) {
    case MessageLevel::StandardOutput:
        makeWay(message.text);
        m_failure = hv::writeAll(STDOUT_FILENO, message.text);
        break;
    case MessageLevel::StandardError:
        makeWay(message.text);
        m_failure = hv::writeAll(STDERR_FILENO, message.text);
        break;
    case MessageLevel::Success:
        if (!m_verbose)
            return;
        [[fallthrough]];
    default:
        m_failure = 0; // nobody waits for these
        makeWay("\n");
        hv::writeAll(STDERR_FILENO, std::string(message.text) + '\n');
    }
}

void StandardStreams::makeWay(std::string_view text)
{
    if (m_progress)
        m_progress->makeWay(text);
}

} // namespace headless
