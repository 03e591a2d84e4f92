#include "module/gui/MimeContent.h"

#include "host/services/HVProjectItemDrag.h"

#include <QMimeData>

namespace python {

MimeContent MimeContent::of(const QMimeData& data)
{
    MimeContent content;
    if (data.hasText())
        content.text = data.text();
    if (data.hasHtml())
        content.html = data.html();
    for (const hv::ProjectItem& item : hv::draggedProjectItems(&data)) {
        const std::optional<ObjectKind> kind = objectKindFromNumber(item.type);
        if (kind && kind != ObjectKind::PythonScript)
            content.objects.push_back({*kind, item.path});
    }
    return content;
}

} // namespace python
