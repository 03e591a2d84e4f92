#include "host/changes/ChangeLog.h"

#include "host/services/HVEventBus.h"

#include <QLocale>

#include <utility>

namespace hv {

ChangeLog::~ChangeLog()
{
    if (m_sink)
        m_sink->clear();
}

void ChangeLog::record(std::unique_ptr<Change> change, const QString& text)
{
    if (!m_sink)
        return;
    m_changes.push_back(std::move(change));
    if (!isOpen())
        finish(text);
}

void ChangeLog::recordWithoutUndo(const QString& text)
{
    m_canUndo = false;
    if (!isOpen())
        finish(text);
}

bool ChangeLog::keepable(qint64 bytes, const QString& what) const
{
    if (bytes <= m_mostBytes)
        return true;
    HVEventBus::instance().sendMessage(MessageLevel::Warning,
                                       tr("%1 (%2) is too large to be kept: the change cannot be undone.")
                                           .arg(what, QLocale().formattedDataSize(bytes)));
    return false;
}

void ChangeLog::finish(const QString& text)
{
    if (m_isReplaying) {
        if (m_replayText.isEmpty() && (!m_changes.empty() || !m_canUndo))
            m_replayText = text;
        return;
    }
    ChangeStep::Changes changes = std::exchange(m_changes, {});
    const bool canUndo = std::exchange(m_canUndo, true);
    ++m_finished;
    if (m_sink && (!changes.empty() || !canUndo))
        m_sink->add(std::make_unique<ChangeStep>(text, std::move(changes), canUndo));
}

void ChangeLog::endReplay()
{
    m_isReplaying = false;
    const QString text = std::exchange(m_replayText, {});
    if (!isOpen())
        finish(text);
}

void ChangeLog::beginRun(const char* name, const QString& text)
{
    if (m_runs++ > 0 || m_steps > 0)
        return;
    m_runName = name;
    m_runText = text;
}

void ChangeLog::endRun()
{
    if (--m_runs > 0)
        return;
    // A step that was left open, by a generator that nobody ran to its end, ends with the run.
    if (std::exchange(m_steps, 0) > 0)
        finish(m_stepText);
    else
        finish(m_runName ? QString::fromUtf8(m_runName) : m_runText);
}

quint64 ChangeLog::beginStep(const QString& text)
{
    if (m_steps++ > 0)
        return m_stepNumber;
    if (m_runs > 0)
        finish(m_runName ? QString::fromUtf8(m_runName) : m_runText);
    m_stepText = text;
    return ++m_stepNumber;
}

void ChangeLog::endStep(quint64 number)
{
    if (m_steps > 0 && number == m_stepNumber && --m_steps == 0)
        finish(m_stepText);
}

} // namespace hv
