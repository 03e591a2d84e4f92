#include "editor/debugger/BreakpointList.h"

#include <QFileInfo>
#include <QHeaderView>

namespace debugger {

namespace {

constexpr int g_placeColumn = 0;
constexpr int g_conditionColumn = 1;
constexpr int g_fileRole = Qt::UserRole;
constexpr int g_lineRole = Qt::UserRole + 1;

Place placeOf(const QTreeWidgetItem* item)
{
    return {item->data(g_placeColumn, g_fileRole).toString(), item->data(g_placeColumn, g_lineRole).toInt()};
}

} // namespace

BreakpointList::BreakpointList(Breakpoints& breakpoints, QWidget* parent)
    : QTreeWidget(parent), m_breakpoints(breakpoints)
{
    setHeaderLabels({tr("Breakpoint"), tr("Condition")});
    headerItem()->setToolTip(g_conditionColumn, tr("A Python expression; empty stops always"));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    header()->setStretchLastSection(true);
    connect(this, &QTreeWidget::itemChanged, this, &BreakpointList::applyEdit);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item, int column) {
        const auto [file, line] = placeOf(item);
        if (column == g_conditionColumn)
            editItem(item, column);
        else
            Q_EMIT placeChosen(file, line);
    });
}

void BreakpointList::refresh()
{
    const QSignalBlocker quiet(this);
    clear();
    for (const auto& [place, settings] : m_breakpoints.all()) {
        const QString name = place.first.isEmpty() ? tr("unsaved script") : QFileInfo(place.first).fileName();
        auto* item =
            new QTreeWidgetItem(this, {QStringLiteral("%1:%2").arg(name).arg(place.second), settings.condition});
        item->setData(g_placeColumn, g_fileRole, place.first);
        item->setData(g_placeColumn, g_lineRole, place.second);
        item->setToolTip(g_placeColumn, place.first);
        item->setToolTip(g_conditionColumn, tr("Double-click to edit: a Python expression; empty stops always"));
        item->setCheckState(g_placeColumn, settings.enabled ? Qt::Checked : Qt::Unchecked);
        item->setFlags(item->flags() | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
    }
}

void BreakpointList::applyEdit(QTreeWidgetItem* item)
{
    const Place place = placeOf(item);
    m_breakpoints.setEnabled(place, item->checkState(g_placeColumn) == Qt::Checked);
    m_breakpoints.setCondition(place, item->text(g_conditionColumn));
    Q_EMIT edited(place.first, place.second);
}

} // namespace debugger
