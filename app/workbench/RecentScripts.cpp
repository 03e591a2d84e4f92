#include "app/workbench/RecentScripts.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace workbench {

namespace {

constexpr int g_most = 10;
const QString g_key = QStringLiteral("workbench/recentScripts");

} // namespace

QStringList recentScripts()
{
    return QSettings().value(g_key).toStringList();
}

void addRecentScript(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList scripts = recentScripts();
    scripts.removeAll(absolute);
    scripts.prepend(absolute);
    QSettings().setValue(g_key, QStringList(scripts.mid(0, g_most)));
}

void removeRecentScript(const QString& path)
{
    QStringList scripts = recentScripts();
    scripts.removeAll(QFileInfo(path).absoluteFilePath());
    QSettings().setValue(g_key, scripts);
}

void clearRecentScripts()
{
    QSettings().remove(g_key);
}

QString scriptFolder()
{
    const QStringList scripts = recentScripts();
    return scripts.isEmpty() ? QDir::homePath() : QFileInfo(scripts.first()).absolutePath();
}

} // namespace workbench
