#include "host/widgets/HVProjectModel.h"

#include "host/icons/HVIconStore.h"
#include "host/services/HVEventBus.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QPalette>
#include <QUrl>

namespace {

using Type = ProjectNode::Type;

/// Tells the user when it is not.
bool isDone(const hv::Result<void>& change)
{
    if (!change)
        HVEventBus::instance().sendMessage(MessageLevel::Error, change.failure().sentence, true);
    return static_cast<bool>(change);
}

} // namespace

HVProjectModel::HVProjectModel(QObject* parent) : QAbstractItemModel(parent) {}

HVProjectModel::~HVProjectModel() = default;

void HVProjectModel::setProject(HVProject* project)
{
    if (m_project)
        m_project->store().disconnect(this);
    beginResetModel();
    m_rows.clear();
    m_kinds.clear();
    m_project = project;
    endResetModel();
    if (!project)
        return;
    const hv::ObjectStore* store = &project->store();
    connect(store, &hv::ObjectStore::listingReset, this, [this](ObjectKind kind) { list({kind}); });
    connect(store, &hv::ObjectStore::added, this, &HVProjectModel::addObject);
    connect(store, &hv::ObjectStore::removed, this, &HVProjectModel::removeObject);
    connect(store, &hv::ObjectStore::renamed, this, &HVProjectModel::renameObject);
    std::set<ObjectKind> kinds;
    for (const ObjectKindInfo& info : objectKinds())
        kinds.insert(info.kind);
    list(kinds);
}

void HVProjectModel::list(const std::set<ObjectKind>& kinds)
{
    if (!m_project || std::none_of(kinds.begin(), kinds.end(), [this](ObjectKind kind) { return isListed(kind); }))
        return;
    beginResetModel();
    for (const ObjectKind kind : kinds)
        if (isListed(kind))
            m_kinds[kind] = buildProjectTree(*m_project, kind);
    m_rows.clear();
    for (const ObjectKindInfo& info : objectKinds())
        if (ProjectNode* node = m_kinds[info.kind].get()) {
            node->row = static_cast<int>(m_rows.size());
            m_rows.push_back(node);
        }
    endResetModel();
}

/// The row that holds, or would hold, the object: null when the kind has no row yet.
ProjectNode* HVProjectModel::parentOf(const hv::ObjectKey& key)
{
    ProjectNode* root = m_kinds[key.kind].get();
    if (!root || !m_project)
        return nullptr;
    const QString directory = m_project->directories(key.kind).directoryOf(key.name);
    ProjectNode* found = directory.isEmpty() ? root : root->findDirectory(directory);
    return found ? found : root;
}

QModelIndex HVProjectModel::indexOf(const ProjectNode* node) const
{
    return createIndex(node->row, 0, const_cast<ProjectNode*>(node)); // NOLINT: Qt's pointer is not const
}

QModelIndex HVProjectModel::indexOf(const hv::ObjectKey& object)
{
    ProjectNode* parent = isListed(object.kind) ? parentOf(object) : nullptr;
    const int row = parent ? parent->placeOf(object.name) : 0;
    return parent && parent->objectAt(row, object.name) ? index(row, 0, indexOf(parent)) : QModelIndex();
}

void HVProjectModel::countObjects(ProjectNode* from, int more)
{
    for (ProjectNode* node = from; node; node = node->parent) {
        node->objectCount += more;
        const QModelIndex count = indexOf(node).siblingAtColumn(1);
        Q_EMIT dataChanged(count, count, {Qt::DisplayRole});
    }
}

void HVProjectModel::addObject(const hv::ObjectKey& key)
{
    if (!isListed(key.kind))
        return;
    ProjectNode* parent = parentOf(key);
    if (!parent) {
        list({key.kind});
        return;
    }
    const int row = parent->placeOf(key.name);
    if (parent->objectAt(row, key.name) || !m_project->store().contains(key))
        return;
    beginInsertRows(indexOf(parent), row, row);
    parent->insert(row, std::make_unique<ProjectNode>(
                            ProjectNode{Type::Object, key.kind, key.name, m_project->store().path(key)}));
    endInsertRows();
    countObjects(parent, 1);
}

void HVProjectModel::removeObject(const hv::ObjectKey& key)
{
    ProjectNode* parent = isListed(key.kind) ? parentOf(key) : nullptr;
    const int row = parent ? parent->placeOf(key.name) : 0;
    if (!parent || !parent->objectAt(row, key.name))
        return;
    // A kind without anything has no row.
    if (parent->children.size() == 1 && parent->type == Type::Kind) {
        list({key.kind});
        return;
    }
    beginRemoveRows(indexOf(parent), row, row);
    parent->take(row);
    endRemoveRows();
    countObjects(parent, -1);
}

