#pragma once

#include "host/changes/Change.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUndoStack>

class HVProject;
class QAction;

/// The steps in which a project was changed, for Edit > Undo and Redo. A step that cannot be taken back stands in the
/// list and ends the way back. One that fails to be, since somebody else has changed its files, says why and leaves the
/// list; nothing of it is done then.
///
/// Follows one project at a time and forgets the steps of the one before. GUI thread only.
class HVUndoStack : public QObject, public hv::IUndoSink
{
    Q_OBJECT

public:
    explicit HVUndoStack(QObject* parent = nullptr);
    ~HVUndoStack() override;

    /// Null for none. The project's changes are kept from now on.
    void setProject(HVProject* project);

    bool canUndo() const;
    bool canRedo() const { return m_stack.canRedo(); }
    /// Of the next step in each direction; empty for none.
    QString undoText() const { return m_stack.undoText(); }
    QString redoText() const { return m_stack.redoText(); }

    /// What the user reads of all steps, the first first.
    QStringList texts() const;
    /// How many of them are done: those from here on were taken back.
    int position() const { return m_stack.index(); }
    /// Step by step, as far as possible.
    void goTo(int position);

    void add(std::unique_ptr<hv::ChangeStep> step) override;
    void clear() override { m_stack.clear(); }

public Q_SLOTS:
    /// Nothing, while a script or another change is under way.
    void undo();
    void redo();

Q_SIGNALS:
    /// The steps, or how many of them are done.
    void changed();

private:
    bool isBusy() const;

    QPointer<HVProject> m_project;
    QUndoStack m_stack;
};
