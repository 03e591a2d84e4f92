#pragma once

#include <QObject>
#include <QTextEdit>

#include <vector>

class HVPythonReplaceWidget;
class HVPythonTextSearchWidget;
class QPlainTextEdit;
class QTextBlock;

namespace editor {

class NoticeBar;

/// Search and replace in one text view: the bars in its corner, the matches of the last search, and which of them is
/// the current one.
///
/// A match is a number, not a cursor, so that a million of them do not slow typing down. Matches stay with their text;
/// those of the lines that an edit touches are found anew. GUI thread only.
class Search : public QObject
{
    Q_OBJECT

public:
    /// `view` and `notice` outlive this; the bars are children of the view.
    Search(QPlainTextEdit& view, NoticeBar& notice);

    void showBar();
    void showReplaceBar();
    /// The matches stay.
    void hideBar();
    /// In the view's top right corner, left of its scroll bar.
    void placeBars();

    void setTarget(const QString& text);
    /// Next or previous match from the cursor, around the ends of the text.
    void findNext() { findFromCursor(false); }
    void findPrevious() { findFromCursor(true); }

    /// The marks of all matches, or of those on the screen when there are very many: marks slow painting down.
    QList<QTextEdit::ExtraSelection> marks() const;

Q_SIGNALS:
    /// marks() has changed.
    void marksChanged();

private:
    void search(const QString& text);
    int selectSearchResult(int delta);
    void setCurrentMatch(int index);
    void findFromCursor(bool backward);
    void follow(int position, int removed, int added);
    int indexFrom(int position) const;
    void appendMatches(const QTextBlock& block, std::vector<int>& matches) const;
    void appendMarks(int from, int to, QList<QTextEdit::ExtraSelection>& marks) const;
    bool marksDependOnView() const;
    void showCount();
    void replaceCurrent(const QString& replacement);
    void replaceAll(const QString& replacement);

    QPlainTextEdit& m_view;
    NoticeBar& m_notice;
    HVPythonTextSearchWidget* m_bar;
    HVPythonReplaceWidget* m_replaceBar = nullptr; // made when first shown
    QString m_target;
    std::vector<int> m_searchResults; // where matches begin, ascending
    int m_currentSearchResult = 0;
};

} // namespace editor
