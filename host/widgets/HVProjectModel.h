#pragma once

#include "host/services/HVProjectItemDrag.h"
#include "host/widgets/ProjectTree.h"

#include <QAbstractItemModel>
#include <QPointer>

#include <map>
#include <memory>
#include <set>
#include <vector>

/// The open project as a tree: kinds of object that have something, their virtual directories, the objects. The second
/// column counts objects.
///
/// Follows the project's store: objects that come, go and get other names are rows that do so, among a hundred
/// thousand others too. Where a kind is listed anew, the model is reset; ProjectNode::key() tells rows before and after
/// apart.
///
/// Dragged objects travel as the rows of an item model, see HVProjectItemDrag.h, and as the addresses of their files.
/// Objects dropped on a directory or kind of their own are filed there. Renaming goes by Qt::EditRole.
class HVProjectModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Roles
    {
        KeyRole = hv::g_objectPathRole + 1, ///< QString, see ProjectNode::key()
    };

    explicit HVProjectModel(QObject* parent = nullptr);
    ~HVProjectModel() override;

    /// Which kinds are listed, all at first; before setProject().
    void setKinds(std::set<ObjectKind> kinds) { m_listed = std::move(kinds); }
    void setProject(HVProject* project);
    HVProject* project() const { return m_project; }
    /// Invalid for an object that has no row.
    QModelIndex indexOf(const hv::ObjectKey& object);
    /// Null for an invalid index; gone with the next reset.
    const ProjectNode* node(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QMap<int, QVariant> itemData(const QModelIndex& index) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

private:
    bool isListed(ObjectKind kind) const { return m_listed.empty() || m_listed.count(kind); }
    void list(const std::set<ObjectKind>& kinds);
    void addObject(const hv::ObjectKey& key);
    void removeObject(const hv::ObjectKey& key);
    void renameObject(const hv::ObjectKey& before, const hv::ObjectKey& after);
    ProjectNode* parentOf(const hv::ObjectKey& key);
    QModelIndex indexOf(const ProjectNode* node) const;
    void countObjects(ProjectNode* from, int more);
    QStringList droppedObjects(const QMimeData* data, const QModelIndex& parent) const;

    QPointer<HVProject> m_project;
    std::map<ObjectKind, std::unique_ptr<ProjectNode>> m_kinds;
    std::vector<ProjectNode*> m_rows; // the top level
    std::set<ObjectKind> m_listed;    // empty for all
};
