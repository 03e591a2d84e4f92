#include "editor/BreakpointLines.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace editor {

BreakpointLines::BreakpointLines(QTextDocument& document, QObject* parent)
    : QObject(parent), m_document(document), m_lineCount(document.blockCount()),
      m_history(document.availableUndoSteps())
{
    connect(&document, &QTextDocument::undoCommandAdded, this, [this] { m_isNewCommand = true; });
    connect(&document, &QTextDocument::contentsChange, this, &BreakpointLines::follow);
}

void BreakpointLines::clear()
{
    m_all.clear();
    m_lost.clear();
}

qint32 BreakpointLines::newLine(qint32 line) const
{
    if (line < m_firstMoved)
        return line;
    return line < m_firstMoved - m_movedBy ? -1 : line + m_movedBy;
}

void BreakpointLines::follow(int position)
{
    m_movedBy = m_document.blockCount() - std::exchange(m_lineCount, m_document.blockCount());
    const int history = std::exchange(m_history, m_document.availableUndoSteps());
    const bool isEdit = std::exchange(m_isNewCommand, false) || m_history == history;
    if (!m_document.isUndoAvailable() && !m_document.isRedoAvailable()) {
        m_lost.clear(); // not an edit: the text was set anew
        return;
    }
    if (isEdit) // what was undone can not be done again
        m_lost.erase(
            std::remove_if(m_lost.begin(), m_lost.end(), [&](const Lost& lost) { return lost.history > history; }),
            m_lost.end());
    if (m_movedBy == 0)
        return;

    const QTextBlock block = m_document.findBlock(position);
    // An edit at a line's start moves that line too: its text is pushed down, or what follows takes its place.
    m_firstMoved = block.blockNumber() + (position == block.position() ? 1 : 2);
    const Map before = std::exchange(m_all, {});
    for (const auto& [line, settings] : before)
        if (const qint32 now = newLine(line); now != -1)
            m_all.emplace(now, settings);
        else
            m_lost.push_back({history, line, settings});
    if (!isEdit)
        bringBack(history, m_history);
    Q_EMIT moved(before);
}

/// Undo or Redo have gone from one place in the history to another: what was lost between stands again.
void BreakpointLines::bringBack(int from, int to)
{
    const auto isBack = [&](const Lost& lost) {
        return lost.history != from && lost.history >= std::min(from, to) && lost.history <= std::max(from, to);
    };
    for (const Lost& lost : m_lost)
        if (isBack(lost) && lost.line <= m_lineCount)
            m_all.emplace(lost.line, lost.settings);
    m_lost.erase(std::remove_if(m_lost.begin(), m_lost.end(), isBack), m_lost.end());
}

} // namespace editor
