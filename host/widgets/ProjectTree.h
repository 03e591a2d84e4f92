#pragma once

#include "host/data/HVProject.h"

#include <QString>

#include <memory>
#include <vector>

/// A row of the project browser: a kind of object, a virtual directory or an object. Parents own their children.
struct ProjectNode
{
    enum class Type
    {
        Kind,
        Directory,
        Object,
    };

    Type type;
    ObjectKind kind;
    QString name;
    QString path; ///< of an object: its file
    ProjectNode* parent = nullptr;
    int row = 0;
    int objectCount = 0; ///< in the whole subtree
    std::vector<std::unique_ptr<ProjectNode>> children;

    /// What stands for the same row after the tree was built anew.
    QString key() const;
    /// The directory that holds the row, or that it is; empty outside all directories.
    QString directory() const;

    /// Of directories in the subtree; null for none.
    ProjectNode* findDirectory(const QString& directory);
    /// The row among the children where an object of this name stands or would stand.
    int placeOf(const QString& object) const;
    bool objectAt(int childRow, const QString& object) const;
    ProjectNode* insert(int childRow, std::unique_ptr<ProjectNode> child);
    std::unique_ptr<ProjectNode> take(int childRow);

private:
    void numberFrom(std::size_t childRow);
};

/// The rows of one kind as the project has them now: directories before objects, both in natural order. Null when it
/// has neither objects nor directories.
std::unique_ptr<ProjectNode> buildProjectTree(HVProject& project, ObjectKind kind);
