#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QTimer>

/// Tells when another program changes, replaces or deletes the file that a window shows. GUI thread only.
///
/// Programs that save by renaming make the file vanish for a moment, and others write it in pieces, so what happened is
/// looked at a moment later.
class HVFileWatch : public QObject
{
    Q_OBJECT

public:
    explicit HVFileWatch(QObject* parent = nullptr);

    const QString& path() const { return m_path; }
    /// Takes the file as it is now as known; an empty path watches nothing.
    void watch(const QString& path);
    /// Whether the file is another one than the known, or gone.
    bool hasChanged() const;

Q_SIGNALS:
    /// The file has been looked at: by watch(), and after something has happened to it or in its folder.
    void looked();
    /// The file is another one than the known, or gone. Comes again until it is known, see watch().
    void changed();

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
    void watchFile();
    void look();

    QString m_path;
    Stamp m_known;
    QFileSystemWatcher m_watcher;
    QTimer m_settled;
};
