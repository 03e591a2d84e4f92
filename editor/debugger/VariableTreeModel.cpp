#include "editor/debugger/VariableTreeModel.h"

#include "editor/debugger/TimeLimit.h"
#include "editor/debugger/ValueText.h"
#include "runtime/GilLock.h"
#include "runtime/LateRelease.h"

#include <optional>

using python::Ref;

namespace {

constexpr std::chrono::milliseconds g_attributeTime{250};   // for one, which may be a property
constexpr std::chrono::milliseconds g_attributesTime{1000}; // for all of a value

/// The name as it is shown; nothing for those that are left out.
std::optional<QString> shownName(PyObject* name)
{
    const char* utf8 = PyUnicode_Check(name) ? PyUnicode_AsUTF8(name) : nullptr;
    if (!utf8) {
        PyErr_Clear();
        return std::nullopt;
    }
    const QString text = QString::fromUtf8(utf8);
    const QLatin1String underscores("__");
    if (text.startsWith(underscores) || text.endsWith(underscores))
        return std::nullopt;
    return text;
}

VariableTreeModel::Kind kindOf(PyObject* value)
{
    const PyTypeObject* type = Py_TYPE(value);
    return type == &PyBool_Type      ? VariableTreeModel::BoolKind
           : type == &PyLong_Type    ? VariableTreeModel::IntKind
           : type == &PyFloat_Type   ? VariableTreeModel::FloatKind
           : type == &PyUnicode_Type ? VariableTreeModel::StrKind
                                     : VariableTreeModel::OtherKind;
}

bool isCode(PyObject* value)
{
    return PyObject_TypeCheck(value, &PyFunction_Type) || PyObject_TypeCheck(value, &PyMethod_Type) ||
           PyObject_TypeCheck(value, &PyModule_Type) || PyObject_TypeCheck(value, &PyCFunction_Type);
}

/// Types whose attributes are all methods, known without asking.
bool hasMethodsOnly(PyObject* value)
{
    return value == Py_None || PyUnicode_CheckExact(value) || PyBytes_CheckExact(value) || PyList_CheckExact(value) ||
           PyTuple_CheckExact(value) || PyDict_CheckExact(value) || PyAnySet_CheckExact(value);
}

} // namespace

struct VariableTreeModel::Item
{
    Item() = default;
    Item(Ref held, const QString& name, debugger::ValueText& text, Item* itemParent, bool isGlobal)
        : value(std::move(held)), parent(itemParent), kind(kindOf(value.get())), global(isGlobal)
    {
        columns[Name] = name;
        columns[Type] = QString::fromUtf8(Py_TYPE(value.get())->tp_name);
        columns[Value] = text.of(value.get());
        columns[ReferenceCount] = static_cast<qlonglong>(Py_REFCNT(value.get()));
    }
    ~Item() { python::releaseLate(value); }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;

    Ref value;
    QVariant columns[ColumnCount];
    Item* parent = nullptr;
    Items children;
    Kind kind = OtherKind;
    bool global = false;
    bool fetched = false; // the children are known
};

VariableTreeModel::VariableTreeModel(QObject* parent) : QAbstractItemModel(parent), m_root(std::make_unique<Item>())
{
    m_root->fetched = true;
}

VariableTreeModel::~VariableTreeModel()
{
    const python::LateGilLock lock;
    m_root.reset();
}

void VariableTreeModel::populate(PyObject* globals, PyObject* locals)
{
    const python::GilLock lock;
    auto fresh = std::make_unique<Item>();
    fresh->fetched = true;
    beginResetModel();
    // What dies with the old rows may run code, which must find the model in order.
    std::unique_ptr<Item> old = std::exchange(m_root, std::move(fresh));
    endResetModel();
    old.reset();

    Items rows;
    debugger::ValueText text;
    appendMapping(rows, globals, true, text);
    appendMapping(rows, locals, false, text);
    if (rows.empty())
        return;
    beginInsertRows({}, 0, static_cast<int>(rows.size()) - 1);
    for (const auto& row : rows)
        row->parent = m_root.get();
    m_root->children = std::move(rows);
    endInsertRows();
}

