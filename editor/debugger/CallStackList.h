#pragma once

#include "editor/debugger/CallStack.h"

#include <QTreeWidget>

namespace debugger {

/// The calls of a paused program, innermost first; choosing one shows its variables.
class CallStackList : public QTreeWidget
{
    Q_OBJECT

public:
    explicit CallStackList(QWidget* parent = nullptr);

    void show(const CallStack& stack);

Q_SIGNALS:
    /// By the user; an index into the stack's calls.
    void callChosen(std::size_t index);
};

} // namespace debugger
