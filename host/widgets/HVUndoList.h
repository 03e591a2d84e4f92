#pragma once

#include <QListWidget>

class HVUndoStack;

/// The steps in which the project was changed, from its opening down to the last; those that were taken back are grey.
/// A click goes there.
class HVUndoList : public QListWidget
{
    Q_OBJECT

public:
    /// `stack` is not owned and outlives the list.
    explicit HVUndoList(HVUndoStack& stack, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void list();

    HVUndoStack& m_stack;
};
