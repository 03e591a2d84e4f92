#include "host/objects/FolderWatch.h"

#include <QFile>
#include <QSocketNotifier>

#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

namespace hv {

namespace {

constexpr std::uint32_t g_mask =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE | IN_ONLYDIR | IN_EXCL_UNLINK;
constexpr std::size_t g_buffer = 64 * 1024;

} // namespace

FolderWatch::FolderWatch(QObject* parent) : QObject(parent) {}

FolderWatch::~FolderWatch()
{
    delete m_notifier; // before what it looks at
    if (m_log >= 0)
        close(m_log);
}

int FolderWatch::add(const QString& folder)
{
    if (m_log < 0) {
        m_log = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        if (m_log < 0)
            return -1;
        m_notifier = new QSocketNotifier(m_log, QSocketNotifier::Read);
        connect(m_notifier, &QSocketNotifier::activated, this, &FolderWatch::happened);
    }
    return inotify_add_watch(m_log, QFile::encodeName(folder).constData(), g_mask);
}

void FolderWatch::remove(int watch)
{
    inotify_rm_watch(m_log, watch);
}

FolderWatch::Events FolderWatch::take()
{
    Events taken;
    std::uint32_t movedBy = 0; // what binds the two halves of a renaming, which follow each other
    alignas(inotify_event) char buffer[g_buffer];
    for (ssize_t size = 0; m_log >= 0 && (size = read(m_log, buffer, sizeof buffer)) > 0;)
        for (const char* at = buffer; at < buffer + size;) {
            inotify_event event; // NOLINT: filled by the next line
            std::memcpy(&event, at, sizeof event);
            const char* name = at + sizeof event;
            at += sizeof event + event.len;
            taken.isIncomplete = taken.isIncomplete || (event.mask & IN_Q_OVERFLOW);
            if (event.len == 0)
                continue;
            const QString text = QFile::decodeName(name);
            if ((event.mask & IN_MOVED_TO) && movedBy == event.cookie && !taken.events.empty() &&
                taken.events.back().watch == event.wd) {
                taken.events.back().before = std::exchange(taken.events.back().name, text);
                movedBy = 0;
                continue;
            }
            movedBy = event.mask & IN_MOVED_FROM ? event.cookie : 0;
            taken.events.push_back({event.wd, text});
        }
    return taken;
}

} // namespace hv
