#include "app/ProgramSetup.h"

#include "host/services/HVUserData.h"
#include "runtime/PythonPaths.h"

#include <QApplication>
#include <QFileInfo>

#include <clocale>
#include <cstring>

namespace program {

void coerceLocale()
{
    std::setlocale(LC_ALL, "");
    const char* characters = std::setlocale(LC_CTYPE, nullptr);
    if (characters && (std::strcmp(characters, "C") == 0 || std::strcmp(characters, "POSIX") == 0)) {
        // As the interpreter's own coercion does (https://peps.python.org/pep-0538/).
        qunsetenv("LC_ALL");
        qputenv("LC_CTYPE", "C.UTF-8");
    }
    std::setlocale(LC_ALL, "");
    // Decimal points stay points, whatever the user's language.
    std::setlocale(LC_NUMERIC, "C");
}

void choosePlatform()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "wayland;xcb;offscreen");
    else if (qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;offscreen");
    else
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

void setUp()
{
    std::setlocale(LC_NUMERIC, "C");
    QCoreApplication::setApplicationName(QStringLiteral("Strativo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(STRATIVO_VERSION));
    QCoreApplication::setOrganizationName(QStringLiteral("Strativo"));
    hv::keepSettingsInUserData();
    python::utils::setApplicationDirPath(QCoreApplication::applicationDirPath());
}

QString missingPythonTree()
{
    const QString tree = QCoreApplication::applicationDirPath() + QStringLiteral("/python");
    for (const char* part : {"/python36.zip", "/python3", "/site-packages"})
        if (!QFileInfo::exists(tree + QLatin1String(part)))
            return QStringLiteral("the Python tree is incomplete, %1%2 is missing; install Strativo again")
                .arg(tree, QLatin1String(part));
    return {};
}

} // namespace program
