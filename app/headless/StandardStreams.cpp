#include "app/headless/StandardStreams.h"

#include "app/headless/TerminalProgress.h"

#include <cerrno>
#include <string>
#include <unistd.h>

namespace headless {

int writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR && errno != EAGAIN)
            return errno;
    }
    return 0;
}

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
        m_failure = writeAll(STDOUT_FILENO, message.text);
        break;
    case MessageLevel::StandardError:
        makeWay(message.text);
        m_failure = writeAll(STDERR_FILENO, message.text);
        break;
    case MessageLevel::Success:
        if (!m_verbose)
            return;
        [[fallthrough]];
    default:
        m_failure = 0; // nobody waits for these
        makeWay("\n");
        writeAll(STDERR_FILENO, std::string(message.text) + '\n');
    }
}

void StandardStreams::makeWay(std::string_view text)
{
    if (m_progress)
        m_progress->makeWay(text);
}

} // namespace headless
