#pragma once

#include <QFile>

#include <sys/stat.h>

namespace hv {

/// What tells one state of a file from another without reading it. Renaming a file keeps it.
struct FileStamp
{
    bool exists = false; ///< as an ordinary file
    qint64 size = 0;
    qint64 modified = 0; ///< nanoseconds
    quint64 inode = 0;

    static FileStamp of(const QString& path)
    {
        struct stat status
        {};
        if (stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
            return {};
        return {true, status.st_size, status.st_mtim.tv_sec * 1000000000LL + status.st_mtim.tv_nsec, status.st_ino};
    }

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

} // namespace hv
