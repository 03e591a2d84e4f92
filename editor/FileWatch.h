#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QTimer>

/// Tells when another program changes, replaces or deletes the file that an editor shows, or whether it may be written.
/// GUI thread only.
///
/// Programs that save by renaming make the file vanish for a moment, so what happened is looked at a moment later.
namespace editor {

class FileWatch : public QObject
{
    Q_OBJECT

public:
    FileWatch();

    /// Takes the file as it is now as known; an empty path watches nothing.
    void watch(const QString& path);
    /// Whether the file is another one than the known, or gone.
    bool hasChanged() const;
    /// Whether the file is there and saving it would fail: itself or its folder must not be written.
    bool isReadOnly() const { return m_readOnly; }

Q_SIGNALS:
    void changed();
    void readOnlyChanged(bool readOnly);

private:
    struct Stamp
    {
        bool exists = false;
        qint64 size = -1;
        QDateTime modified;
        bool operator==(const Stamp& other) const
        {
            return exists == other.exists && size == other.size && modified == other.modified;
        }
    };
    Stamp stampNow() const;
    void updateReadOnly();

    QString m_path;
    Stamp m_known;
    bool m_readOnly = false;
    QFileSystemWatcher m_watcher;
    QTimer m_settled;
};

} // namespace editor
