#include "runtime/HVPythonDocumentation.h"

#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/DefaultBrowser.h"
#include "runtime/PythonPaths.h"
#include "runtime/UserWindows.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <cerrno>

namespace {

QString pagePath(const char* page)
{
    return QStringLiteral("doc/python/") + QLatin1String(page);
}

QString besideProgram(const QString& relativePath)
{
    return QDir::toNativeSeparators(python::utils::applicationDirPath() + QDir::separator() + relativePath);
}

void reportFailure(const QString& reason, const QString& detail)
{
    const QString text = QStringLiteral("Unable to open the Python documentation: %1").arg(reason);
    const IAppWrapper* app = python::applicationInterface();
    python::IUserWindows* windows = python::userWindows();
    if (windows && (!app || !app->isTerminalProgram()))
        windows->warn(QStringLiteral("Python Documentation"), text);
    HVEventBus& bus = HVEventBus::instance();
    bus.sendMessage(MessageLevel::Information, text);
    bus.sendMessage(MessageLevel::Information, detail);
}

} // namespace

void HVPythonDocumentation::open(const QUrl& url)
{
    QUrl target = url;
    if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isRelative())
        target.setPath(besideProgram(url.toLocalFile()));
    errno = 0;
    const bool found = !target.isLocalFile() || QFileInfo::exists(target.toLocalFile());
    if (found && QDesktopServices::openUrl(target))
        return;
    // Qt does not pass on why it failed; a handler that does not exist is the usual reason.
    if (errno == 0)
        errno = ENOENT;
    reportFailure(qt_error_string(errno), QStringLiteral("URL: %1").arg(target.toString()));
}

void HVPythonDocumentation::openIndex()
{
    open(QUrl::fromLocalFile(pagePath("index.html")));
}

void HVPythonDocumentation::openAttribute()
{
    open(QUrl::fromLocalFile(pagePath("strativo_python_attribute.html")));
}

void HVPythonDocumentation::openPackageManager()
{
    open(QUrl::fromLocalFile(pagePath("strativo_python_package_manager.html")));
}

void HVPythonDocumentation::openAndSearchForTargetString(const QString& target)
{
    const QString page = pagePath("search.html");
    if (target.isEmpty()) {
        open(QUrl::fromLocalFile(page));
        return;
    }
    const QString file = besideProgram(page);
    const QString detail = QStringLiteral("File path: %1").arg(file);
    if (!QFileInfo::exists(file)) {
        reportFailure(qt_error_string(ENOENT), detail);
        return;
    }
    // The browser is started directly: desktop services drop the query of a local file's URL.
    QUrl url = QUrl::fromLocalFile(file);
    url.setQuery(QStringLiteral("q=%1").arg(QString::fromLatin1(QUrl::toPercentEncoding(target))));
    QStringList command = python::browserCommand(QString::fromLatin1(url.toEncoded()));
    if (command.isEmpty()) {
        reportFailure(QStringLiteral("There is no web browser."), detail);
        return;
    }
    const QString program = command.takeFirst();
    errno = 0;
    if (!QProcess::startDetached(program, command))
        reportFailure(qt_error_string(errno != 0 ? errno : ENOENT), detail);
}
