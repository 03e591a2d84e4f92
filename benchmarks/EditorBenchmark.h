#pragma once

#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QString>
#include <QStringList>

#include <algorithm>

/// What the programs that measure the script editor share.
namespace benchmark {

constexpr int g_lines = 20'000;

/// The least of some rounds.
template <typename Work>
double milliseconds(int rounds, Work work)
{
    double least = 1e9;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer clock;
        clock.start();
        work();
        least = std::min(least, static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    return least;
}

/// All Python files below `folder`, in the same order on every machine.
inline QStringList pythonFiles(const QString& folder)
{
    QStringList files;
    for (QDirIterator it(folder, {QStringLiteral("*.py")}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
        files << it.next();
    files.sort();
    return files;
}

inline QString pythonText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The first g_lines lines of the files.
inline QString firstLines(const QStringList& files)
{
    QString text;
    for (const QString& path : files)
        if (text.count(QLatin1Char('\n')) < g_lines)
            text += pythonText(path);
    return text.section(QLatin1Char('\n'), 0, g_lines - 1);
}

} // namespace benchmark
