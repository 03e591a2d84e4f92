// Search and replace in the script editor.
#include "editor/EditorColours.h"
#include "editor/HVPythonReplaceWidget.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/HVPythonTextSearchWidget.h"
#include "editor/NoticeBar.h"

#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace {

/// Cursors follow every edit, so each match makes typing slower; this many are still not felt.
constexpr int g_mostMatches = 50'000;

QTextCharFormat background(const QColor& colour)
{
    QTextCharFormat format;
    format.setBackground(colour);
    return format;
}

} // namespace

void HVPythonTextEdit::collectMatches(const QString& text)
{
    m_searchResults.clear();
    m_currentSearchResult = 0;
    if (text.isEmpty())
        return;
    QTextEdit::ExtraSelection match;
    match.format = background(editor::EditorColours::of(QApplication::palette()).match);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text();
        for (int at = line.indexOf(text, 0, Qt::CaseInsensitive); at >= 0 && m_searchResults.size() < g_mostMatches;
             at = line.indexOf(text, at + text.size(), Qt::CaseInsensitive)) {
            match.cursor = QTextCursor(block);
            match.cursor.setPosition(block.position() + at);
            match.cursor.setPosition(block.position() + at + text.size(), QTextCursor::KeepAnchor);
            m_searchResults.append(match);
        }
    }
}

void HVPythonTextEdit::search(const QString& text)
{
    collectMatches(text);
    selectSearchResult(0);
    m_searchBar->showCount(m_currentSearchResult + 1, m_searchResults.size());
    placeBars();
    highlightLines();
    viewport()->update();
}

int HVPythonTextEdit::selectSearchResult(int delta)
{
    const int index = m_currentSearchResult + delta;
    if (index >= 0 && index < m_searchResults.size())
        setCurrentMatch(index);
    return m_currentSearchResult;
}

void HVPythonTextEdit::setCurrentMatch(int index)
{
    const editor::EditorColours colours = editor::EditorColours::of(QApplication::palette());
    m_searchResults[m_currentSearchResult].format = background(colours.match);
    m_currentSearchResult = index;
    m_searchResults[index].format = background(colours.currentMatch);
    setTextCursor(m_searchResults[index].cursor);
    highlightLines();
    m_searchBar->showCount(index + 1, m_searchResults.size());
    placeBars();
}

void HVPythonTextEdit::findNext()
{
    findFromCursor(false);
}

void HVPythonTextEdit::findPrevious()
{
    findFromCursor(true);
}

void HVPythonTextEdit::findFromCursor(bool backward)
{
    if (m_searchBar->text().isEmpty()) {
        showSearchBar();
        return;
    }
    collectMatches(m_searchBar->text()); // the text may have changed since
    if (m_searchResults.isEmpty())
        return;
    const auto from = std::partition_point(m_searchResults.begin(), m_searchResults.end(), [&](const auto& match) {
        return match.cursor.selectionStart() < (backward ? textCursor().selectionStart() : textCursor().selectionEnd());
    });
    const int count = m_searchResults.size();
    const int index = static_cast<int>(from - m_searchResults.begin());
    setCurrentMatch(backward ? (index + count - 1) % count : index % count);
}

void HVPythonTextEdit::replaceCurrent(const QString& replacement)
{
    QTextCursor cursor = textCursor();
    if (!isReadOnly() && !m_searchBar->text().isEmpty() &&
        cursor.selectedText().compare(m_searchBar->text(), Qt::CaseInsensitive) == 0)
        cursor.insertText(replacement);
    findNext();
}

void HVPythonTextEdit::replaceAll(const QString& replacement)
{
    const QString text = m_searchBar->text();
    if (text.isEmpty() || isReadOnly())
        return;
    forgetMatches(); // their cursors would have to follow every replacement
    QTextCursor edit(document());
    edit.beginEditBlock();
    int replaced = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text();
        const int first = line.indexOf(text, 0, Qt::CaseInsensitive);
        if (first < 0)
            continue;
        // A line is changed at once, from its first match to its last.
        const int end = line.lastIndexOf(text, -1, Qt::CaseInsensitive) + text.size();
        QString changed = line.mid(first, end - first);
        replaced += changed.count(text, Qt::CaseInsensitive);
        changed.replace(text, replacement, Qt::CaseInsensitive);
        edit.setPosition(block.position() + first);
        edit.setPosition(block.position() + end, QTextCursor::KeepAnchor);
        edit.insertText(changed);
    }
    edit.endEditBlock();
    m_notice->show(tr("%n place(s) replaced. Undo takes all of them back.", nullptr, replaced));
}

void HVPythonTextEdit::forgetMatches()
{
    m_searchResults.clear();
    m_currentSearchResult = 0;
    highlightLines();
}

void HVPythonTextEdit::showSearchBar()
{
    const QString selected = textCursor().selectedText();
    if (m_searchBar->isHidden()) {
        m_searchBar->show();
        m_searchBar->raise();
    }
    placeBars();
    m_searchBar->activate();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator) && selected != m_searchBar->text())
        m_searchBar->setText(selected);
    m_searchBar->activate();
}

void HVPythonTextEdit::hideSearchBar()
{
    m_searchBar->hide();
    if (m_replaceBar)
        m_replaceBar->hide();
    if (!m_searchResults.isEmpty())
        forgetMatches();
    setFocus();
}

void HVPythonTextEdit::showReplaceBar()
{
    if (!m_replaceBar) {
        m_replaceBar = new HVPythonReplaceWidget(this);
        connect(m_replaceBar, &HVPythonReplaceWidget::replaceRequested, this, &HVPythonTextEdit::replaceCurrent);
        connect(m_replaceBar, &HVPythonReplaceWidget::replaceAllRequested, this, &HVPythonTextEdit::replaceAll);
        connect(m_replaceBar, &HVPythonReplaceWidget::closeRequested, this, &HVPythonTextEdit::hideSearchBar);
    }
    const bool known = !m_searchBar->isHidden() && !m_searchBar->text().isEmpty();
    if (!known)
        showSearchBar();
    m_replaceBar->show();
    m_replaceBar->raise();
    placeBars();
    if (known)
        m_replaceBar->activate();
}

/// The bars stand in the top right corner, left of the scroll bar, the notice at the foot.
void HVPythonTextEdit::placeBars()
{
    if (!m_notice)
        return;
    const QRect contents = contentsRect();
    const int scrollBar = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
    const auto toTheRight = [&](QWidget* bar, int top) {
        bar->adjustSize();
        bar->move(contents.right() + 1 - scrollBar - bar->width(), top);
        return bar->geometry().bottom() + 1;
    };
    const int below = toTheRight(m_searchBar, contents.top());
    if (m_replaceBar)
        toTheRight(m_replaceBar, below);
    const int height = m_notice->sizeHint().height();
    m_notice->setGeometry(viewport()->x(), viewport()->geometry().bottom() + 1 - height, viewport()->width(), height);
}
