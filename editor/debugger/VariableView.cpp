#include "editor/debugger/VariableView.h"

#include "editor/debugger/PythonValueDelegate.h"
#include "editor/debugger/VariableTreeModel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>

namespace debugger {

VariableView::VariableView(QWidget* parent)
    : QWidget(parent), m_model(new VariableTreeModel(this)), m_tree(new QTreeView), m_filter(new QLineEdit),
      m_globals(new QCheckBox(tr("Globals")))
{
    m_tree->setAnimated(true);
    m_tree->setRootIsDecorated(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setAlternatingRowColors(true);
    m_tree->setModel(m_model);
    m_tree->setItemDelegateForColumn(VariableTreeModel::Value, new PythonValueDelegate(m_tree));
    m_tree->header()->resizeSection(VariableTreeModel::Name, 140);
    m_tree->header()->resizeSection(VariableTreeModel::Type, 80);
    m_tree->header()->resizeSection(VariableTreeModel::Value, 220);
    m_filter->setPlaceholderText(tr("Filter by name or type"));
    m_filter->setClearButtonEnabled(true);
    m_globals->setChecked(true);
    m_globals->setToolTip(tr("Show the names of the module besides those of the function"));

    auto* row = new QHBoxLayout;
    row->addWidget(m_filter, 1);
    row->addWidget(m_globals);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(m_tree, 1);
    connect(m_filter, &QLineEdit::textChanged, this, &VariableView::filterRows);
    connect(m_globals, &QCheckBox::toggled, this, &VariableView::filterRows);
}

void VariableView::populate(PyObject* globals, PyObject* locals)
{
    const QSet<QString> open = openRows();
    m_oneMapping = globals == locals;
    m_model->populate(globals, locals);
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, VariableTreeModel::Name);
        if (open.contains(index.data().toString()))
            m_tree->expand(index);
    }
    filterRows();
}

QSet<QString> VariableView::openRows() const
{
    QSet<QString> names;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, VariableTreeModel::Name);
        if (m_tree->isExpanded(index))
            names.insert(index.data().toString());
    }
    return names;
}

void VariableView::filterRows()
{
    const QString wanted = m_filter->text();
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, VariableTreeModel::Name);
        const bool global = index.data(VariableTreeModel::GlobalRole).toBool();
        const bool unwanted = m_oneMapping ? global : global && !m_globals->isChecked();
        const bool found =
            index.data().toString().contains(wanted, Qt::CaseInsensitive) ||
            index.siblingAtColumn(VariableTreeModel::Type).data().toString().contains(wanted, Qt::CaseInsensitive);
        m_tree->setRowHidden(row, {}, unwanted || !found);
    }
    m_globals->setEnabled(!m_oneMapping);
}

void VariableView::setTreeEnabled(bool enabled)
{
    if (!enabled)
        m_tree->clearSelection();
    m_tree->setEnabled(enabled);
}

void VariableView::releaseValues()
{
    m_model->releaseValues();
}

} // namespace debugger
