#include "host/formats/PartFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hv {

namespace {

constexpr int g_mostLinks = 40;
constexpr int g_mostNames = 100;
constexpr mode_t g_newFile = 0666;
constexpr mode_t g_permissions = 07777;

// Hidden, and short whatever the target's name is. The digits are what tells it from a name that somebody gave.
const QByteArray g_prefix = QByteArrayLiteral(".strativo-part-");
constexpr int g_digits = 16;
constexpr int g_hexadecimal = 16;

QByteArray randomName()
{
    return g_prefix +
           QByteArray::number(QRandomGenerator::global()->generate64(), g_hexadecimal).rightJustified(g_digits, '0');
}

bool isPartName(std::string_view name)
{
    const auto prefix = static_cast<std::size_t>(g_prefix.size());
    return name.size() == prefix + g_digits && name.substr(0, prefix) == g_prefix.constData() &&
           name.find_first_not_of("0123456789abcdef", prefix) == std::string_view::npos;
}

Failure systemFailure(int number)
{
    Failure failure(qt_error_string(number));
    failure.systemError = number;
    return failure;
}

/// Where the bytes of a path lie. Not the canonical path: the file need not exist yet.
QFileInfo followLinks(const QString& path)
{
    QFileInfo file(path);
    for (int links = 0; file.isSymLink() && links < g_mostLinks; ++links)
        file.setFile(file.symLinkTarget());
    return file;
}

} // namespace

Result<void> PartFile::open(const QString& path)
{
    discard();
    const QFileInfo target = followLinks(path);
    // A device or a pipe would be replaced by a file.
    if (target.exists() && !target.isFile())
        return Failure(QStringLiteral("it is not an ordinary file"));
    // Where the folder may be written, renaming replaces also what may not.
    if (target.exists() && !target.isWritable())
        return systemFailure(EACCES);
    m_target = QFile::encodeName(target.absoluteFilePath());
    if (auto created = create(); !created)
        return created;
    struct stat old
    {};
    if (stat(m_target.constData(), &old) == 0)
        fchmod(m_descriptor, old.st_mode & g_permissions); // as far as the disk has such a thing
    return {};
}

Result<void> PartFile::create()
{
    const QByteArray folder = m_target.left(m_target.lastIndexOf('/') + 1);
    for (int names = 0; names < g_mostNames; ++names) {
        m_part = folder + randomName();
        m_descriptor = ::open(m_part.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, g_newFile);
        if (m_descriptor < 0 && errno == EEXIST)
            continue;
        if (m_descriptor < 0)
            return systemFailure(errno);
        // Who clears the folder may have come between and taken the part for abandoned.
        struct stat made
        {};
        if (flock(m_descriptor, LOCK_EX) != 0 || fstat(m_descriptor, &made) != 0 || made.st_nlink > 0)
            return {};
        ::close(m_descriptor);
        m_descriptor = -1;
    }
    return systemFailure(EEXIST);
}

Result<void> PartFile::reserve(qint64 size)
{
    if (size <= m_reserved)
        return {};
    if (const int number = posix_fallocate(m_descriptor, m_reserved, size - m_reserved); number != 0)
        return systemFailure(number);
    m_reserved = size;
    return {};
}

Result<void> PartFile::write(const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t written =
            pwrite(m_descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done), done);
        if (written < 0 && errno != EINTR)
            return systemFailure(errno);
        done += std::max<ssize_t>(written, 0);
    }
    if (ftruncate(m_descriptor, bytes.size()) != 0)
        return systemFailure(errno);
    return {};
}

Result<void> PartFile::commit(const QByteArray& bytes)
{
    auto written = write(bytes);
    if (written)
        return putInPlace();
    discard();
    return written;
}

Result<void> PartFile::putInPlace()
{
    const bool isWhole = sync() && std::rename(m_part.constData(), m_target.constData()) == 0;
    const int number = errno;
    if (isWhole)
        m_part.clear();
    discard();
    if (!isWhole)
        return systemFailure(number);
    return {};
}

bool PartFile::sync()
{
    // Some disks tell only here that they have no room. Others know no such request.
    return fsync(m_descriptor) == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
}

void PartFile::discard()
{
    if (m_descriptor < 0)
        return;
    if (!m_part.isEmpty())
        unlink(m_part.constData());
    ::close(m_descriptor);
    m_descriptor = -1;
    m_reserved = 0;
}

void removeAbandonedParts(const QString& folder)
{
    namespace fs = std::filesystem;
    std::error_code error;
    for (fs::directory_iterator it(QFile::encodeName(folder).toStdString(), error), end; !error && it != end;
         it.increment(error)) {
        if (!isPartName(it->path().filename().native()))
            continue;
        const int descriptor = ::open(it->path().c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
        if (descriptor < 0)
            continue;
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            unlink(it->path().c_str());
        ::close(descriptor);
    }
}

} // namespace hv
