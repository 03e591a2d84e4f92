#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QAbstractItemModel>

#include <memory>
#include <vector>

namespace debugger {
class ValueText;
}

/// The variables of a paused frame and, one level below, their attributes.
///
/// Attributes are looked up when somebody asks for the children of a row, because doing so may run properties of the
/// script's classes. The model holds the values from populate() until releaseValues() or the next populate(); what was
/// shown stays, as text. Editing opens an editor, but never changes the program. GUI thread only; takes the
/// interpreter lock where it needs it, and may outlive the interpreter.
class VariableTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        Name,
        Type,
        Value,
        ReferenceCount,
        ColumnCount
    };
    /// What kind of editor suits the value.
    enum Kind
    {
        OtherKind,
        BoolKind,
        IntKind,
        FloatKind,
        StrKind
    };
    static constexpr int KindRole = Qt::UserRole;
    /// True for a row of the globals.
    static constexpr int GlobalRole = Qt::UserRole + 1;

    explicit VariableTreeModel(QObject* parent = nullptr);
    ~VariableTreeModel() override;

    /// Shows the rows of `globals`, then those of `locals`: names that neither begin nor end with two underscores, in
    /// the order of the mappings.
    void populate(PyObject* globals, PyObject* locals);
    void releaseValues();

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Accepts every edit and changes nothing.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    struct Item;
    using Items = std::vector<std::unique_ptr<Item>>;

    Item* itemOf(const QModelIndex& index) const;
    void appendMapping(Items& rows, PyObject* mapping, bool global, debugger::ValueText& text) const;
    void fetchAttributes(Item& item) const;

    std::unique_ptr<Item> m_root;
};
