#include "editor/RecoveryCopy.h"

#include "host/formats/PartFile.h"
#include "host/formats/WholeFile.h"
#include "host/services/HVEventBus.h"
#include "host/services/HVUserData.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace editor {

namespace {

constexpr int g_pauseMilliseconds = 2000;
constexpr int g_latestMilliseconds = 15000;
const QString g_lockSuffix = QStringLiteral(".lock");

QString folder()
{
    return hv::userDataDirectory() + QStringLiteral("/recovery");
}

bool readCopy(const QString& path, UnsavedText& unsaved)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QJsonObject copy = QJsonDocument::fromJson(file.readAll()).object();
    unsaved = {copy.value(QStringLiteral("path")).toString(), copy.value(QStringLiteral("text")).toString()};
    return copy.contains(QStringLiteral("text"));
}

/// A lock that says whether the application that made the copy still runs, however long it has.
std::unique_ptr<QLockFile> makeLock(const QString& file)
{
    auto lock = std::make_unique<QLockFile>(file + g_lockSuffix);
    lock->setStaleLockTime(0);
    return lock;
}

} // namespace

RecoveryCopy::RecoveryCopy(std::function<UnsavedText()> content) : m_content(std::move(content))
{
    m_pause.setSingleShot(true);
    m_latest.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &RecoveryCopy::writeNow);
    connect(&m_latest, &QTimer::timeout, this, &RecoveryCopy::writeNow);
}

RecoveryCopy::~RecoveryCopy()
{
    discard();
}

void RecoveryCopy::textChanged()
{
    m_pause.start(g_pauseMilliseconds);
    if (!m_latest.isActive())
        m_latest.start(g_latestMilliseconds);
}

void RecoveryCopy::discard()
{
    m_pause.stop();
    m_latest.stop();
    if (m_file.isEmpty())
        return;
    QFile::remove(m_file);
    m_lock.reset();
    m_file.clear();
}

void RecoveryCopy::writeNow()
{
    m_pause.stop();
    m_latest.stop();
    if (m_file.isEmpty()) {
        QDir().mkpath(folder());
        m_file =
            folder() + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".json");
        m_lock = makeLock(m_file);
        m_lock->tryLock(0);
    }
    const UnsavedText unsaved = m_content();
    const QJsonObject copy{{QStringLiteral("path"), unsaved.path}, {QStringLiteral("text"), unsaved.text}};
    static bool told = false;
    const auto written = hv::writeWholeFile(m_file, QJsonDocument(copy).toJson());
    if (!written && !std::exchange(told, true))
        HVEventBus::instance().sendMessage(
            MessageLevel::Warning,
            tr("Unsaved scripts cannot be kept safe: %1: %2").arg(m_file, written.failure().sentence));
}

void RecoveryCopy::restoreLeftBehind(const std::function<void(const UnsavedText&)>& restore)
{
    const QDir dir(folder());
    hv::removeAbandonedParts(dir.path());
    for (const QString& name : dir.entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Time)) {
        const QString path = dir.filePath(name);
        const std::unique_ptr<QLockFile> lock = makeLock(path);
        UnsavedText unsaved;
        if (!lock->tryLock(0) || !readCopy(path, unsaved))
            continue;
        restore(unsaved);
        QFile::remove(path);
    }
}

} // namespace editor
