#include "runtime/PythonPaths.h"

#include "host/services/HVUserData.h"

#include <QDir>

namespace python::utils {

namespace {

QString g_applicationDirPath; // NOLINT: process-wide by design, set once before the interpreter starts

QString pythonHome()
{
    return g_applicationDirPath + QDir::separator() + QStringLiteral("python");
}

} // namespace

void setApplicationDirPath(const QString& path)
{
    g_applicationDirPath = path;
}

QString applicationDirPath()
{
    return g_applicationDirPath;
}

std::wstring ConstructPythonExecutablePath()
{
#ifdef Q_OS_WIN
    const QString program = QStringLiteral("python.exe");
#else
    const QString program = QStringLiteral("python3");
#endif
    return QDir::toNativeSeparators(pythonHome() + QDir::separator() + program).toStdWString();
}

std::wstring ConstructPythonPath()
{
    const QChar separator = QDir::separator();
    const QChar end = QLatin1Char(';');
    const QString packages = QStringLiteral("site-packages");
    const QString home = pythonHome();
    const QString userPackages = hv::userDataDirectory() + separator + packages;
    QDir().mkpath(userPackages);

    const QString path = home + separator + QStringLiteral("python36.zip") + end + home + separator + end + home +
                         separator + packages + separator + end + userPackages + separator + end;
    return QDir::toNativeSeparators(path).toStdWString();
}

} // namespace python::utils
