#pragma once

#include "host/changes/Change.h"

#include <QObject>
#include <QPointer>

namespace hv {

/// The changes of one project, in steps. Whoever changes something records how to take it back; a ChangeScope on the
/// stack makes one step of all that is recorded while it lives, and without a scope each change is a step by itself.
///
/// Owned by the project. GUI thread only.
class ChangeLog : public QObject
{
    Q_OBJECT

public:
    explicit ChangeLog(QObject* parent = nullptr) : QObject(parent) {}
    ~ChangeLog() override;

    /// Not owned; outlives the log or takes itself away with null.
    void setSink(IUndoSink* sink) { m_sink = sink; }
    IUndoSink* sink() const { return m_sink; }

    /// `change` was made just now. `text` names the step when there is no scope.
    void record(std::unique_ptr<Change> change, const QString& text);
    /// Something was changed that nobody can take back.
    void recordWithoutUndo(const QString& text);

    /// To be asked before a change that would keep this much: false, after a warning to the user about `what`, for
    /// more than is kept. The change is then recorded without undo.
    bool keepable(qint64 bytes, const QString& what) const;
    void setMostBytes(qint64 bytes) { m_mostBytes = bytes; }

    /// Whether a scope is open: what happens now belongs to its step.
    bool isOpen() const { return m_runs > 0 || m_steps > 0; }
    /// How many steps have ended: what was recorded before the last one is no part of the present one.
    quint64 finishedSteps() const { return m_finished; }
    bool isReplaying() const { return m_isReplaying; }

private:
    friend class ChangeScope;
    friend class ChangeReplay;
    void beginRun(const char* name, const QString& text);
    void endRun();
    quint64 beginStep(const QString& text);
    void endStep(quint64 number);
    void finish(const QString& text);
    void endReplay();

    IUndoSink* m_sink = nullptr;
    ChangeStep::Changes m_changes;
    bool m_canUndo = true;
    int m_runs = 0;
    const char* m_runName = nullptr; // a text is made of it when there is a step to name
    QString m_runText;
    int m_steps = 0;
    QString m_stepText;
    quint64 m_stepNumber = 0;
    quint64 m_finished = 0;
    bool m_isReplaying = false;
    QString m_replayText;
    qint64 m_mostBytes = qint64(1) << 30;
};

/// Held by the sink while it takes steps back or makes them again. The steps' own changes record nothing; what somebody
/// else changes meanwhile, because he hears of it, becomes a step by itself when this goes, since a list of steps
/// cannot take one in while it moves. Not nested; the log may go meanwhile.
class ChangeReplay
{
public:
    explicit ChangeReplay(ChangeLog& log) : m_log(&log) { log.m_isReplaying = true; }
    ~ChangeReplay()
    {
        if (m_log)
            m_log->endReplay();
    }
    ChangeReplay(const ChangeReplay&) = delete;
    ChangeReplay& operator=(const ChangeReplay&) = delete;

private:
    const QPointer<ChangeLog> m_log;
};

/// All changes while it lives are one step. Scopes within a scope join it, with one exception: a step that somebody
/// asked for by name, inside of a run, stands for itself, and what the run does before and after it are steps of the
/// run's name.
///
/// Costs a few instructions when nothing is changed. A null log, and one that goes meanwhile, are fine.
class ChangeScope
{
public:
    enum class Kind
    {
        Run,  ///< a script, a callback, a command: whatever happens to change something
        Step, ///< asked for by name
    };

    /// `name` stays valid.
    ChangeScope(ChangeLog* log, const char* name) : m_log(log)
    {
        if (log)
            log->beginRun(name, {});
    }
    ChangeScope(ChangeLog* log, const QString& text, Kind kind = Kind::Run) : m_log(log)
    {
        if (log && kind == Kind::Step)
            m_step = log->beginStep(text);
        else if (log)
            log->beginRun(nullptr, text);
    }
    ~ChangeScope()
    {
        if (m_log && m_step)
            m_log->endStep(m_step);
        else if (m_log)
            m_log->endRun();
    }
    ChangeScope(const ChangeScope&) = delete;
    ChangeScope& operator=(const ChangeScope&) = delete;

private:
    const QPointer<ChangeLog> m_log;
    quint64 m_step = 0;
};

} // namespace hv
