#include "editor/EditingKeys.h"

#include "editor/KeyCodes.h"
#include "editor/LineEditing.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace editor {

bool pressEditingKey(QPlainTextEdit& view, const QKeyEvent& event)
{
    if (view.isReadOnly())
        return false;
    const QTextCursor cursor = view.textCursor();
    switch (event.key() | static_cast<int>(event.modifiers() & ~Qt::KeypadModifier)) {
    case Qt::Key_Tab:
        if (selectsSeveralLines(cursor)) {
            indentLines(view);
            return true;
        }
        if (const QString unit = indentationUnit(*view.document()); !unit.isEmpty() && unit.at(0) == ' ') {
            // To the next level where levels are made of spaces.
            const int start = cursor.selectionStart();
            const int column = start - view.document()->findBlock(start).position();
            view.insertPlainText(QString(unit.size() - column % unit.size(), QLatin1Char(' ')));
            return true;
        }
        return false;
    case Qt::Key_Backtab:
    case shift(Qt::Key_Backtab):
    case shift(Qt::Key_Tab):
    case control(Qt::Key_BracketLeft):
        unindentLines(view);
        return true;
    case control(Qt::Key_BracketRight):
        indentLines(view);
        return true;
    case control(Qt::Key_Slash):
    case control(Qt::Key_1):
        toggleComment(view);
        return true;
    case control(Qt::Key_D):
        duplicate(view);
        return true;
    case alt(Qt::Key_Up):
        moveLines(view, -1);
        return true;
    case alt(Qt::Key_Down):
        moveLines(view, +1);
        return true;
    default:
        return false;
    }
}

} // namespace editor
