#pragma once

#include "host/formats/PartFile.h"

#include <QByteArray>
#include <QDateTime>
#include <QElapsedTimer>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace hv {

/// Writes a file whose content changes often. A change is written at once; changes in quick succession are collected
/// and written a moment later by a thread, so that it happens also while the application's event loop stands still.
///
/// A change that was collected is as good as written: the disk's room for it is taken at once, and where there is none
/// the change is refused. What prevents the later writing all the same (somebody took the folder away) is reported on
/// the event bus, and the writing is tried again until it works or the object goes.
///
/// The owner uses it on one thread, and holds lock() while it changes what `content` reads.
class CollectingWriter
{
public:
    using Lock = std::unique_lock<std::mutex>;

    /// `content` is also called on the writing thread, with the lock held.
    CollectingWriter(QString path, std::function<QByteArray()> content);
    /// Writes what is left.
    ~CollectingWriter();
    CollectingWriter(const CollectingWriter&) = delete;
    CollectingWriter& operator=(const CollectingWriter&) = delete;

    const QString& path() const { return m_path; }
    Lock lock() { return Lock(m_mutex); }

    /// The owner has changed its content, which grew by `growth` bytes at most. Fails when the change cannot be
    /// written; the owner then takes it back before it lets the lock go. `lock` is held.
    Result<void> changed(const Lock& lock, qint64 growth);
    /// Writes what is collected.
    Result<void> flush();

    /// Whether somebody else has changed the file since it was read or written here; never while something is
    /// collected. From then on the file as it is counts as read. `lock` is held.
    bool isForeign(const Lock& lock);

private:
    Result<void> collect(qint64 growth);
    Result<void> takeRoom(qint64 growth);
    Result<void> write();
    Result<void> writeBytes(const QByteArray& bytes);
    Failure failed(const Failure& cause) const;
    void writeLater(const std::stop_token& stop);

    const QString m_path;
    const std::function<QByteArray()> m_content;

    std::mutex m_mutex; // of all that follows
    bool m_isCollected = false;
    bool m_isKnown = false;
    QDateTime m_stamp;
    qint64 m_fileSize = -1;
    QElapsedTimer m_sinceWrite; // invalid when the next change is to be written at once
    qint64 m_needed = 0;        // bytes that the content has at most
    PartFile m_part;            // holds the room for what is collected

    std::condition_variable_any m_stopped;
    bool m_isWaiting = false; // the thread is under way
    std::jthread m_thread;
};

} // namespace hv
