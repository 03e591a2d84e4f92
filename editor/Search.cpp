#include "editor/Search.h"

#include "editor/EditorColours.h"
#include "editor/HVPythonReplaceWidget.h"
#include "editor/HVPythonTextSearchWidget.h"
#include "editor/NoticeBar.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace editor {

namespace {

/// More than these are marked on the screen only.
constexpr std::size_t g_mostMarkedMatches = 2000;
/// Characters; of longer lines only what is on the screen is marked then.
constexpr int g_longLine = 2000;

/// The text as QTextDocument::find() sees it: a no-break space is a blank.
QString searchable(QString text)
{
    return text.replace(QChar::Nbsp, QLatin1Char(' '));
}

std::vector<int> matchesIn(const QString& line, const QString& target)
{
    std::vector<int> columns;
    const QString text = searchable(line);
    for (int at = text.indexOf(target, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(target, at + target.size(), Qt::CaseInsensitive))
        columns.push_back(at);
    return columns;
}

} // namespace

Search::Search(QPlainTextEdit& view, NoticeBar& notice)
    : QObject(&view), m_view(view), m_notice(notice), m_bar(new HVPythonTextSearchWidget(&view))
{
    m_bar->hide();
    connect(m_bar, &HVPythonTextSearchWidget::startSearch, this, &Search::search);
    connect(m_bar, &HVPythonTextSearchWidget::nextRequested, this, [this] { selectSearchResult(+1); });
    connect(m_bar, &HVPythonTextSearchWidget::previousRequested, this, [this] { selectSearchResult(-1); });
    connect(m_bar, &HVPythonTextSearchWidget::replaceRequested, this, &Search::showReplaceBar);
    connect(m_bar, &HVPythonTextSearchWidget::closeRequested, this, &Search::hideBar);

    connect(view.document(), &QTextDocument::contentsChange, this, &Search::follow);
    // Lines are laid out by then.
    connect(&view, &QPlainTextEdit::textChanged, this, [this] {
        if (!m_target.isEmpty())
            Q_EMIT marksChanged();
    });
    const auto scrolled = [this] {
        if (marksDependOnView())
            Q_EMIT marksChanged();
    };
    for (const QScrollBar* bar : {view.verticalScrollBar(), view.horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, scrolled);
        connect(bar, &QScrollBar::rangeChanged, this, scrolled);
    }
}

bool Search::marksDependOnView() const
{
    return m_searchResults.size() > g_mostMarkedMatches;
}

void Search::appendMatches(const QTextBlock& block, std::vector<int>& matches) const
{
    for (const int column : matchesIn(block.text(), m_target))
        matches.push_back(block.position() + column);
}

void Search::search(const QString& text)
{
    m_target = text;
    m_searchResults.clear();
    m_currentSearchResult = 0;
    if (!text.isEmpty())
        for (QTextBlock block = m_view.document()->begin(); block.isValid(); block = block.next())
            appendMatches(block, m_searchResults);
    selectSearchResult(0);
    showCount();
    Q_EMIT marksChanged();
    m_view.viewport()->update();
}

/// The matches follow an edit that replaced `removed` characters at `position` by `added` ones.
void Search::follow(int position, int removed, int added)
{
    if (m_target.isEmpty())
        return;
    const QTextDocument& document = *m_view.document();
    const QTextBlock first = document.findBlock(position);
    const QTextBlock end = document.findBlock(position + added).next();
    const auto begin = std::lower_bound(m_searchResults.begin(), m_searchResults.end(), first.position());
    const auto rest = end.isValid() ? std::lower_bound(begin, m_searchResults.end(), end.position() - added + removed)
                                    : m_searchResults.end();
    const int before = m_searchResults.empty() ? 0 : m_searchResults[std::size_t(m_currentSearchResult)];
    const int current = before < position ? before : before + added - removed;

    std::for_each(rest, m_searchResults.end(), [&](int& match) { match += added - removed; });
    std::vector<int> found;
    for (QTextBlock block = first; block.isValid() && block != end; block = block.next())
        appendMatches(block, found);
    m_searchResults.insert(m_searchResults.erase(begin, rest), found.begin(), found.end());
    m_currentSearchResult = std::min(indexFrom(current), std::max(0, int(m_searchResults.size()) - 1));
    showCount();
}

/// Of the first match that begins at `position` or later.
int Search::indexFrom(int position) const
{
    const auto match = std::lower_bound(m_searchResults.begin(), m_searchResults.end(), position);
    return static_cast<int>(match - m_searchResults.begin());
}

void Search::showCount()
{
    m_bar->showCount(m_currentSearchResult + 1, static_cast<int>(m_searchResults.size()));
    placeBars();
}

int Search::selectSearchResult(int delta)
{
    const int index = m_currentSearchResult + delta;
    if (index >= 0 && index < static_cast<int>(m_searchResults.size()))
        setCurrentMatch(index);
    return m_currentSearchResult;
}

void Search::setCurrentMatch(int index)
{
    m_currentSearchResult = index;
    const int start = m_searchResults[static_cast<std::size_t>(index)];
    QTextCursor cursor(m_view.document());
    cursor.setPosition(start);
    cursor.setPosition(start + m_target.size(), QTextCursor::KeepAnchor);
    m_view.setTextCursor(cursor);
    showCount();
    Q_EMIT marksChanged();
}

void Search::appendMarks(int from, int to, QList<QTextEdit::ExtraSelection>& marks) const
{
    const EditorColours colours = EditorColours::of(QApplication::palette());
    const auto first = std::lower_bound(m_searchResults.begin(), m_searchResults.end(), from);
    for (auto match = first; match != m_searchResults.end() && *match < to; ++match) {
        const bool isCurrent = match - m_searchResults.begin() == m_currentSearchResult;
        QTextEdit::ExtraSelection mark;
        mark.format.setBackground(isCurrent ? colours.currentMatch : colours.match);
        mark.cursor = QTextCursor(m_view.document());
        mark.cursor.setPosition(*match);
        mark.cursor.setPosition(*match + m_target.size(), QTextCursor::KeepAnchor);
        marks.append(mark);
    }
}

QList<QTextEdit::ExtraSelection> Search::marks() const
{
    QList<QTextEdit::ExtraSelection> marks;
    if (!marksDependOnView()) {
        appendMarks(0, m_view.document()->characterCount(), marks);
        return marks;
    }
    const QRect seen = m_view.viewport()->rect();
    const QTextBlock end = m_view.cursorForPosition(seen.bottomLeft()).block().next();
    for (QTextBlock block = m_view.cursorForPosition(seen.topLeft()).block(); block.isValid() && block != end;
         block = block.next()) {
        if (block.length() <= g_longLine) {
            appendMarks(block.position(), block.position() + block.length(), marks);
            continue;
        }
        const int y = m_view.cursorRect(QTextCursor(block)).center().y();
        appendMarks(m_view.cursorForPosition({seen.left(), y}).position() - m_target.size(),
                    m_view.cursorForPosition({seen.right(), y}).position() + 1, marks);
    }
    return marks;
}

void Search::findFromCursor(bool backward)
{
    if (m_target.isEmpty()) {
        showBar();
        return;
    }
    if (m_searchResults.empty())
        return;
    const QTextCursor cursor = m_view.textCursor();
    const int count = static_cast<int>(m_searchResults.size());
    const int index = indexFrom(backward ? cursor.selectionStart() : cursor.selectionEnd());
    setCurrentMatch(backward ? (index + count - 1) % count : index % count);
}

void Search::replaceCurrent(const QString& replacement)
{
    QTextCursor cursor = m_view.textCursor();
    if (!m_view.isReadOnly() && !m_target.isEmpty() &&
        searchable(cursor.selectedText()).compare(m_target, Qt::CaseInsensitive) == 0)
        cursor.insertText(replacement);
    findNext();
}

void Search::replaceAll(const QString& replacement)
{
    if (m_target.isEmpty() || m_view.isReadOnly())
        return;
    QTextCursor edit(m_view.document());
    edit.beginEditBlock();
    int replaced = 0;
    for (QTextBlock block = m_view.document()->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text();
        const std::vector<int> columns = matchesIn(line, m_target);
        if (columns.empty())
            continue;
        replaced += static_cast<int>(columns.size());
        // A line is changed at once, from its first match to its last.
        QString changed = replacement;
        int done = columns.front() + m_target.size();
        edit.setPosition(block.position() + columns.front());
        for (auto column = columns.begin() + 1; column != columns.end(); ++column) {
            changed += line.midRef(done, *column - done) + replacement;
            done = *column + m_target.size();
        }
        edit.setPosition(block.position() + done, QTextCursor::KeepAnchor);
        edit.insertText(changed);
    }
    edit.endEditBlock();
    m_notice.show(tr("%n place(s) replaced. Undo takes all of them back.", nullptr, replaced));
}

void Search::setTarget(const QString& text)
{
    m_bar->setText(text);
}

void Search::showBar()
{
    const QString selected = m_view.textCursor().selectedText();
    if (m_bar->isHidden()) {
        m_bar->show();
        m_bar->raise();
    }
    placeBars();
    m_bar->activate();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator) && selected != m_bar->text())
        m_bar->setText(selected);
    m_bar->activate();
}

