#include "editor/HVPythonCompleterThread.h"

namespace {
constexpr unsigned long g_patience = 200; // milliseconds
} // namespace

void HVPythonCompleterThread::request(const QString& text)
{
    if (isRunning())
        return;
    m_request = text;
    start(QThread::InheritPriority);
}

void HVPythonCompleterThread::run()
{
    m_results = m_engine.complete(m_request);
}

void HVPythonCompleterThread::dispose(HVPythonCompleterThread* thread)
{
    if (!thread->isFinished() && thread->isRunning())
        thread->m_engine.interrupt();
    if (!thread->wait(g_patience)) {
        connect(thread, &QThread::finished, thread, &QObject::deleteLater);
        // It may have ended in between.
        if (!thread->wait(0))
            return;
        thread->disconnect();
    }
    delete thread;
}
