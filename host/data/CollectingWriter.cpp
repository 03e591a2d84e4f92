#include "host/data/CollectingWriter.h"

#include "host/formats/JsonFile.h"
#include "host/formats/WholeFile.h"
#include "host/services/HVEventBus.h"

#include <QDir>
#include <QFileInfo>

#include <chrono>

namespace hv {

namespace {

using namespace std::chrono_literals;

constexpr auto g_quiet = 300ms;
constexpr auto g_betweenAttempts = 2s;
// The disk gives room by blocks, and asking takes longer than filing an object.
constexpr qint64 g_block = 4096;

void report(const QString& sentence)
{
    HVEventBus::instance().sendMessage(MessageLevel::Error, sentence, true);
}

} // namespace

CollectingWriter::CollectingWriter(QString path, std::function<QByteArray()> content)
    : m_path(std::move(path)), m_content(std::move(content))
{}

CollectingWriter::~CollectingWriter()
{
    if (m_thread.joinable()) {
        m_thread.request_stop();
        m_thread.join();
    }
    QString error;
    if (!flush(&error))
        report(error);
}

bool CollectingWriter::changed(const Lock& /*lock*/, qint64 growth, QString* error)
{
    const bool isRecent =
        m_sinceWrite.isValid() && !m_sinceWrite.hasExpired(std::chrono::milliseconds(g_quiet).count());
    if (isRecent || m_part.isOpen())
        return collect(growth, error);
    const bool wasCollected = std::exchange(m_isCollected, true);
    if (write(error))
        return true;
    m_isCollected = wasCollected;
    return false;
}

bool CollectingWriter::collect(qint64 growth, QString* error)
{
    QString reason;
    if ((!m_part.isOpen() && !m_part.open(m_path, reason)) || !takeRoom(growth, reason)) {
        if (!m_isCollected)
            m_part.discard();
        return failed(error, reason);
    }
    m_isCollected = true;
    if (!std::exchange(m_isWaiting, true))
        m_thread = std::jthread([this](const std::stop_token& stop) { writeLater(stop); });
    return true;
}

bool CollectingWriter::takeRoom(qint64 growth, QString& reason)
{
    qint64 needed = m_needed + growth;
    if (!m_part.reserve((needed + g_block - 1) / g_block * g_block, reason)) {
        // The last blocks of a disk deserve the trouble of looking what is needed really.
        needed = m_content().size();
        if (!m_part.reserve(needed, reason))
            return false;
    }
    m_needed = needed;
    return true;
}

bool CollectingWriter::flush(QString* error)
{
    const Lock held = lock();
    return !m_isCollected || write(error);
}

bool CollectingWriter::write(QString* error)
{
    m_sinceWrite.invalidate();
    const QString folder = QFileInfo(m_path).path();
    if (!QDir().mkpath(folder)) {
        m_part.discard();
        return fail(error, QStringLiteral("Unable to create the folder '%1'.").arg(QDir::toNativeSeparators(folder)));
    }
    const QByteArray bytes = m_content();
    QString reason;
    if (!writeBytes(bytes, reason))
        return failed(error, reason);
    m_isCollected = false;
    m_needed = bytes.size();
    const QFileInfo written(m_path);
    m_stamp = written.lastModified();
    m_fileSize = written.size();
    m_sinceWrite.start();
    return true;
}

bool CollectingWriter::writeBytes(const QByteArray& bytes, QString& reason)
{
    // The room that is taken already may have gone with the folder that it was in.
    return (m_part.isOpen() && m_part.commit(bytes, reason)) || writeWholeFile(m_path, bytes, reason);
}

bool CollectingWriter::failed(QString* error, const QString& reason) const
{
    return fail(error, QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(m_path), reason));
}

void CollectingWriter::writeLater(const std::stop_token& stop)
{
    Lock held = lock();
    QString reported;
    std::chrono::milliseconds pause = g_quiet;
    while (m_isCollected && !stop.stop_requested()) {
        m_stopped.wait_for(held, stop, pause, [] { return false; });
        QString error;
        if (stop.stop_requested() || !m_isCollected || write(&error))
            break;
        if (std::exchange(reported, error) != error) {
            held.unlock();
            report(error);
            held.lock();
        }
        pause = g_betweenAttempts;
    }
    m_isWaiting = false;
}

bool CollectingWriter::isForeign(const Lock& /*lock*/)
{
    if (m_isCollected)
        return false;
    const QFileInfo file(m_path);
    const bool exists = file.exists();
    const QDateTime stamp = exists ? file.lastModified() : QDateTime();
    const qint64 size = exists ? file.size() : -1;
    if (std::exchange(m_isKnown, true) && stamp == m_stamp && size == m_fileSize)
        return false;
    m_stamp = stamp;
    m_fileSize = size;
    m_sinceWrite.invalidate();
    return true;
}

} // namespace hv
