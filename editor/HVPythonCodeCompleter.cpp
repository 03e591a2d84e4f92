#include "editor/HVPythonCodeCompleter.h"

#include <QStringListModel>

HVPythonCodeCompleter::HVPythonCodeCompleter(QObject* parent)
    : QCompleter(parent), m_thread(new HVPythonCompleterThread)
{
    connect(m_thread, &QThread::finished, this, &HVPythonCodeCompleter::takeResults);
}

HVPythonCodeCompleter::~HVPythonCodeCompleter()
{
    m_thread->disconnect(this);
    HVPythonCompleterThread::dispose(m_thread);
}

void HVPythonCodeCompleter::takeResults()
{
    // A late signal of a computation that was followed by another.
    if (m_thread->isRunning())
        return;
    setModel(new QStringListModel(m_thread->results(), this));
    m_needsRefresh = false;
    Q_EMIT modelFillingFinished();
}