void HVProjectModel::renameObject(const hv::ObjectKey& before, const hv::ObjectKey& after)
{
    if (!isListed(before.kind))
        return;
    // An object keeps its directory together with its other name.
    ProjectNode* parent = parentOf(after);
    const int row = parent ? parent->placeOf(before.name) : 0;
    if (!parent || !parent->objectAt(row, before.name) || parent->objectAt(parent->placeOf(after.name), after.name)) {
        list({before.kind});
        return;
    }
    const int place = parent->placeOf(after.name);
    const bool isMoved = place != row && place != row + 1;
    if (isMoved)
        beginMoveRows(indexOf(parent), row, row, indexOf(parent), place);
    auto node = parent->take(row);
    node->name = after.name;
    node->path = m_project->store().path(after);
    const ProjectNode* renamed = parent->insert(place > row ? place - 1 : place, std::move(node));
    if (isMoved)
        endMoveRows();
    Q_EMIT dataChanged(indexOf(renamed), indexOf(renamed));
}

const ProjectNode* HVProjectModel::node(const QModelIndex& index) const
{
    return static_cast<const ProjectNode*>(index.internalPointer());
}

QModelIndex HVProjectModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const auto at = static_cast<std::size_t>(row);
    return createIndex(row, column, parent.isValid() ? node(parent)->children[at].get() : m_rows[at]);
}

QModelIndex HVProjectModel::parent(const QModelIndex& index) const
{
    ProjectNode* above = index.isValid() ? node(index)->parent : nullptr;
    return above ? createIndex(above->row, 0, above) : QModelIndex();
}

int HVProjectModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return static_cast<int>(m_rows.size());
    return parent.column() == 0 ? static_cast<int>(node(parent)->children.size()) : 0;
}

int HVProjectModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 2;
}

QVariant HVProjectModel::data(const QModelIndex& index, int role) const
{
    const ProjectNode* row = node(index);
    if (!row)
        return {};
    const bool isObject = row->type == Type::Object;
    if (role == KeyRole)
        return row->key();
    if (isObject && role == hv::g_objectTypeRole)
        return static_cast<int>(row->kind);
    if (isObject && role == hv::g_objectPathRole)
        return row->path;
    if (index.column() == 1) {
        if (role == Qt::DisplayRole && !isObject)
            return row->objectCount;
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        if (role == Qt::ForegroundRole)
            return QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row->name;
    case Qt::DecorationRole:
        return HVIconStore::icon(row->type == Type::Directory ? QStringLiteral("folder_24")
                                                              : QLatin1String(objectKindInfo(row->kind).icon));
    case Qt::ToolTipRole:
        return isObject ? QDir::toNativeSeparators(row->path) : QString();
    default:
        return {};
    }
}

bool HVProjectModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const ProjectNode* row = node(index);
    const QString name = value.toString().trimmed();
    if (!row || role != Qt::EditRole || !m_project || row->type == Type::Kind || name == row->name)
        return false;
    const auto renamed = row->type == Type::Object ? m_project->renameObject(row->kind, row->name, name)
                                                   : m_project->directories(row->kind).renameDirectory(row->name, name);
    return isDone(renamed);
}

QMap<int, QVariant> HVProjectModel::itemData(const QModelIndex& index) const
{
    // Qt's own takes the roles below Qt::UserRole only; a drag carries what stands here.
    QMap<int, QVariant> roles;
    for (const int role : {int(Qt::DisplayRole), hv::g_objectTypeRole, hv::g_objectPathRole})
        if (const QVariant value = data(index, role); value.isValid())
            roles.insert(role, value);
    return roles;
}

Qt::ItemFlags HVProjectModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    const ProjectNode* row = node(index);
    if (!row)
        return flags;
    if (row->type == Type::Object)
        flags |= Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    if (row->type != Type::Kind && index.column() == 0)
        flags |= Qt::ItemIsEditable;
    return flags | Qt::ItemIsDropEnabled;
}

QStringList HVProjectModel::mimeTypes() const
{
    return QAbstractItemModel::mimeTypes() << QStringLiteral("text/uri-list");
}

QMimeData* HVProjectModel::mimeData(const QModelIndexList& indexes) const
{
    // A row once, whatever columns are selected.
    QModelIndexList rows;
    QList<QUrl> files;
    for (const QModelIndex& index : indexes)
        if (index.column() == 0 && node(index)->type == Type::Object) {
            rows << index;
            files << QUrl::fromLocalFile(node(index)->path);
        }
    QMimeData* data = QAbstractItemModel::mimeData(rows);
    if (data)
        data->setUrls(files);
    return data;
}

QStringList HVProjectModel::droppedObjects(const QMimeData* data, const QModelIndex& parent) const
{
    QStringList names;
    const ProjectNode* target = node(parent);
    if (!target || !m_project)
        return names;
    for (const QUrl& url : data->urls())
        if (m_project->kindOf(url.toLocalFile()) == target->kind)
            names << QFileInfo(url.toLocalFile()).completeBaseName();
    return names;
}

bool HVProjectModel::canDropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/, int /*column*/,
                                     const QModelIndex& parent) const
{
    return !droppedObjects(data, parent).isEmpty();
}

bool HVProjectModel::dropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int /*row*/, int /*column*/,
                                  const QModelIndex& parent)
{
    const QStringList names = droppedObjects(data, parent);
    if (names.isEmpty())
        return false;
    HVVirtualDirectories& directories = m_project->directories(node(parent)->kind);
    const QString directory = node(parent)->directory();
    return isDone(directory.isEmpty() ? directories.unfileObjects(names) : directories.fileObjects(names, directory));
}
