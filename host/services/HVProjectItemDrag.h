#pragma once

#include <QList>
#include <QString>
#include <Qt>

class QMimeData;

/// How items of the project travel in a drag: as the rows of an item model (the MIME type that Qt's views make), each
/// with its kind and its file in the two roles below.
namespace hv {

constexpr int g_objectTypeRole = Qt::UserRole + 1; ///< int, the ObjectKind
constexpr int g_objectPathRole = Qt::UserRole + 2; ///< QString, absolute path of the object's file

struct ProjectItem
{
    int type;
    QString path;
};

/// The project items of a drag, in its order; empty when it carries none. Rows without a type are no project items.
QList<ProjectItem> draggedProjectItems(const QMimeData* data);

} // namespace hv
