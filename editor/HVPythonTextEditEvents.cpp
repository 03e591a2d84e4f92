// The events of the script editor: keys, the context menu, what is dropped.
#include "editor/Completion.h"
#include "editor/DraggedScript.h"
#include "editor/EditingKeys.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/KeyCodes.h"
#include "editor/LineEditing.h"
#include "editor/Marks.h"
#include "editor/ScriptFile.h"
#include "editor/Search.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>

using editor::DraggedScript;

namespace {

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

void HVPythonTextEdit::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    changeFontSize(event->angleDelta().y() > 0 ? +1 : -1);
    event->accept();
}

void HVPythonTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (m_completion->takesKey(*event)) {
        event->ignore();
        return;
    }
    m_completion->beginKey(*event);
    handleKey(event);
    m_completion->endTyping();
}

void HVPythonTextEdit::inputMethodEvent(QInputMethodEvent* event)
{
    m_completion->beginTyping();
    QPlainTextEdit::inputMethodEvent(event);
    m_completion->endTyping();
}

void HVPythonTextEdit::handleKey(QKeyEvent* event)
{
    if (editor::pressEditingKey(*this, *event) || commandKeyPressed(event)) {
        event->accept();
        return;
    }
    const Qt::KeyboardModifiers held = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (held.testFlag(Qt::ControlModifier))
        controlKeyPressed(event);
    else if (held)
        QPlainTextEdit::keyPressEvent(event);
    else
        plainKeyPressed(event);
}

void HVPythonTextEdit::controlKeyPressed(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
        m_completion->ask();
        break;
    case Qt::Key_Plus:
        changeFontSize(+1);
        event->accept();
        return;
    case Qt::Key_Minus:
        changeFontSize(-1);
        event->accept();
        return;
    case Qt::Key_0:
        applyFont(settingsFont());
        event->accept();
        return;
    case Qt::Key_F:
        showSearchBar();
        break;
    default:
        break;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void HVPythonTextEdit::plainKeyPressed(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Escape) {
        m_search->hideBar();
    } else if (isReturn(key)) {
        insertNewLine(event);
        return;
    } else if (key == Qt::Key_F8) {
        execute();
    }
    QPlainTextEdit::keyPressEvent(event);
}

void HVPythonTextEdit::insertNewLine(QKeyEvent* event)
{
    QTextCursor start = textCursor();
    start.setPosition(start.selectionStart());
    const QString indentation = editor::indentationAfter(start);
    QTextCursor step = textCursor();
    step.beginEditBlock();
    QPlainTextEdit::keyPressEvent(event);
    if (!indentation.isEmpty() && !isReadOnly() && textCursor().atBlockStart())
        textCursor().insertText(indentation);
    step.endEditBlock();
}

/// Keys that only look and mark.
bool HVPythonTextEdit::commandKeyPressed(QKeyEvent* event)
{
    switch (event->key() | static_cast<int>(event->modifiers() & ~Qt::KeypadModifier)) {
    case Qt::Key_F3:
        findNext();
        return true;
    case editor::shift(Qt::Key_F3):
        findPrevious();
        return true;
    case editor::control(Qt::Key_H):
    case editor::control(Qt::Key_R):
        showReplaceBar();
        return true;
    case editor::control(Qt::Key_G):
    case editor::control(Qt::Key_L):
        goToLine();
        return true;
    case Qt::Key_F9:
        toggleBreakpoint(textCursor().blockNumber() + 1);
        return true;
    case editor::control(Qt::Key_Equal): // "+" without Shift on many keyboards
        changeFontSize(+1);
        return true;
    default:
        return false;
    }
}

void HVPythonTextEdit::closeEvent(QCloseEvent* event)
{
    event->setAccepted(m_file->mayClose());
}

void HVPythonTextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    QTextCursor under = cursorForPosition(event->pos());
    under.select(QTextCursor::WordUnderCursor);
    const QString word = under.selectedText();
    // A selection that was made to be copied stays.
    const QTextCursor selection = textCursor();
    if (under.position() < selection.selectionStart() || under.anchor() > selection.selectionEnd() ||
        !selection.hasSelection())
        setTextCursor(under);
    m_searchAction->setText(word.isEmpty() ? QStringLiteral("Search...") : QStringLiteral("Search for '%1'").arg(word));
    m_documentationAction->setText(word.isEmpty()
                                       ? QStringLiteral("Search Strativo Python Documentation...")
                                       : QStringLiteral("Search Strativo Python Documentation for '%1'").arg(word));
    m_searchAction->setData(word);
    m_documentationAction->setData(word);

    const QPointer<QMenu> menu = createStandardContextMenu(event->pos());
    QAction* first = menu->actions().value(0);
    menu->insertActions(first, {m_searchAction, m_documentationAction, m_executeAction, m_saveAction});
    menu->insertSeparator(first);
    menu->exec(event->globalPos());
    delete menu; // unless the editor took it along
}

void HVPythonTextEdit::dragEnterEvent(QDragEnterEvent* event)
{
    if (editor::draggedScript(event->mimeData()).kind == DraggedScript::Nothing)
        event->ignore();
    else
        event->acceptProposedAction();
}

void HVPythonTextEdit::dragMoveEvent(QDragMoveEvent* event)
{
    const DraggedScript dragged = editor::draggedScript(event->mimeData());
    if (dragged.kind == DraggedScript::Nothing)
        event->ignore();
    else if (dragged.kind == DraggedScript::Text)
        QPlainTextEdit::dragMoveEvent(event); // shows where dragged text would go
    else
        event->acceptProposedAction();
}

void HVPythonTextEdit::dropEvent(QDropEvent* event)
{
    const DraggedScript dragged = editor::draggedScript(event->mimeData());
    if (dragged.kind == DraggedScript::Text) {
        QPlainTextEdit::dropEvent(event);
        return;
    }
    const bool isTaken = (dragged.kind == DraggedScript::File && m_file->import(dragged.path)) ||
                         (dragged.kind == DraggedScript::ProjectScript && m_file->replaceBy(dragged.path));
    if (!isTaken) {
        event->ignore();
        return;
    }
    // Ends the drop without inserting the file's name.
    QMimeData nothing;
    nothing.setText(QString());
    QDropEvent end(event->posF(), event->possibleActions(), &nothing, event->mouseButtons(),
                   event->keyboardModifiers());
    QPlainTextEdit::dropEvent(&end);
    event->acceptProposedAction();
}

void HVPythonTextEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_search)
        applyColours();
}

void HVPythonTextEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    if (!m_search)
        return; // under construction
    placeBars();
    m_marks->placeLineNumberArea();
}
