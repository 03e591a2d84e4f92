#include "editor/FileWatch.h"

#include <QDir>
#include <QFileInfo>

namespace editor {

namespace {
constexpr int g_settleMilliseconds = 200;
} // namespace

FileWatch::FileWatch()
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(g_settleMilliseconds);
    const auto look = [this] { m_settled.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, look);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, look);
    connect(&m_settled, &QTimer::timeout, this, [this] {
        // A replaced file is no longer watched.
        if (QFileInfo::exists(m_path) && !m_watcher.files().contains(m_path))
            m_watcher.addPath(m_path);
        updateReadOnly();
        if (hasChanged())
            Q_EMIT changed();
    });
}

void FileWatch::watch(const QString& path)
{
    if (path != m_path) {
        const QStringList before = m_watcher.files() + m_watcher.directories();
        if (!before.isEmpty())
            m_watcher.removePaths(before);
        m_path = path;
        const QFileInfo info(path);
        // The folder too: it tells when a deleted file comes back.
        if (!path.isEmpty() && info.dir().exists())
            m_watcher.addPath(info.absolutePath());
    }
    if (!path.isEmpty() && QFileInfo::exists(path) && !m_watcher.files().contains(path))
        m_watcher.addPath(path);
    m_settled.stop();
    m_known = stampNow();
    updateReadOnly();
}

void FileWatch::updateReadOnly()
{
    const QFileInfo info(m_path);
    const bool readOnly =
        !m_path.isEmpty() && info.exists() && (!info.isWritable() || !QFileInfo(info.absolutePath()).isWritable());
    if (std::exchange(m_readOnly, readOnly) != readOnly)
        Q_EMIT readOnlyChanged(readOnly);
}

bool FileWatch::hasChanged() const
{
    return !m_path.isEmpty() && !(stampNow() == m_known);
}

FileWatch::Stamp FileWatch::stampNow() const
{
    const QFileInfo info(m_path);
    if (m_path.isEmpty() || !info.exists())
        return {};
    return {true, info.size(), info.lastModified()};
}

} // namespace editor
