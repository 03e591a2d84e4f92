#include "host/services/HVProjectItemDrag.h"

#include <QDataStream>
#include <QMap>
#include <QMimeData>
#include <QVariant>

namespace hv {

QList<ProjectItem> draggedProjectItems(const QMimeData* data)
{
    QList<ProjectItem> items;
    QByteArray encoded = data->data(QStringLiteral("application/x-qabstractitemmodeldatalist"));
    QDataStream stream(&encoded, QIODevice::ReadOnly);
    while (!stream.atEnd()) {
        int row = 0;
        int column = 0;
        QMap<int, QVariant> roles;
        stream >> row >> column >> roles;
        if (stream.status() != QDataStream::Ok)
            break;
        if (roles.contains(g_objectTypeRole))
            items.append({roles.value(g_objectTypeRole).toInt(), roles.value(g_objectPathRole).toString()});
    }
    return items;
}

} // namespace hv
