#pragma once

#include "editor/debugger/Breakpoints.h"

#include <QTreeWidget>

namespace debugger {

/// All breakpoints: switched off and on by their check boxes, with a condition that can be edited in place.
class BreakpointList : public QTreeWidget
{
    Q_OBJECT

public:
    /// `breakpoints` outlives the list; call refresh() when others changed them.
    explicit BreakpointList(Breakpoints& breakpoints, QWidget* parent = nullptr);

    void refresh();

Q_SIGNALS:
    void placeChosen(const QString& file, int line);
    /// The user has changed the settings of a breakpoint.
    void edited(const QString& file, int line);

private:
    void applyEdit(QTreeWidgetItem* item);

    Breakpoints& m_breakpoints;
};

} // namespace debugger
