#include "host/data/CollectingWriter.h"

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
    if (const auto flushed = flush(); !flushed)
        report(flushed.failure().sentence);
}

Result<void> CollectingWriter::changed(const Lock& /*lock*/, qint64 growth)
{
    const bool isRecent =
        m_sinceWrite.isValid() && !m_sinceWrite.hasExpired(std::chrono::milliseconds(g_quiet).count());
    if (isRecent || m_part.isOpen())
        return collect(growth);
    const bool wasCollected = std::exchange(m_isCollected, true);
    auto written = write();
    if (!written)
        m_isCollected = wasCollected;
    return written;
}

Result<void> CollectingWriter::collect(qint64 growth)
{
    auto prepared = m_part.isOpen() ? Result<void>() : m_part.open(m_path);
    if (prepared)
        prepared = takeRoom(growth);
    if (!prepared) {
        if (!m_isCollected)
            m_part.discard();
        return failed(prepared.failure());
    }
    m_isCollected = true;
    if (!std::exchange(m_isWaiting, true))
        m_thread = std::jthread([this](const std::stop_token& stop) { writeLater(stop); });
    return {};
}

Result<void> CollectingWriter::takeRoom(qint64 growth)
{
    qint64 needed = m_needed + growth;
    if (!m_part.reserve((needed + g_block - 1) / g_block * g_block)) {
        // The last blocks of a disk deserve the trouble of looking what is needed really.
        needed = m_content().size();
        if (auto reserved = m_part.reserve(needed); !reserved)
            return reserved;
    }
    m_needed = needed;
    return {};
}

Result<void> CollectingWriter::flush()
{
    const Lock held = lock();
    return m_isCollected ? write() : Result<void>();
}

Result<void> CollectingWriter::write()
{
    m_sinceWrite.invalidate();
    const QString folder = QFileInfo(m_path).path();
    if (!QDir().mkpath(folder)) {
        m_part.discard();
        return Failure(QStringLiteral("Unable to create the folder '%1'.").arg(QDir::toNativeSeparators(folder)),
                       folder);
    }
    const QByteArray bytes = m_content();
    if (const auto written = writeBytes(bytes); !written)
        return failed(written.failure());
    m_isCollected = false;
    m_needed = bytes.size();
    const QFileInfo written(m_path);
    m_stamp = written.lastModified();
    m_fileSize = written.size();
    m_sinceWrite.start();
    return {};
}

Result<void> CollectingWriter::writeBytes(const QByteArray& bytes)
{
    // The room that is taken already may have gone with the folder that it was in.
    if (m_part.isOpen() && m_part.commit(bytes))
        return {};
    return writeWholeFile(m_path, bytes);
}

Failure CollectingWriter::failed(const Failure& cause) const
{
    return Failure(QStringLiteral("Unable to write '%1': %2.").arg(QDir::toNativeSeparators(m_path), cause.sentence),
                   m_path);
}

void CollectingWriter::writeLater(const std::stop_token& stop)
{
    Lock held = lock();
    QString reported;
    std::chrono::milliseconds pause = g_quiet;
    while (m_isCollected && !stop.stop_requested()) {
        m_stopped.wait_for(held, stop, pause, [] { return false; });
        if (stop.stop_requested() || !m_isCollected)
            break;
        const auto written = write();
        if (written)
            break;
        const QString error = written.failure().sentence;
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
