#pragma once

#include <QObject>
#include <QString>

#include <map>
#include <vector>

class QSocketNotifier;

namespace hv {

/// Tells which files come, go and change in some folders, by the system's own log of them (inotify).
///
/// The log is exact and written at once: take() knows of everything that any program, this one too, has done before
/// the call, without an event loop and without reading a folder. A QFileSystemWatcher could say neither what has
/// changed nor when it has been told everything. Folders of another machine tell of this machine's changes only.
class FolderWatch : public QObject
{
    Q_OBJECT

public:
    explicit FolderWatch(QObject* parent = nullptr);
    ~FolderWatch() override;

    /// A number for the folder, the same for each call; -1 when there is no such folder or it cannot be watched.
    int add(const QString& folder);
    void remove(int watch);

    struct Event
    {
        int watch;
        /// A file or folder in the watched one that came, went or was written and closed.
        QString name;
        /// Not empty when it came by being renamed from this one, in the same folder.
        QString before = {};
    };
    struct Events
    {
        std::vector<Event> events;
        /// More has happened than the system could note.
        bool isIncomplete = false;
    };
    /// What has happened since the last call. Never waits; costs next to nothing when nothing has.
    Events take();

Q_SIGNALS:
    /// There is something to take; comes by the event loop.
    void happened();

private:
    int m_log = -1; // opened with the first folder: the system has few
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace hv
