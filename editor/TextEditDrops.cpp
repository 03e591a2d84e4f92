// What is dropped on the script editor: text, files, scripts of the project.
#include "editor/HVPythonTextEdit.h"
#include "host/kinds/ObjectKind.h"
#include "host/services/HVProjectItemDrag.h"

#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>

namespace {

bool isOneScript(const QList<hv::ProjectItem>& items)
{
    return items.size() == 1 && items.first().type == static_cast<int>(ObjectKind::PythonScript);
}

/// Project items: exactly one script, or nothing that this editor takes.
bool isAcceptable(const QMimeData* data)
{
    const QList<hv::ProjectItem> items = hv::draggedProjectItems(data);
    return items.isEmpty() || isOneScript(items);
}

} // namespace

void HVPythonTextEdit::dragEnterEvent(QDragEnterEvent* event)
{
    if (isAcceptable(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void HVPythonTextEdit::dragMoveEvent(QDragMoveEvent* event)
{
    const QMimeData* dragged = event->mimeData();
    if (!isAcceptable(dragged))
        event->ignore();
    else if (dragged->hasUrls() || !hv::draggedProjectItems(dragged).isEmpty())
        event->acceptProposedAction();
    else
        QPlainTextEdit::dragMoveEvent(event); // shows where dragged text would go
}

void HVPythonTextEdit::dropEvent(QDropEvent* event)
{
    const QMimeData* dragged = event->mimeData();
    const QList<hv::ProjectItem> items = hv::draggedProjectItems(dragged);
    // Project items may carry their files' addresses as well.
    if (items.isEmpty() && dragged->hasUrls()) {
        const QString path = dragged->urls().value(0).toLocalFile();
        if (!mayReplaceText(path)) {
            event->ignore();
        } else if (importFile(path)) {
            // Ends the drop without inserting the file's name.
            QMimeData nothing;
            nothing.setText(QString());
            QDropEvent end(event->posF(), event->possibleActions(), &nothing, event->mouseButtons(),
                           event->keyboardModifiers());
            QPlainTextEdit::dropEvent(&end);
            event->acceptProposedAction();
        } else {
            QMessageBox::information(this, windowTitle(), QStringLiteral("Unable to load: %1").arg(path));
        }
        return;
    }
    if (items.isEmpty())
        QPlainTextEdit::dropEvent(event);
    else if (isOneScript(items) && mayReplaceText(items.first().path) && load(items.first().path, true))
        event->acceptProposedAction();
    else
        event->ignore();
}
