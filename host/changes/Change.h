#pragma once

#include "host/core/Result.h"

#include <QString>

#include <memory>
#include <vector>

/// host/changes: that what is done to a project can be taken back, and how it is told as one step.

namespace hv {

/// A change that was made and can be taken back and made again, in turns. A failed turn has changed nothing. It keeps
/// what it needs for that and finds its subject by itself; nobody else need know of it.
class Change
{
public:
    virtual ~Change() = default;
    virtual Result<void> undo() = 0;
    virtual Result<void> redo() = 0;
};

/// Changes that are taken back and made again together, under a name for the user.
class ChangeStep
{
public:
    using Changes = std::vector<std::unique_ptr<Change>>;

    ChangeStep(QString text, Changes changes, bool canUndo)
        : m_text(std::move(text)), m_changes(std::move(changes)), m_canUndo(canUndo)
    {}

    const QString& text() const { return m_text; }
    /// False when something was done in it that was too large to be kept.
    bool canUndo() const { return m_canUndo; }
    std::size_t size() const { return m_changes.size(); }

    /// All of its changes or, with the reason, none. Only in turns, undo() first.
    Result<void> undo();
    Result<void> redo();

private:
    QString m_text;
    Changes m_changes;
    bool m_canUndo;
};

/// Who keeps the steps: a stack of the user interface. Without one they are dropped. Holds a ChangeReplay while it
/// takes steps back or makes them again.
class IUndoSink
{
public:
    virtual void add(std::unique_ptr<ChangeStep> step) = 0;
    /// The project goes, and with it all that its steps are about.
    virtual void clear() = 0;

protected:
    ~IUndoSink() = default;
};

} // namespace hv
