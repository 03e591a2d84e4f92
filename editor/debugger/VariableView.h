#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QSet>
#include <QWidget>

class QCheckBox;
class QLineEdit;
class QTreeView;
class VariableTreeModel;

namespace debugger {

/// The variable tree with its filter. Rows that were open stay open from one stop to the next.
class VariableView : public QWidget
{
    Q_OBJECT

public:
    explicit VariableView(QWidget* parent = nullptr);

    /// Needs the interpreter lock. The same mapping given twice, as at the top of a script, is shown once.
    void populate(PyObject* globals, PyObject* locals);
    /// Disabling takes the selection away; the rows stay as text.
    void setTreeEnabled(bool enabled);
    void releaseValues();

private:
    void filterRows();
    QSet<QString> openRows() const;

    VariableTreeModel* m_model;
    QTreeView* m_tree;
    QLineEdit* m_filter;
    QCheckBox* m_globals;
    bool m_oneMapping = false;
};

} // namespace debugger
