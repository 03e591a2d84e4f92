#pragma once

#include <QString>

class QMimeData;

namespace editor {

/// What is dragged over an editor.
struct DraggedScript
{
    enum Kind
    {
        Nothing,       ///< that an editor takes
        Text,          ///< to be inserted
        File,          ///< whose text the editor takes over; `path` may be no file
        ProjectScript, ///< a script of the project
    };
    Kind kind = Nothing;
    QString path;
};

DraggedScript draggedScript(const QMimeData* data);

} // namespace editor
