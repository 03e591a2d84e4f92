#include "app/headless/StandardStreams.h"

#include <cerrno>
#include <string>
#include <unistd.h>

namespace headless {

namespace {

/// Writes everything or gives up when nobody can read any more.
void writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR && errno != EAGAIN)
            return;
    }
}

} // namespace

StandardStreams::StandardStreams(bool verbose) : m_verbose(verbose)
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
        writeAll(STDOUT_FILENO, message.text);
        break;
    case MessageLevel::StandardError:
        writeAll(STDERR_FILENO, message.text);
        break;
    case MessageLevel::Success:
        if (!m_verbose)
            break;
        [[fallthrough]];
    default:
        writeAll(STDERR_FILENO, std::string(message.text) + '\n');
    }
}

} // namespace headless
