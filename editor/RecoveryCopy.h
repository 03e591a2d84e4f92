#pragma once

#include <QLockFile>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

/// Keeps unsaved text safe from a crash: while a text is modified, a copy of it lies in the folder "recovery" of the
/// user's data. It goes when the text is saved or given up. GUI thread only.
namespace editor {

/// What an editor had when its application ended without saving.
struct UnsavedText
{
    QString path; ///< the script's own file, empty when it never had one
    QString text;
};

class RecoveryCopy : public QObject
{
    Q_OBJECT

public:
    /// `content` gives the text to keep; it is called when the copy is written.
    explicit RecoveryCopy(std::function<UnsavedText()> content);
    ~RecoveryCopy() override;

    /// The text has changed: it is copied when typing pauses, at the latest after some seconds.
    void textChanged();
    /// There is nothing unsaved any more.
    void discard();
    void writeNow();

    /// Hands over the copies that applications left which no longer run, newest first. Each is removed after the call,
    /// by when `restore` must have made it safe again.
    static void restoreLeftBehind(const std::function<void(const UnsavedText&)>& restore);

private:
    std::function<UnsavedText()> m_content;
    QString m_file; // empty while there is no copy
    std::unique_ptr<QLockFile> m_lock;
    QTimer m_pause;
    QTimer m_latest;
};

} // namespace editor
