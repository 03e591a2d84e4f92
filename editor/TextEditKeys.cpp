// Keys, wheel and font of the script editor.
#include "editor/Completion.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/LineEditing.h"
#include "editor/Search.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QSettings>
#include <QTextBlock>

namespace {

constexpr int shift(int key)
{
    return static_cast<int>(Qt::SHIFT) | key;
}

constexpr int control(int key)
{
    return static_cast<int>(Qt::CTRL) | key;
}

constexpr int alt(int key)
{
    return static_cast<int>(Qt::ALT) | key;
}

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

QFont HVPythonTextEdit::settingsFont()
{
    const QFont system = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const int size = system.pointSize() > 0 ? system.pointSize() : QFontInfo(system).pointSize();
    const QSettings settings;
    QFont font(settings.value(QStringLiteral("Python/editor-font"), system.family()).toString());
    font.setPointSize(settings.value(QStringLiteral("Python/editor-font-size"), size).toInt());
    return font;
}

void HVPythonTextEdit::applyFont(const QFont& chosen)
{
    setFont(chosen);
    setTabStopDistance(2 * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    updateLineNumberAreaWidth();
}

void HVPythonTextEdit::changeFontSize(int delta)
{
    QFont changed = font();
    changed.setPointSize(changed.pointSize() + delta);
    applyFont(changed);
}

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
    if (editingKeyPressed(event) || commandKeyPressed(event)) {
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

/// Keys that change lines.
bool HVPythonTextEdit::editingKeyPressed(QKeyEvent* event)
{
    if (isReadOnly())
        return false;
    const bool several = editor::selectsSeveralLines(textCursor());
    switch (event->key() | static_cast<int>(event->modifiers() & ~Qt::KeypadModifier)) {
    case Qt::Key_Tab:
        if (several) {
            editor::indentLines(*this);
            return true;
        }
        if (const QString unit = editor::indentationUnit(*document()); !unit.isEmpty() && unit.at(0) == ' ') {
            // To the next level where levels are made of spaces.
            const int column =
                textCursor().selectionStart() - document()->findBlock(textCursor().selectionStart()).position();
            insertPlainText(QString(unit.size() - column % unit.size(), QLatin1Char(' ')));
            return true;
        }
        return false;
    case Qt::Key_Backtab:
    case shift(Qt::Key_Backtab):
    case shift(Qt::Key_Tab):
    case control(Qt::Key_BracketLeft):
        editor::unindentLines(*this);
        return true;
    case control(Qt::Key_BracketRight):
        editor::indentLines(*this);
        return true;
    case control(Qt::Key_Slash):
    case control(Qt::Key_1):
        toggleComment();
        return true;
    case control(Qt::Key_D):
        editor::duplicate(*this);
        return true;
    case alt(Qt::Key_Up):
        editor::moveLines(*this, -1);
        return true;
    case alt(Qt::Key_Down):
        editor::moveLines(*this, +1);
        return true;
    default:
        return false;
    }
}

/// Keys that only look and mark.
bool HVPythonTextEdit::commandKeyPressed(QKeyEvent* event)
{
    switch (event->key() | static_cast<int>(event->modifiers() & ~Qt::KeypadModifier)) {
    case Qt::Key_F3:
        findNext();
        return true;
    case shift(Qt::Key_F3):
        findPrevious();
        return true;
    case control(Qt::Key_H):
    case control(Qt::Key_R):
        showReplaceBar();
        return true;
    case control(Qt::Key_G):
    case control(Qt::Key_L):
        goToLine();
        return true;
    case Qt::Key_F9:
        toggleBreakpoint(textCursor().blockNumber() + 1);
        return true;
    case control(Qt::Key_Equal): // "+" without Shift on many keyboards
        changeFontSize(+1);
        return true;
    default:
        return false;
    }
}

void HVPythonTextEdit::toggleComment()
{
    if (!isReadOnly())
        editor::toggleComment(*this);
}

void HVPythonTextEdit::goToLine(int line)
{
    if (line < 1) {
        bool ok = false;
        line = QInputDialog::getInt(this, tr("Go to Line"), tr("Line (1 to %1):").arg(blockCount()),
                                    textCursor().blockNumber() + 1, 1, blockCount(), 1, &ok);
        if (!ok)
            return;
    }
    setTextCursor(cursorAtLine(line));
    centerCursor();
    setFocus();
}
