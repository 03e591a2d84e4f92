#include "app/demo/Demo.h"

#include "app/ProgramSetup.h"
#include "host/data/demo/DemoProject.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstring>

namespace demo {

namespace {

constexpr int g_statusMade = 0;
constexpr int g_statusFailed = 1;
constexpr int g_statusUsage = 2;

constexpr const char* g_usage =
    "usage: strativo demo DIR\n"
    "\n"
    "Makes a project with a synthetic survey in the folder DIR, which must be missing or empty.\n"
    "\n"
    "Exit status: 0 the project was made, 1 it could not be made, 2 wrong usage.\n";

} // namespace

int run(int argc, char** argv)
{
    program::coerceLocale();
    const bool asksForHelp = argc == 3 && (std::strcmp(argv[2], "--help") == 0 || std::strcmp(argv[2], "-h") == 0);
    if (argc != 3 || asksForHelp || argv[2][0] == '-' || argv[2][0] == '\0') {
        std::fputs(g_usage, asksForHelp ? stdout : stderr);
        return asksForHelp ? g_statusMade : g_statusUsage;
    }
    const QCoreApplication application(argc, argv);
    const QString folder = QString::fromLocal8Bit(argv[2]);
    const auto tell = [](const QString& what) { std::printf("%s\n", what.toLocal8Bit().constData()); };
    if (const auto made = makeProject(folder, tell); !made) {
        std::fprintf(stderr, "strativo: %s\n", made.failure().sentence.toLocal8Bit().constData());
        return g_statusFailed;
    }
    std::printf("The project is in %s\n", argv[2]);
    return g_statusMade;
}

} // namespace demo
