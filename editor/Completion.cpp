#include "editor/Completion.h"

#include "editor/CodePlace.h"
#include "editor/HVPythonCodeCompleter.h"
#include "editor/ScriptText.h"
#include "editor/WordSeparators.h"
#include "host/services/HVEventBus.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStringListModel>

#include <algorithm>

namespace editor {

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
        return isWordSeparator(c) && (c != QLatin1Char('_') || word.size() == 1);
    });
    noWord = separators || word.startsWith(QLatin1Char('.'));
    return cursor;
}

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

bool isAny(int key, std::initializer_list<Qt::Key> keys)
{
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

bool isModifier(int key)
{
    return isAny(key, {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta});
}

/// Other modifiers than those that are needed to type.
bool isCommand(const QKeyEvent& event)
{
    return event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

} // namespace

Completion::Completion(QPlainTextEdit& view)
    : QObject(&view), m_view(view), m_completer(new HVPythonCodeCompleter(this))
{
    m_completer->setWidget(&view);
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setModel(new QStringListModel(m_completer));
    connect(m_completer, qOverload<const QString&>(&QCompleter::activated), this, &Completion::insertAutoCompletion);
    connect(m_completer, &HVPythonCodeCompleter::modelFillingFinished, this, &Completion::takeAnswer);
    view.installEventFilter(this);
}

bool Completion::takesKey(const QKeyEvent& event) const
{
    return m_completer->popup()->isVisible() &&
           isAny(event.key(), {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter});
}

void Completion::beginKey(const QKeyEvent& event)
{
    const int key = event.key();
    const QString text = isCommand(event) ? QString() : event.text();
    // Backspace shortens what the list is shown for, but opens none.
    m_isTyping =
        (!text.isEmpty() && text.at(0).isPrint()) || (key == Qt::Key_Backspace && m_completer->popup()->isVisible());
    if (!m_isTyping && !isModifier(key))
        m_wantedPlace.clear();
    if (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return;
    const QTextCursor cursor = m_view.textCursor();
    const bool leavesWord =
        isAny(key, {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) ||
        (key == Qt::Key_Delete && !cursor.atStart() &&
         isWordSeparator(m_view.document()->characterAt(cursor.position() - 1))) ||
        (text.size() == 1 && isWordSeparator(text.at(0)));
    if (leavesWord)
        m_completer->setNeedsRefresh();
}

bool Completion::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        m_wantedPlace.clear();
    return QObject::eventFilter(receiver, event);
}

QString Completion::textUnderCursor() const
{
    bool noWord = false;
    const QTextCursor word = wordBefore(m_view.textCursor(), noWord);
    return noWord ? QString() : word.selectedText();
}

QString Completion::textFromStartToCursor() const
{
    return documentText(*m_view.document()).left(m_view.textCursor().position());
}

void Completion::insertAutoCompletion(const QString& text)
{
    bool noWord = false;
    QTextCursor cursor = wordBefore(m_view.textCursor(), noWord);
    if (noWord)
        cursor.setPosition(cursor.position());
    cursor.insertText(text);
    m_view.setTextCursor(cursor);
}

void Completion::selectFirst()
{
    m_completer->popup()->setCurrentIndex(m_completer->completionModel()->index(0, 0));
}

void Completion::updatePrefix(const QString& word)
{
    if (word == m_completer->completionPrefix())
        return;
    m_completer->setCompletionPrefix(word);
    selectFirst();
}

void Completion::showCompletorRect()
{
    const QString word = textUnderCursor();
    updatePrefix(word);
    const QAbstractItemModel* names = m_completer->completionModel();
    if (names->rowCount() == 0 || (names->rowCount() == 1 && names->index(0, 0).data().toString() == word) ||
        !isCode(m_view.textCursor()))
        return;
    const QAbstractItemView* popup = m_completer->popup();
    QRect place = m_view.cursorRect();
    place.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width());
    m_completer->complete(place);
    selectFirst(); // new names have none
}

/// While an earlier request is computed, this one is dropped.
void Completion::request()
{
    if (!m_completer->isAvailable() || m_completer->isComputing())
        return;
    m_computedPlace = textFromStartToCursor();
    m_completer->request(m_computedPlace);
}

void Completion::ask()
{
    if (m_completer->isAvailable()) {
        m_wantedPlace = textFromStartToCursor();
        request();
    } else if (!std::exchange(m_unavailableTold, true)) {
        HVEventBus::instance().sendMessage(MessageLevel::Warning,
                                           tr("Completion is not available: %1").arg(m_completer->error()));
    }
}

/// Names stay right while letters are added to the word that they were computed for.
bool Completion::isStill(const QString& place) const
{
    const QString now = textFromStartToCursor();
    return !place.isNull() && now.startsWith(place) &&
           std::all_of(now.begin() + place.size(), now.end(), isNameCharacter);
}

void Completion::takeAnswer()
{
    const bool isWanted = isStill(std::exchange(m_wantedPlace, QString()));
    if (isStill(std::exchange(m_computedPlace, QString()))) {
        if (isWanted)
            showCompletorRect();
        return;
    }
    m_completer->setNeedsRefresh();
    m_completer->popup()->hide();
    if (isWanted) {
        // Its own request was dropped.
        m_wantedPlace = textFromStartToCursor();
        request();
    }
}

void Completion::drive()
{
    const QString word = textUnderCursor();
    updatePrefix(word);
    if (m_completer->popup()->isVisible())
        m_completer->popup()->hide();
    if (m_view.document()->isEmpty())
        return;
    const bool isShown = m_isTyping && word.size() >= g_shownFrom;
    if (m_completer->needsRefresh()) {
        if (isShown)
            m_wantedPlace = textFromStartToCursor();
        request();
    } else if (isShown) {
        showCompletorRect();
    }
}

void Completion::dismiss()
{
    m_wantedPlace.clear();
    m_completer->popup()->hide();
}

} // namespace editor
