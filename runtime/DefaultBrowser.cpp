#include "runtime/DefaultBrowser.h"

#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

namespace python {

namespace {

/// The program named by a desktop entry's Exec line (https://specifications.freedesktop.org/desktop-entry-spec).
QString programOfDesktopEntry(const QString& entryName)
{
    const QString file = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entryName);
    if (file.isEmpty())
        return {};
    QSettings entry(file, QSettings::IniFormat);
    const QStringList words = QProcess::splitCommand(entry.value(QStringLiteral("Desktop Entry/Exec")).toString());
    return words.isEmpty() ? QString() : QStandardPaths::findExecutable(words.first());
}

QString desktopSetting()
{
    QProcess query;
    query.start(QStringLiteral("xdg-settings"), {QStringLiteral("get"), QStringLiteral("default-web-browser")});
    if (!query.waitForFinished(2000))
        return {};
    const QString entryName = QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed();
    return entryName.isEmpty() ? QString() : programOfDesktopEntry(entryName);
}

QString firstExecutable(const QStringList& names)
{
    for (const QString& name : names) {
        const QString program = name.isEmpty() ? QString() : QStandardPaths::findExecutable(name);
        if (!program.isEmpty())
            return program;
    }
    return {};
}

} // namespace

QString defaultBrowser()
{
    QString program = firstExecutable(qEnvironmentVariable("BROWSER").split(QLatin1Char(':')));
    if (program.isEmpty())
        program = desktopSetting();
    if (program.isEmpty())
        program = firstExecutable({QStringLiteral("x-www-browser"), QStringLiteral("sensible-browser"),
                                   QStringLiteral("firefox"), QStringLiteral("chromium")});
    return program;
}

} // namespace python
