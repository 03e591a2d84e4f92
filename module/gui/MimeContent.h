#pragma once

#include "host/kinds/ObjectKind.h"

#include <QString>

#include <optional>
#include <vector>

class QMimeData;

namespace python {

/// What scripts see of a drag: a copy, which a script may keep when the event and its data are gone. Other formats of
/// the drag are left behind, an image of some hundred megabytes among them.
struct MimeContent
{
    struct Object
    {
        ObjectKind kind;
        QString filename; ///< absolute
    };

    std::optional<QString> text;
    std::optional<QString> html;
    std::vector<Object> objects; ///< of the kinds that scripts know, in the order of the drag

    static MimeContent of(const QMimeData& data);
};

} // namespace python
