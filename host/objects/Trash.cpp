#include "host/objects/Trash.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>

namespace hv {

namespace {

constexpr int g_daysKept = 30;

Failure lastError()
{
    return Failure(QString::fromLocal8Bit(std::strerror(errno)));
}

int renameWith(const QString& from, const QString& to, unsigned flags)
{
    return renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD, QFile::encodeName(to).constData(), flags);
}

/// File systems without the flags of renameat2 say so.
bool isUnsupported()
{
    return errno == EINVAL || errno == ENOSYS;
}

} // namespace

Result<QString> Trash::place(const QString& fileName)
{
    const QString day = m_folder + QLatin1Char('/') + QDate::currentDate().toString(Qt::ISODate);
    if (!QDir().mkpath(day))
        return Failure(
            QObject::tr("There is no trash: unable to create the folder '%1'.").arg(QDir::toNativeSeparators(day)));
    // Names of earlier sessions are passed over by the clock.
    m_last = std::max(m_last + 1, static_cast<quint64>(QDateTime::currentMSecsSinceEpoch()));
    QString path;
    do
        path = day + QLatin1Char('/') + QString::number(m_last, 36) + QLatin1Char('-') + fileName;
    while (QFile::exists(path) && ++m_last);
    return path;
}

void Trash::writeNote(const QString& place, const ObjectKey& key)
{
    // Plainly: ten thousand of these are written in a moment, and nothing depends on one.
    QFile note(place + QStringLiteral(".json"));
    if (note.open(QIODevice::WriteOnly))
        note.write(
            QJsonDocument(QJsonObject{{QStringLiteral("version"), QStringLiteral("1.0")},
                                      {QStringLiteral("kind"), QLatin1String(objectKindInfo(key.kind).folder)},
                                      {QStringLiteral("name"), key.name},
                                      {QStringLiteral("date"), QDateTime::currentDateTime().toString(Qt::ISODate)}})
                .toJson(QJsonDocument::Indented));
}

void Trash::removeNote(const QString& place)
{
    QFile::remove(place + QStringLiteral(".json"));
}

void Trash::tidy() const
{
    const QDir trash(m_folder);
    const QDate first = QDate::currentDate().addDays(-g_daysKept);
    for (const QString& name : trash.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDate day = QDate::fromString(name, Qt::ISODate);
        if (day.isValid() && day < first)
            QDir(trash.filePath(name)).removeRecursively();
    }
}

Result<void> moveFile(const QString& from, const QString& to)
{
    if (renameWith(from, to, RENAME_NOREPLACE) == 0)
        return {};
    if (!isUnsupported())
        return lastError();
    QFile file(from);
    if (file.rename(to))
        return {};
    return Failure(file.errorString());
}

Result<void> exchangeFiles(const QString& a, const QString& b)
{
    if (renameWith(a, b, RENAME_EXCHANGE) == 0)
        return {};
    if (!isUnsupported())
        return lastError();
    const QString aside = b + QStringLiteral(".aside");
    if (renameWith(b, aside, 0) != 0)
        return lastError();
    if (renameWith(a, b, 0) != 0) {
        Failure reason = lastError();
        renameWith(aside, b, 0);
        return reason;
    }
    if (renameWith(aside, a, 0) != 0) {
        Failure reason = lastError();
        renameWith(b, a, 0);
        renameWith(aside, b, 0);
        return reason;
    }
    return {};
}

} // namespace hv
