#include "runtime/DefaultBrowser.h"

#include "runtime/DesktopEntry.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace python {

namespace {

/// The command with its program as an absolute path; empty when there is no such program.
QStringList located(QStringList command)
{
    if (command.isEmpty())
        return {};
    command.first() = QStandardPaths::findExecutable(command.first());
    return command.first().isEmpty() ? QStringList() : command;
}

QStringList environmentSetting(const QString& url)
{
    for (const QString& entry : qEnvironmentVariable("BROWSER").split(QLatin1Char(':'))) {
        QStringList command = QProcess::splitCommand(entry);
        if (command.filter(QStringLiteral("%s")).isEmpty())
            command << url;
        command.replaceInStrings(QStringLiteral("%s"), url);
        command = entry.isEmpty() ? QStringList() : located(command);
        if (!command.isEmpty())
            return command;
    }
    return {};
}

QStringList desktopSetting(const QString& url)
{
    QProcess query;
    query.start(QStringLiteral("xdg-settings"), {QStringLiteral("get"), QStringLiteral("default-web-browser")});
    if (!query.waitForFinished(2000))
        return {};
    const QString name = QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed();
    QFile entry(name.isEmpty() ? QString() : QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name));
    if (!entry.open(QIODevice::ReadOnly))
        return {};
    return located(commandOfDesktopEntry(entry.readAll(), url));
}

QStringList usualBrowser(const QString& url)
{
    for (const char* name : {"x-www-browser", "sensible-browser", "firefox", "chromium"}) {
        const QStringList command = located({QString::fromLatin1(name), url});
        if (!command.isEmpty())
            return command;
    }
    return {};
}

} // namespace

QStringList browserCommand(const QString& url)
{
    for (const auto find : {environmentSetting, desktopSetting, usualBrowser}) {
        const QStringList command = find(url);
        if (!command.isEmpty())
            return command;
    }
    return {};
}

} // namespace python
