#include "host/widgets/HVUndoList.h"

#include "host/widgets/HVUndoStack.h"

HVUndoList::HVUndoList(HVUndoStack& stack, QWidget* parent) : QListWidget(parent), m_stack(stack)
{
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    connect(&m_stack, &HVUndoStack::changed, this, [this] {
        if (isVisible())
            list();
    });
    connect(this, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { m_stack.goTo(row(item)); });
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { m_stack.goTo(row(item)); });
}

void HVUndoList::showEvent(QShowEvent* event)
{
    list();
    QListWidget::showEvent(event);
}

void HVUndoList::list()
{
    clear();
    addItem(tr("Project opened"));
    addItems(m_stack.texts());
    for (int row = m_stack.position() + 1; row < count(); ++row)
        item(row)->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
    setCurrentRow(m_stack.position());
}
