#include "host/widgets/ProjectTree.h"

#include "host/objects/NaturalOrder.h"

#include <QHash>

#include <algorithm>

namespace {

using Type = ProjectNode::Type;

/// Numbers the children and counts the objects below.
void finish(ProjectNode& node)
{
    // Objects were added in their order, after the directories.
    const auto directoriesEnd = std::find_if(node.children.begin(), node.children.end(),
                                             [](const auto& child) { return child->type == Type::Object; });
    std::sort(node.children.begin(), directoriesEnd,
              [](const auto& a, const auto& b) { return hv::naturalLess(a->name, b->name); });
    node.objectCount = 0;
    int row = 0;
    for (const auto& child : node.children) {
        child->row = row++;
        if (child->type == Type::Object)
            ++node.objectCount;
        else
            finish(*child);
        node.objectCount += child->objectCount;
    }
}

ProjectNode* adopt(ProjectNode& parent, std::unique_ptr<ProjectNode> child)
{
    child->parent = &parent;
    parent.children.push_back(std::move(child));
    return parent.children.back().get();
}

} // namespace

QString ProjectNode::key() const
{
    return QStringLiteral("%1/%2/%3").arg(static_cast<int>(kind)).arg(static_cast<int>(type)).arg(name);
}

QString ProjectNode::directory() const
{
    const ProjectNode* node = type == Type::Object ? parent : this;
    return node->type == Type::Directory ? node->name : QString();
}

ProjectNode* ProjectNode::findDirectory(const QString& directory)
{
    for (const auto& child : children) {
        if (child->type == Type::Object)
            break;
        if (child->name == directory)
            return child.get();
        if (ProjectNode* below = child->findDirectory(directory))
            return below;
    }
    return nullptr;
}

int ProjectNode::placeOf(const QString& object) const
{
    const auto at = std::lower_bound(children.begin(), children.end(), object, [](const auto& child, const QString& n) {
        return child->type != Type::Object || hv::naturalLess(child->name, n);
    });
    return static_cast<int>(at - children.begin());
}

bool ProjectNode::objectAt(int childRow, const QString& object) const
{
    const auto at = static_cast<std::size_t>(childRow);
    return at < children.size() && children[at]->type == Type::Object && children[at]->name == object;
}

ProjectNode* ProjectNode::insert(int childRow, std::unique_ptr<ProjectNode> child)
{
    child->parent = this;
    const auto at = children.insert(children.begin() + childRow, std::move(child));
    numberFrom(static_cast<std::size_t>(childRow));
    return at->get();
}

std::unique_ptr<ProjectNode> ProjectNode::take(int childRow)
{
    const auto at = children.begin() + childRow;
    std::unique_ptr<ProjectNode> taken = std::move(*at);
    children.erase(at);
    numberFrom(static_cast<std::size_t>(childRow));
    return taken;
}

void ProjectNode::numberFrom(std::size_t childRow)
{
    for (; childRow < children.size(); ++childRow)
        children[childRow]->row = static_cast<int>(childRow);
}

std::unique_ptr<ProjectNode> buildProjectTree(HVProject& project, ObjectKind kind)
{
    const ObjectKindInfo& info = objectKindInfo(kind);
    HVVirtualDirectories& directories = project.directories(kind);
    const QStringList names = directories.directories();
    const auto& objects = project.store().list(kind);
    if (names.isEmpty() && objects.empty())
        return nullptr;

    auto root = std::make_unique<ProjectNode>(ProjectNode{Type::Kind, kind, QString::fromLatin1(info.plural), {}});
    QHash<QString, ProjectNode*> nodes{{QString(), root.get()}};
    std::vector<std::unique_ptr<ProjectNode>> waiting;
    for (const QString& name : names) {
        waiting.push_back(std::make_unique<ProjectNode>(ProjectNode{Type::Directory, kind, name, {}}));
        nodes.insert(name, waiting.back().get());
    }
    for (auto& directory : waiting) {
        ProjectNode* parent = nodes.value(directories.parentOf(directory->name), root.get());
        adopt(*parent, std::move(directory));
    }
    const QHash<QString, QString>& places = directories.places();
    const QString folder = project.folder(kind) + QLatin1Char('/');
    for (const hv::ObjectFile& object : objects) {
        ProjectNode* parent = nodes.value(places.value(object.name), root.get());
        adopt(*parent,
              std::make_unique<ProjectNode>(ProjectNode{Type::Object, kind, object.name, folder + object.fileName()}));
    }
    finish(*root);
    return root;
}
