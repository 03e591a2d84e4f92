#include "host/services/HVActionDispatcher.h"

#include "host/services/HVEventBus.h"

void HVActionDispatcher::setHandler(const QString& action, Handler handler)
{
    if (handler)
        m_handlers.insert(action, std::move(handler));
    else
        m_handlers.remove(action);
}

bool HVActionDispatcher::dispatch(QObject* sender, QObject* target, const QString& action) const
{
    // A copy: the handler may replace itself.
    const Handler handler = m_handlers.value(action);
    if (!handler) {
        HVEventBus::instance().sendMessage(MessageLevel::Error, QStringLiteral("Unknown action: %1").arg(action));
        return false;
    }
    handler(sender, target);
    return true;
}
