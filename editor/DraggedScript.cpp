#include "editor/DraggedScript.h"

#include "host/kinds/ObjectKind.h"
#include "host/services/HVProjectItemDrag.h"

#include <QMimeData>
#include <QUrl>

namespace editor {

DraggedScript draggedScript(const QMimeData* data)
{
    // Project items may carry their files' addresses as well.
    const QList<hv::ProjectItem> items = hv::draggedProjectItems(data);
    if (items.isEmpty())
        return data->hasUrls() ? DraggedScript{DraggedScript::File, data->urls().value(0).toLocalFile()}
                               : DraggedScript{DraggedScript::Text, QString()};
    if (items.size() == 1 && items.first().type == static_cast<int>(ObjectKind::PythonScript))
        return {DraggedScript::ProjectScript, items.first().path};
    return {};
}

} // namespace editor
