#pragma once

#include <QTextDocument>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

/// Finds text in a plain text view: all matches are marked, the current one is selected, the search goes around the
/// ends. Hidden until open(); Escape hides it.
class HVFindBar : public QWidget
{
    Q_OBJECT

public:
    /// `view` outlives the bar.
    explicit HVFindBar(QPlainTextEdit* view, QWidget* parent = nullptr);

    /// Shows the bar with the view's selection (when it is within one line) as the text to find.
    void open();
    void close();

    void setText(const QString& text);
    void findNext() { find({}); }
    void findPrevious() { find(QTextDocument::FindBackward); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void find(QTextDocument::FindFlags direction);
    void markMatches();

    QPlainTextEdit* m_view;
    QLineEdit* m_text;
    QLabel* m_count;
};
