#pragma once

#include <QStyledItemDelegate>

/// Editors for the values of the variable tree, by the value's exact Python type; types that are not listed there have
/// none. What is entered is not written back to the program.
class PythonValueDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
