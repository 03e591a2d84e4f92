#include "app/ProgramSetup.h"

#include "host/services/HVUserData.h"
#include "module/ModuleFrame.h"
#include "runtime/PythonPaths.h"

#include <QApplication>
#include <QFileInfo>

#include <cerrno>
#include <clocale>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace program {

namespace {
constexpr char g_invisible[] = "offscreen";
bool g_isInvisibleWanted = false; // NOLINT: known before there is an application object

/// Where the program lies; Qt knows only once there is an application object.
QString programFolder()
{
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
}

} // namespace

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

void openStandardStreams()
{
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number)
        if (::fcntl(number, F_GETFD) == -1 && errno == EBADF)
            ::open("/dev/null", O_RDWR); // takes the lowest free number, which is this one
}

void choosePlatform()
{
    const QByteArray asked = qgetenv("QT_QPA_PLATFORM");
    if (!asked.isEmpty()) {
        g_isInvisibleWanted = asked.startsWith(g_invisible);
        // Qt ends a process whose platforms all fail.
        if (!asked.contains(g_invisible))
            qputenv("QT_QPA_PLATFORM", asked + ';' + g_invisible);
    } else if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "wayland;xcb;offscreen");
    else if (qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;offscreen");
    else
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

bool hasDisplay()
{
    return g_isInvisibleWanted || QGuiApplication::platformName() != QLatin1String(g_invisible);
}

void setUp()
{
    std::setlocale(LC_NUMERIC, "C");
    hv::nameApplication();
    QCoreApplication::setApplicationVersion(QStringLiteral(STRATIVO_VERSION));
    hv::keepSettingsInUserData();
    python::utils::setApplicationDirPath(programFolder());
    python::installScripting();
}

QString missingPythonTree()
{
    const QString tree = python::utils::applicationDirPath() + QStringLiteral("/python");
    for (const char* part : {"/python36.zip", "/python3", "/site-packages"})
        if (!QFileInfo::exists(tree + QLatin1String(part)))
            return QStringLiteral("the Python tree is incomplete, %1%2 is missing; install Strativo again")
                .arg(tree, QLatin1String(part));
    return {};
}

} // namespace program
