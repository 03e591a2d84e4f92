#pragma once

#include <QObject>
#include <QString>

class HVPythonCodeCompleter;
class QKeyEvent;
class QPlainTextEdit;

namespace editor {

/// Completion in one text view: asks for the names that may follow at the cursor and shows them.
///
/// Every change of the text drives the model. The list takes Return and Tab, so it is shown only where these would
/// otherwise surprise nobody: for what was just typed or asked for, in code, at the place that the names belong to.
/// GUI thread only.
class Completion : public QObject
{
    Q_OBJECT

public:
    /// `view` outlives this.
    explicit Completion(QPlainTextEdit& view);

    /// Whether the list is open and this key is the list's.
    bool takesKey(const QKeyEvent& event) const;
    /// Around the view's own handling of a key or of an input method's text.
    void beginKey(const QKeyEvent& event);
    void beginTyping() { m_isTyping = true; }
    void endTyping() { m_isTyping = false; }

    /// The user wants to see the names for the cursor's place, however short the word.
    void ask();
    /// The text has changed.
    void drive();
    /// The user has turned to something else: nothing is shown until more is typed.
    void dismiss();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QString textUnderCursor() const;
    QString textFromStartToCursor() const;
    void insertAutoCompletion(const QString& text);
    void showCompletorRect();
    void request();
    void takeAnswer();
    bool isStill(const QString& place) const;
    void updatePrefix(const QString& word);
    void selectFirst();

    QPlainTextEdit& m_view;
    HVPythonCodeCompleter* m_completer;
    // Places are the text up to them; null is none.
    QString m_computedPlace; ///< which the last request was for
    QString m_wantedPlace;   ///< at which the list is to be shown when its names come
    bool m_isTyping = false;
    bool m_unavailableTold = false;
};

} // namespace editor
