#pragma once

#include "host/core/Result.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <unistd.h>

/// Why something failed; empty when it did not.
template <class T>
QString reason(const hv::Result<T>& result)
{
    return result ? QString() : result.failure().sentence;
}

inline void writeFile(const QString& path, const QByteArray& text = "x")
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(text);
}

inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// A folder that nobody can write into, not even root: a file stands in its place.
inline void blockFolder(const QString& path)
{
    QDir(path).removeRecursively();
    writeFile(path);
}