void Search::hideBar()
{
    m_bar->hide();
    if (m_replaceBar)
        m_replaceBar->hide();
    m_view.setFocus();
}

void Search::showReplaceBar()
{
    if (!m_replaceBar) {
        m_replaceBar = new HVPythonReplaceWidget(&m_view);
        connect(m_replaceBar, &HVPythonReplaceWidget::replaceRequested, this, &Search::replaceCurrent);
        connect(m_replaceBar, &HVPythonReplaceWidget::replaceAllRequested, this, &Search::replaceAll);
        connect(m_replaceBar, &HVPythonReplaceWidget::closeRequested, this, &Search::hideBar);
    }
    const bool known = !m_bar->isHidden() && !m_bar->text().isEmpty();
    if (!known)
        showBar();
    m_replaceBar->show();
    m_replaceBar->raise();
    placeBars();
    if (known)
        m_replaceBar->activate();
}

void Search::placeBars()
{
    const QRect contents = m_view.contentsRect();
    const QScrollBar* scrollBar = m_view.verticalScrollBar();
    const int right = contents.right() + 1 - (scrollBar->isVisible() ? scrollBar->width() : 0);
    int top = contents.top();
    for (QFrame* bar : {static_cast<QFrame*>(m_bar), static_cast<QFrame*>(m_replaceBar)}) {
        if (!bar)
            continue;
        bar->adjustSize();
        bar->move(right - bar->width(), top);
        top = bar->geometry().bottom() + 1;
    }
}

} // namespace editor
