#include "editor/Marks.h"

#include "editor/Brackets.h"
#include "editor/EditorColours.h"

#include <QApplication>
#include <QInputDialog>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace editor {

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

Marks::Marks(QPlainTextEdit& view)
    : QObject(&view), m_view(view), m_lineNumberArea(new HVPythonLineNumberArea(&view, *this)),
      m_breakpoints(*view.document(), nullptr)
{
    connect(&m_breakpoints, &BreakpointLines::moved, this, &Marks::follow);
}

QTextCursor Marks::cursorAtLine(int line) const
{
    return QTextCursor(m_view.document()->findBlockByNumber(qBound(1, line, m_view.blockCount()) - 1));
}

QList<QTextEdit::ExtraSelection> Marks::lineMarks() const
{
    const EditorColours colours = EditorColours::of(QApplication::palette());
    QList<QTextEdit::ExtraSelection> marks{wholeLine(m_view.textCursor(), colours.currentLine)};
    if (m_breakpointHitLine != -1)
        marks.append(wholeLine(cursorAtLine(m_breakpointHitLine), colours.pausedLine));
    if (m_errorLine != -1)
        marks.append(wholeLine(cursorAtLine(m_errorLine), colours.errorLine));
    return marks;
}

QList<QTextEdit::ExtraSelection> Marks::bracketMarks() const
{
    QList<QTextEdit::ExtraSelection> marks;
    const auto brackets = bracketsAt(m_view.textCursor());
    if (!brackets)
        return marks;
    const EditorColours colours = EditorColours::of(QApplication::palette());
    for (const int position : {brackets->position, brackets->partner}) {
        if (position < 0)
            continue;
        QTextEdit::ExtraSelection bracket;
        bracket.cursor = QTextCursor(m_view.document());
        bracket.cursor.setPosition(position);
        bracket.cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        bracket.format.setBackground(brackets->partner < 0 ? colours.wrongBracket : colours.bracket);
        marks.append(bracket);
    }
    return marks;
}

void Marks::setErrorLine(int line)
{
    m_errorLine = line;
    if (line != -1) {
        m_view.setTextCursor(cursorAtLine(line + 1));
        m_view.ensureCursorVisible();
    }
    Q_EMIT lineMarksChanged();
    m_view.viewport()->update();
}

void Marks::setPausedLine(int line)
{
    m_breakpointHitLine = line;
    if (line != -1) {
        m_view.setTextCursor(cursorAtLine(line));
        m_view.activateWindow();
        m_view.raise();
    }
    Q_EMIT lineMarksChanged();
    m_view.viewport()->update();
    m_lineNumberArea->update();
}

std::set<qint32> Marks::breakpoints() const
{
    std::set<qint32> lines;
    for (const auto& [line, settings] : m_breakpoints.all())
        lines.insert(line);
    return lines;
}

BreakpointSettings Marks::breakpointSettings(int line) const
{
    const auto found = m_breakpoints.all().find(line);
    return found == m_breakpoints.all().end() ? BreakpointSettings() : found->second;
}

void Marks::setBreakpointSettings(int line, const BreakpointSettings& settings)
{
    if (!m_breakpoints.contains(line) || breakpointSettings(line) == settings)
        return;
    m_breakpoints.set(line, settings);
    Q_EMIT breakpointChanged(line);
    m_lineNumberArea->update();
}

void Marks::addBreakpoint(int line)
{
    if (!m_breakpoints.contains(line))
        m_breakpoints.set(line, {});
    Q_EMIT breakpointAdded(line);
    Q_EMIT breakpointMade();
    m_lineNumberArea->update();
}

void Marks::removeBreakpoint(int line)
{
    m_breakpoints.erase(line);
    Q_EMIT breakpointRemoved(line);
    m_lineNumberArea->update();
}

void Marks::toggleBreakpoint(int line)
{
    if (m_breakpoints.contains(line))
        removeBreakpoint(line);
    else
        addBreakpoint(line);
}

void Marks::clearBreakpoints()
{
    for (const qint32 line : breakpoints())
        removeBreakpoint(line);
    m_breakpoints.clear();
    m_breakpointHitLine = -1;
}

void Marks::withdrawBreakpoints()
{
    for (const qint32 line : breakpoints())
        Q_EMIT breakpointRemoved(line);
}

