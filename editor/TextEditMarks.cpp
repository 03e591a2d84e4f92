// What the script editor marks: the gutter with its breakpoints, the current, paused and failed line.
#include "editor/Brackets.h"
#include "editor/EditorColours.h"
#include "editor/HVPythonLineNumberArea.h"
#include "editor/HVPythonSyntaxHighlighter.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/Search.h"

#include <QApplication>
#include <QInputDialog>
#include <QMenu>
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

std::set<qint32> HVPythonTextEdit::breakpoints() const
{
    std::set<qint32> lines;
    for (const auto& [line, settings] : m_breakpoints->all())
        lines.insert(line);
    return lines;
}

debugger::BreakpointSettings HVPythonTextEdit::breakpointSettings(int line) const
{
    const auto found = m_breakpoints->all().find(line);
    return found == m_breakpoints->all().end() ? debugger::BreakpointSettings() : found->second;
}

void HVPythonTextEdit::setBreakpointSettings(int line, const debugger::BreakpointSettings& settings)
{
    if (!m_breakpoints->contains(line) || breakpointSettings(line) == settings)
        return;
    m_breakpoints->set(line, settings);
    Q_EMIT breakpointChanged(m_filename, line);
    m_lineNumberArea->update();
}

void HVPythonTextEdit::addBreakpoint(int line)
{
    if (!m_breakpoints->contains(line))
        m_breakpoints->set(line, {});
    Q_EMIT breakpointAdded(m_filename, line);
    m_lineNumberArea->update();
}

void HVPythonTextEdit::removeBreakpoint(int line)
{
    m_breakpoints->erase(line);
    Q_EMIT breakpointRemoved(m_filename, line);
    m_lineNumberArea->update();
}

void HVPythonTextEdit::toggleBreakpoint(int line)
{
    if (m_breakpoints->contains(line))
        removeBreakpoint(line);
    else
        addBreakpoint(line);
}

void HVPythonTextEdit::clearBreakpoints()
{
    for (const qint32 line : breakpoints())
        removeBreakpoint(line);
    m_breakpoints->clear();
    m_breakpointHitLine = -1;
}

/// To who does not know of it, with its settings.
void HVPythonTextEdit::announceBreakpoint(int line)
{
    Q_EMIT breakpointAdded(m_filename, line);
    if (breakpointSettings(line) != debugger::BreakpointSettings())
        Q_EMIT breakpointChanged(m_filename, line);
}

void HVPythonTextEdit::moveMarks(const editor::BreakpointLines::Map& before)
{
    if (m_breakpointHitLine != -1)
        m_breakpointHitLine = m_breakpoints->newLine(m_breakpointHitLine);
    const editor::BreakpointLines::Map now = m_breakpoints->all();
    for (const auto& [line, settings] : before)
        if (now.count(line) == 0)
            Q_EMIT breakpointRemoved(m_filename, line);
    for (const auto& [line, settings] : now)
        if (const auto old = before.find(line); old == before.end())
            announceBreakpoint(line);
        else if (old->second != settings)
            Q_EMIT breakpointChanged(m_filename, line);
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
            else if (m_breakpoints->contains(line) && breakpointSettings(line).enabled)
                painter.fillRect(strip, colours.breakpoint);
            else if (m_breakpoints->contains(line))
                painter.fillRect(strip, QBrush(colours.breakpoint, Qt::Dense6Pattern));
            painter.drawText(strip, Qt::AlignRight, QString::number(line));
        }
        block = block.next();
        top = bottom;
    }
}

void HVPythonTextEdit::lineNumberMousePressEvent(QMouseEvent* event)
{
    const int line = cursorForPosition(QPoint(0, event->pos().y())).blockNumber() + 1;
    if (event->button() == Qt::LeftButton)
        toggleBreakpoint(line);
    else if (event->button() == Qt::RightButton)
        showBreakpointMenu(line, event->globalPos());
}

void HVPythonTextEdit::showBreakpointMenu(int line, const QPoint& globalPosition)
{
    const bool isSet = m_breakpoints->contains(line);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Toggle Breakpoint"), this, [=, this] { toggleBreakpoint(line); })
        ->setShortcut(QStringLiteral("F9"));
    menu->addAction(tr("Condition..."), this, [=, this] { editCondition(line); });
    QAction* enabled = menu->addAction(tr("Enabled"));
    enabled->setCheckable(true);
    enabled->setChecked(isSet && breakpointSettings(line).enabled);
    enabled->setEnabled(isSet);
    connect(enabled, &QAction::triggered, this, [=, this](bool on) {
        setBreakpointSettings(line, {on, breakpointSettings(line).condition});
    });
    menu->addAction(tr("Remove Breakpoint"), this, [=, this] { removeBreakpoint(line); })->setEnabled(isSet);
    menu->popup(globalPosition);
}

/// Sets a breakpoint where there is none yet.
void HVPythonTextEdit::editCondition(int line)
{
    bool ok = false;
    const QString condition = QInputDialog::getText(
        this, tr("Breakpoint"), tr("Stop at line %1 where this Python expression is true (empty: always):").arg(line),
        QLineEdit::Normal, breakpointSettings(line).condition, &ok);
    if (!ok)
        return;
    if (!m_breakpoints->contains(line))
        addBreakpoint(line);
    setBreakpointSettings(line, {breakpointSettings(line).enabled, condition.trimmed()});
}
