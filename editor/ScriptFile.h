#pragma once

#include "editor/FileWatch.h"
#include "editor/RecoveryCopy.h"
#include "editor/ScriptText.h"

#include <QObject>

class QPlainTextEdit;

namespace editor {

class NoticeBar;

/// The file of the script that a text view shows: reading and saving in the file's own form, what other programs do to
/// it, and the copy of unsaved text that outlives a crash. Asks and reports in boxes over the view. GUI thread only.
class ScriptFile : public QObject
{
    Q_OBJECT

public:
    /// `view` and `notice` outlive this.
    ScriptFile(QPlainTextEdit& view, NoticeBar& notice);

    /// Empty while there is no file.
    QString path() const { return m_path; }
    void setPath(const QString& path);
    bool isReadOnly() const { return m_watch.isReadOnly(); }

    /// The text becomes the file's; false and unchanged when it cannot be read.
    bool load(const QString& path);
    /// As load(), but asks before unsaved text is lost, and Undo brings it back.
    bool replaceBy(const QString& path);
    /// The text becomes the file's, as replaceBy() does, and the view's own file stays. Failure is reported.
    bool import(const QString& path);
    /// Asks for a path when there is none. A failure is reported and changes nothing.
    bool save();
    /// Asks what to do with unsaved text, and does it.
    bool mayClose();
    /// `path` is the file of the text, if it ever had one.
    void restoreUnsaved(const QString& path, const QString& text);
    void keepUnsavedNow();

Q_SIGNALS:
    /// The text gives way to that of a file: what belongs to its lines has an end.
    void aboutToReplaceText();
    void aboutToRename();
    void renamed();
    /// The text is again, or no longer, what is in a file.
    void stateChanged();

private:
    bool read(const QString& path, bool undoable);
    void takeText(const ScriptText& script, bool undoable);
    void replaceText(const QString& text);
    hv::Result<void> write(const QString& path) const;
    bool mayOverwrite();
    bool mayReplaceText(const QString& path);
    void readAgain();
    void reportChange();
    void showWhetherReadOnly();
    void keepUnsavedText();

    QPlainTextEdit& m_view;
    NoticeBar& m_notice;
    QString m_path;
    TextForm m_form;
    FileWatch m_watch;
    RecoveryCopy m_recovery;
};

} // namespace editor
