#include "host/services/HVEventBus.h"

#include <algorithm>

HVEventBus& HVEventBus::instance()
{
    // Never destroyed: threads that outlive main() may still write to a captured stream.
    static auto* bus = new HVEventBus;
    return *bus;
}

void HVEventBus::sendMessage(int level, const QString& text, bool reveal)
{
    const QByteArray utf8 = text.toUtf8();
    sendUtf8(level, {utf8.constData(), static_cast<std::size_t>(utf8.size())}, reveal);
}

void HVEventBus::sendMessage(MessageLevel level, const QString& text, bool reveal)
{
    sendMessage(static_cast<int>(level), text, reveal);
}

int HVEventBus::sendUtf8(int level, std::string_view utf8, bool reveal)
{
    const Message message{level, utf8, reveal};
    int failure = 0;
    const std::lock_guard lock(m_mutex);
    for (Sink* sink : m_sinks) {
        sink->receive(message);
        if (failure == 0)
            failure = sink->failure();
    }
    return failure;
}

void HVEventBus::addSink(Sink* sink)
{
    const std::lock_guard lock(m_mutex);
    m_sinks.push_back(sink);
    m_blockingSinks += sink->mayBlock() ? 1 : 0;
}

void HVEventBus::removeSink(Sink* sink)
{
    const std::lock_guard lock(m_mutex);
    const auto found = std::find(m_sinks.begin(), m_sinks.end(), sink);
    if (found == m_sinks.end())
        return;
    m_sinks.erase(found);
    m_blockingSinks -= sink->mayBlock() ? 1 : 0;
}
