#include "editor/debugger/CallStackList.h"

#include "editor/debugger/CodeMarks.h"

#include <QFileInfo>
#include <QHeaderView>

namespace debugger {

CallStackList::CallStackList(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderLabels({tr("Function"), tr("Line"), tr("File")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item)
            Q_EMIT callChosen(static_cast<std::size_t>(indexOfTopLevelItem(item)));
    });
}

void CallStackList::show(const CallStack& stack)
{
    const QSignalBlocker quiet(this);
    clear();
    for (const CallStack::Call& call : stack.calls()) {
        auto* item =
            new QTreeWidgetItem(this, {call.function, QString::number(call.line), QFileInfo(call.file).fileName()});
        item->setToolTip(2, call.file);
        // The standard library is seldom where the fault lies.
        if (isShipped(call.file))
            for (int column = 0; column < columnCount(); ++column)
                item->setForeground(column, palette().brush(QPalette::Disabled, QPalette::Text));
    }
    setCurrentItem(topLevelItem(0));
}

} // namespace debugger
