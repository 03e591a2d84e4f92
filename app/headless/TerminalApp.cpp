#include "app/headless/TerminalApp.h"

#include <cstdio>

namespace headless {

void hideQtWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    });
}

int refuse(const QString& sentence)
{
    std::fprintf(stderr, "strativo: %s\n", sentence.toLocal8Bit().constData());
    return g_statusNotStarted;
}

} // namespace headless
