#pragma once

#include "host/services/HVMessageBatch.h"

#include <QPlainTextEdit>

/// The text of the message window: at most `lineLimit` lines, the level of every stretch visible by its colour. GUI
/// thread only.
///
/// Stream text is shown as it came: "\r\n" ends a line, a lone "\r" starts the current line anew (as progress meters
/// expect), other control characters appear as their Unicode pictures. A line too long to lay out quickly is broken
/// for display only; copies are whole.
class HVMessageView : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit HVMessageView(int lineLimit, QWidget* parent = nullptr);

    /// Adds text at the end. The view stays where it is; see isAtEnd() and goToEnd().
    void append(const HVMessageBatch::Piece& piece);

    bool isAtEnd() const;
    void goToEnd();

    /// The line at the top of the view, as a cursor that stays with it while lines fall off the start.
    QTextCursor topLine() const;
    void setTopLine(const QTextCursor& line);

    /// The selected text, or everything when nothing is selected.
    QString copiedText() const;

    /// Readable on a light or a dark base; an invalid colour means the palette's text colour.
    static QColor levelColour(int level, bool darkBase);

protected:
    QMimeData* createMimeDataFromSelection() const override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void appendText(const QString& text, const QTextCharFormat& format);
    QTextCharFormat formatOf(int level) const;
    void recolour();
    QString textBetween(int start, int end) const;

    int m_lastLevel = 0;
    bool m_returned = false; // a "\r" whose successor has not come yet
};
