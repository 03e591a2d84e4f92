// What the script editor marks: the gutter with its breakpoints, the current, paused and failed line.
#include "editor/Brackets.h"
#include "editor/EditorColours.h"
#include "editor/HVPythonLineNumberArea.h"
#include "editor/HVPythonSyntaxHighlighter.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/Search.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>

using editor::EditorColours;

namespace {

QTextEdit::ExtraSelection wholeLine(QTextCursor cursor, const QColor& background)
{
    QTextEdit::ExtraSelection line;
    line.format.setBackground(background);
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    cursor.clearSelection();
    line.cursor = cursor;
    return line;
}

} // namespace

void HVPythonTextEdit::applyColours()
{
    const EditorColours colours = EditorColours::of(QApplication::palette());
    QPalette own = palette();
    if (own.color(QPalette::Base) != colours.base || own.color(QPalette::Text) != colours.text) {
        own.setColor(QPalette::Base, colours.base);
        own.setColor(QPalette::Text, colours.text);
        setPalette(own);
    }
    QPalette gutter = m_lineNumberArea->palette();
    gutter.setColor(QPalette::WindowText, colours.lineNumber);
    m_lineNumberArea->setPalette(gutter);
    m_highlighter->setDark(colours.dark);
    highlightLines();
}

void HVPythonTextEdit::highlightLines()
{
    const EditorColours colours = EditorColours::of(QApplication::palette());
    QList<QTextEdit::ExtraSelection> marks{wholeLine(textCursor(), colours.currentLine)};
    if (m_breakpointHitLine != -1)
        marks.append(wholeLine(cursorAtLine(m_breakpointHitLine), colours.pausedLine));
    if (m_errorLine != -1)
        marks.append(wholeLine(cursorAtLine(m_errorLine), colours.errorLine));
    marks += m_search->marks();
    if (const auto brackets = editor::bracketsAt(textCursor()))
        for (const int position : {brackets->position, brackets->partner}) {
            if (position < 0)
                continue;
            QTextEdit::ExtraSelection bracket;
            bracket.cursor = QTextCursor(document());
            bracket.cursor.setPosition(position);
            bracket.cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            bracket.format.setBackground(brackets->partner < 0 ? colours.wrongBracket : colours.bracket);
            marks.append(bracket);
        }
    setExtraSelections(marks);
}

QTextCursor HVPythonTextEdit::cursorAtLine(int line) const
{
    return QTextCursor(document()->findBlockByNumber(qBound(1, line, blockCount()) - 1));
}

void HVPythonTextEdit::errorDetected(std::string /*filename*/, std::string /*function*/, long line)
{
    m_errorLine = static_cast<qint32>(line);
    if (m_errorLine != -1) {
        // Below the marked line, so that both are seen.
        setTextCursor(cursorAtLine(m_errorLine + 1));
        ensureCursorVisible();
    }
    highlightLines();
    viewport()->update();
}

void HVPythonTextEdit::clearErrors()
{
    m_errorLine = -1;
    highlightLines();
    viewport()->update();
}

void HVPythonTextEdit::breakpointHit(int line)
{
    m_breakpointHitLine = line;
    if (line != -1) {
        setTextCursor(cursorAtLine(line));
        activateWindow();
        raise();
    }
    highlightLines();
    viewport()->update();
    m_lineNumberArea->update();
}

void HVPythonTextEdit::addBreakpoint(int line)
{
    m_breakpoints.insert(line);
    Q_EMIT breakpointAdded(m_filename, line);
    m_lineNumberArea->update();
}

void HVPythonTextEdit::removeBreakpoint(int line)
{
    m_breakpoints.erase(line);
    Q_EMIT breakpointRemoved(m_filename, line);
    m_lineNumberArea->update();
}

void HVPythonTextEdit::toggleBreakpoint(int line)
{
    if (m_breakpoints.count(line) > 0)
        removeBreakpoint(line);
    else
        addBreakpoint(line);
}

void HVPythonTextEdit::clearBreakpoints()
{
    while (!m_breakpoints.empty())
        removeBreakpoint(*m_breakpoints.begin());
    m_breakpointHitLine = -1;
}

/// Breakpoints stay with their lines: an edit that began at `position` has changed the number of lines.
void HVPythonTextEdit::moveMarks(int position)
{
    const int moved = blockCount() - std::exchange(m_lineCount, blockCount());
    if (moved == 0 || m_replacingText)
        return;
    const QTextBlock block = document()->findBlock(position);
    // An edit at a line's start moves that line too: its text is pushed down, or what follows takes its place.
    const int first = block.blockNumber() + (position == block.position() ? 1 : 2);
    const auto newLine = [&](qint32 line) { return line < first ? line : line < first - moved ? -1 : line + moved; };
    if (m_breakpointHitLine != -1)
        m_breakpointHitLine = newLine(m_breakpointHitLine);
    const std::set<qint32> before = std::exchange(m_breakpoints, {});
    for (const qint32 line : before)
        if (const qint32 now = newLine(line); now != -1)
            m_breakpoints.insert(now);
    for (const qint32 line : before)
        if (m_breakpoints.count(line) == 0)
            Q_EMIT breakpointRemoved(m_filename, line);
    for (const qint32 line : m_breakpoints)
        if (before.count(line) == 0)
            Q_EMIT breakpointAdded(m_filename, line);
}

int HVPythonTextEdit::lineNumberAreaWidth() const
{
    const int digits = QString::number(std::max(1, blockCount())).size();
    return 9 + digits * fontMetrics().horizontalAdvance(QLatin1Char('9'));
}

void HVPythonTextEdit::updateLineNumberAreaWidth(int /*blockCount*/)
{
    setViewportMargins(lineNumberAreaWidth(), 0, 0, 0);
}

void HVPythonTextEdit::updateLineNumberArea(const QRect& rectangle, int dy)
{
    if (dy != 0)
        m_lineNumberArea->scroll(0, dy);
    else
        m_lineNumberArea->update(0, rectangle.y(), m_lineNumberArea->width(), rectangle.height());
    if (rectangle.contains(viewport()->rect()))
        updateLineNumberAreaWidth();
}

void HVPythonTextEdit::lineNumberAreaPaintEvent(QPaintEvent* event)
{
    const EditorColours colours = EditorColours::of(QApplication::palette());
    QPainter painter(m_lineNumberArea);
    painter.fillRect(event->rect(), colours.gutter);
    painter.setFont(font());
    painter.setPen(m_lineNumberArea->palette().color(QPalette::WindowText));
    QTextBlock block = firstVisibleBlock();
    qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
    while (block.isValid() && top <= event->rect().bottom()) {
        const qreal bottom = top + blockBoundingRect(block).height();
        if (block.isVisible() && bottom >= event->rect().top()) {
            const int line = block.blockNumber() + 1;
            const QRect strip(0, static_cast<int>(top), m_lineNumberArea->width() - 1, fontMetrics().height());
            if (line == m_breakpointHitLine)
                painter.fillRect(strip, colours.paused);
            else if (m_breakpoints.count(line) > 0)
                painter.fillRect(strip, colours.breakpoint);
            painter.drawText(strip, Qt::AlignRight, QString::number(line));
        }
        block = block.next();
        top = bottom;
    }
}

void HVPythonTextEdit::lineNumberMousePressEvent(QMouseEvent* event)
{
    toggleBreakpoint(cursorForPosition(QPoint(0, event->pos().y())).blockNumber() + 1);
}
