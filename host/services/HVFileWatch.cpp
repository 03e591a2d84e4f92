#include "host/services/HVFileWatch.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

namespace {
constexpr int g_settleMilliseconds = 200;
} // namespace

HVFileWatch::HVFileWatch(QObject* parent) : QObject(parent)
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(g_settleMilliseconds);
    const auto soon = [this] { m_settled.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, soon);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, soon);
    connect(&m_settled, &QTimer::timeout, this, &HVFileWatch::look);
}

void HVFileWatch::watch(const QString& path)
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
    watchFile();
    m_settled.stop();
    m_known = stampNow();
    Q_EMIT looked();
}

/// The watch is on the file, not on its name: one that was replaced is watched anew, also when the old one lives on
/// under another name.
void HVFileWatch::watchFile()
{
    if (m_watcher.files().contains(m_path))
        m_watcher.removePath(m_path);
    if (!m_path.isEmpty() && QFileInfo::exists(m_path))
        m_watcher.addPath(m_path);
}

void HVFileWatch::look()
{
    const bool isOther = hasChanged();
    if (isOther || !m_watcher.files().contains(m_path))
        watchFile();
    const QPointer<HVFileWatch> living(this);
    Q_EMIT looked();
    if (living && isOther)
        Q_EMIT changed();
}

bool HVFileWatch::hasChanged() const
{
    return !m_path.isEmpty() && !(stampNow() == m_known);
}

HVFileWatch::Stamp HVFileWatch::stampNow() const
{
    const QFileInfo info(m_path);
    if (m_path.isEmpty() || !info.exists())
        return {};
    return {true, info.size(), info.lastModified()};
}
