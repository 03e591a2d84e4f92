// Completion in the script editor.
#include "editor/HVPythonCodeCompleter.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/NoticeBar.h"
#include "editor/WordSeparators.h"

#include <QAbstractItemView>
#include <QScrollBar>

#include <algorithm>

namespace {

/// Shorter words get their names computed, but nothing is shown unasked.
constexpr int g_shownFrom = 3;

/// The word before and around the cursor. What is not one is `noWord`: a lone separator, a run of them such as the end
/// of a call, or what follows a dot. Underscores in a row are the beginning of a name.
QTextCursor wordBefore(QTextCursor cursor, bool& noWord)
{
    cursor.movePosition(QTextCursor::WordLeft);
    cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    const QString word = cursor.selectedText();
    const bool separators = std::all_of(word.begin(), word.end(), [&](QChar c) {
        return editor::isWordSeparator(c) && (c != QLatin1Char('_') || word.size() == 1);
    });
    noWord = separators || word.startsWith(QLatin1Char('.'));
    return cursor;
}

} // namespace

QString HVPythonTextEdit::textUnderCursor() const
{
    bool noWord = false;
    const QTextCursor word = wordBefore(textCursor(), noWord);
    return noWord ? QString() : word.selectedText();
}

QString HVPythonTextEdit::textFromStartToCursor() const
{
    return plainText().left(textCursor().position());
}

void HVPythonTextEdit::insertAutoCompletion(const QString& text)
{
    bool noWord = false;
    QTextCursor cursor = wordBefore(textCursor(), noWord);
    if (noWord)
        cursor.setPosition(cursor.position());
    cursor.insertText(text);
    setTextCursor(cursor);
    m_completer->popup()->hide(); // it would offer longer names, and take the next Return
}

void HVPythonTextEdit::showCompletorRect()
{
    const QString word = textUnderCursor();
    QAbstractItemView* popup = m_completer->popup();
    if (word != m_completer->completionPrefix()) {
        m_completer->setCompletionPrefix(word);
        popup->setCurrentIndex(m_completer->completionModel()->index(0, 0));
    }
    const QAbstractItemModel* names = m_completer->completionModel();
    if (names->rowCount() == 1 && names->index(0, 0).data().toString() == word)
        return;
    QRect place = cursorRect();
    place.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width());
    m_completer->complete(place);
}

void HVPythonTextEdit::requestCompletion(bool showWhenReady, bool explicitly)
{
    if (!m_completer->isAvailable()) {
        // Only who asks is told, and once.
        if (explicitly && !std::exchange(m_unavailableTold, true))
            m_notice->show(tr("Completion is not available: %1").arg(m_completer->error()));
        return;
    }
    if (showWhenReady) {
        disconnect(m_showWhenReady);
        m_showWhenReady = connect(m_completer, &HVPythonCodeCompleter::modelFillingFinished, this, [this] {
            disconnect(m_showWhenReady);
            showCompletorRect();
        });
    }
    m_completer->request(textFromStartToCursor());
}

void HVPythonTextEdit::driveCompletion()
{
    if (!m_completer)
        return; // still under construction
    const QString word = textUnderCursor();
    if (word != m_completer->completionPrefix()) {
        m_completer->setCompletionPrefix(word);
        m_completer->popup()->setCurrentIndex(m_completer->completionModel()->index(0, 0));
    }
    if (m_completer->popup()->isVisible())
        m_completer->popup()->hide();
    if (document()->isEmpty())
        return;
    if (m_completer->needsRefresh())
        requestCompletion(word.size() >= g_shownFrom);
    else if (word.size() >= g_shownFrom)
        showCompletorRect();
}