void Marks::announceBreakpoints()
{
    for (const qint32 line : breakpoints())
        announceBreakpoint(line);
}

/// To who does not know of it, with its settings.
void Marks::announceBreakpoint(int line)
{
    Q_EMIT breakpointAdded(line);
    if (breakpointSettings(line) != BreakpointSettings())
        Q_EMIT breakpointChanged(line);
}

void Marks::follow(const BreakpointLines::Map& before)
{
    if (m_breakpointHitLine != -1)
        m_breakpointHitLine = m_breakpoints.newLine(m_breakpointHitLine);
    const BreakpointLines::Map now = m_breakpoints.all();
    for (const auto& [line, settings] : before)
        if (now.count(line) == 0)
            Q_EMIT breakpointRemoved(line);
    for (const auto& [line, settings] : now)
        if (const auto old = before.find(line); old == before.end())
            announceBreakpoint(line);
        else if (old->second != settings)
            Q_EMIT breakpointChanged(line);
}

int Marks::lineNumberAreaWidth() const
{
    const int digits = QString::number(std::max(1, m_view.blockCount())).size();
    return 9 + digits * m_view.fontMetrics().horizontalAdvance(QLatin1Char('9'));
}

void Marks::placeLineNumberArea()
{
    const QRect contents = m_view.contentsRect();
    m_lineNumberArea->setGeometry(contents.left(), contents.top(), lineNumberAreaWidth(), contents.height());
}

void Marks::updateLineNumberArea(const QRect& rectangle, int dy)
{
    if (dy != 0)
        m_lineNumberArea->scroll(0, dy);
    else
        m_lineNumberArea->update(0, rectangle.y(), m_lineNumberArea->width(), rectangle.height());
}

void Marks::setLineNumberColour(const QColor& colour)
{
    QPalette palette = m_lineNumberArea->palette();
    palette.setColor(QPalette::WindowText, colour);
    m_lineNumberArea->setPalette(palette);
}

void Marks::lineNumberAreaPaintEvent(QPaintEvent* event)
{
    const EditorColours colours = EditorColours::of(QApplication::palette());
    const int height = m_view.fontMetrics().height();
    QPainter painter(m_lineNumberArea);
    painter.fillRect(event->rect(), colours.gutter);
    painter.setFont(m_view.font());
    painter.setPen(m_lineNumberArea->palette().color(QPalette::WindowText));
    for (QTextBlock block = m_view.cursorForPosition({0, 0}).block(); block.isValid(); block = block.next()) {
        const int top = m_view.cursorRect(QTextCursor(block)).top();
        if (top > event->rect().bottom())
            break;
        const int line = block.blockNumber() + 1;
        const QRect strip(0, top, m_lineNumberArea->width() - 1, height);
        if (line == m_breakpointHitLine)
            painter.fillRect(strip, colours.paused);
        else if (m_breakpoints.contains(line) && breakpointSettings(line).enabled)
            painter.fillRect(strip, colours.breakpoint);
        else if (m_breakpoints.contains(line))
            painter.fillRect(strip, QBrush(colours.breakpoint, Qt::Dense6Pattern));
        painter.drawText(strip, Qt::AlignRight, QString::number(line));
    }
}

void Marks::lineNumberMousePressEvent(QMouseEvent* event)
{
    const int line = m_view.cursorForPosition(QPoint(0, event->pos().y())).blockNumber() + 1;
    if (event->button() == Qt::LeftButton)
        toggleBreakpoint(line);
    else if (event->button() == Qt::RightButton)
        showBreakpointMenu(line, event->globalPos());
}

void Marks::showBreakpointMenu(int line, const QPoint& globalPosition)
{
    const bool isSet = m_breakpoints.contains(line);
    auto* menu = new QMenu(&m_view);
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
void Marks::editCondition(int line)
{
    bool ok = false;
    const QString condition =
        QInputDialog::getText(&m_view, tr("Breakpoint"),
                              tr("Stop at line %1 where this Python expression is true (empty: always):").arg(line),
                              QLineEdit::Normal, breakpointSettings(line).condition, &ok);
    if (!ok)
        return;
    if (!m_breakpoints.contains(line))
        addBreakpoint(line);
    setBreakpointSettings(line, {breakpointSettings(line).enabled, condition.trimmed()});
}

} // namespace editor