void VariableTreeModel::appendMapping(Items& rows, PyObject* mapping, bool global, debugger::ValueText& text) const
{
    const Ref keys = Ref::steal(mapping ? PyMapping_Keys(mapping) : nullptr);
    const Py_ssize_t count = keys ? PyList_GET_SIZE(keys.get()) : 0;
    for (Py_ssize_t i = 0; i < count; ++i) {
        PyObject* key = PyList_GET_ITEM(keys.get(), i);
        const std::optional<QString> name = shownName(key);
        if (const Ref value = Ref::steal(name ? PyObject_GetItem(mapping, key) : nullptr))
            rows.push_back(std::make_unique<Item>(value, *name, text, nullptr, global));
        PyErr_Clear();
    }
    PyErr_Clear();
}

void VariableTreeModel::fetchAttributes(Item& item) const
{
    item.fetched = true;
    if (!item.value)
        return;
    const python::GilLock lock;
    // A property may end the pause, and with it this model's hold on the value.
    const Ref held = item.value;
    PyObject* object = held.get();
    debugger::ValueText text;
    auto left = g_attributesTime;
    const auto limited = [&left](const auto& look) {
        const auto start = std::chrono::steady_clock::now();
        const debugger::TimeLimit limit(std::min(left, g_attributeTime));
        Ref result = Ref::steal(look());
        left -= std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start);
        return result;
    };
    const Ref names = limited([=] { return PyObject_Dir(object); });
    const Py_ssize_t count = names && PyList_Check(names.get()) ? PyList_GET_SIZE(names.get()) : 0;
    for (Py_ssize_t i = 0; i < count && left.count() > 0; ++i) {
        PyErr_Clear();
        PyObject* key = PyList_GET_ITEM(names.get(), i);
        const std::optional<QString> name = shownName(key);
        const Ref attribute = name ? limited([=] { return PyObject_GetAttr(object, key); }) : Ref();
        if (attribute && !isCode(attribute.get())) {
            item.children.push_back(std::make_unique<Item>(attribute, *name, text, &item, item.global));
            item.children.back()->fetched = true; // one level only
        }
    }
    PyErr_Clear();
}

void VariableTreeModel::releaseValues()
{
    const python::LateGilLock lock;
    for (const auto& row : m_root->children) {
        python::releaseLate(row->value);
        for (const auto& attribute : row->children)
            python::releaseLate(attribute->value);
    }
}

VariableTreeModel::Item* VariableTreeModel::itemOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<Item*>(index.internalPointer()) : m_root.get();
}

QModelIndex VariableTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column < 0 || column >= ColumnCount || row >= rowCount(parent))
        return {};
    return createIndex(row, column, itemOf(parent)->children[static_cast<std::size_t>(row)].get());
}

QModelIndex VariableTreeModel::parent(const QModelIndex& index) const
{
    Item* above = index.isValid() ? itemOf(index)->parent : nullptr;
    if (!above || above == m_root.get())
        return {};
    const Items& siblings = above->parent->children;
    const auto found =
        std::find_if(siblings.begin(), siblings.end(), [above](const auto& i) { return i.get() == above; });
    return createIndex(static_cast<int>(found - siblings.begin()), Name, above);
}

int VariableTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() && parent.column() != Name)
        return 0;
    Item* item = itemOf(parent);
    if (!item->fetched)
        fetchAttributes(*item);
    return static_cast<int>(item->children.size());
}

int VariableTreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return ColumnCount;
}

bool VariableTreeModel::hasChildren(const QModelIndex& parent) const
{
    if (parent.isValid() && parent.column() != Name)
        return false;
    const Item* item = itemOf(parent);
    if (item->fetched)
        return !item->children.empty();
    return item->value && !hasMethodsOnly(item->value.get());
}

QVariant VariableTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Item* item = itemOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return item->columns[index.column()];
    case Qt::ToolTipRole:
        return index.column() == Value ? item->columns[Value] : QVariant();
    case KindRole:
        return item->kind;
    case GlobalRole:
        return item->global;
    default:
        return {};
    }
}

QVariant VariableTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString headers[] = {QStringLiteral("Name"), QStringLiteral("Type"), QStringLiteral("Value"),
                                      QStringLiteral("Reference Count")};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    return headers[section];
}

Qt::ItemFlags VariableTreeModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags common = QAbstractItemModel::flags(index);
    return index.isValid() && index.column() == Value ? common | Qt::ItemIsEditable : common;
}

bool VariableTreeModel::setData(const QModelIndex& /*index*/, const QVariant& /*value*/, int /*role*/)
{
    return true;
}
