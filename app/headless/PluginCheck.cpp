#include "app/headless/PluginCheck.h"

#include "app/ProgramSetup.h"
#include "app/headless/StandardStreams.h"
#include "app/headless/TerminalApp.h"
#include "plugins/HVPythonPlugin.h"
#include "plugins/UnloadFailurePrompt.h"
#include "runtime/HVPythonExecutionContext.h"

#include <QDir>

#include <algorithm>
#include <cstdio>

namespace headless {

namespace {

constexpr double g_millisecond = 1e6; // in nanoseconds

const char* const g_usage =
    "usage: strativo plugin check DIR\n"
    "\n"
    "Reads plugin.info of the plug-in in DIR, loads and unloads it, and reports each step. Changes no file.\n"
    "\n"
    "Exit status: 0 all steps went well, 1 one failed, 2 nothing was started.\n";

/// One line of the report; returns `ok`.
bool report(const char* step, bool ok, const QString& detail)
{
    std::printf("%-12s %-7s %s\n", step, ok ? "ok" : "FAILED", detail.toLocal8Bit().constData());
    std::fflush(stdout);
    return ok;
}

QString reasonOf(const HVPythonPlugin& plugin)
{
    return plugin.errorMessage().isEmpty() ? QStringLiteral("see the messages on standard error")
                                           : plugin.errorMessage();
}

/// The report says what there is to say, and the folder is the author's.
class NoConsequences final : public python::IUnloadFailurePrompt
{
public:
    bool hasConsequences() const override { return false; }
    bool askForRestart(const QString& /*title*/, const QString& /*text*/) override { return false; }
    void restart() override {}
};

/// The step "plugin.info".
bool reportMetadata(const HVPythonPlugin& plugin, bool isRead)
{
    const char* step = "plugin.info";
    if (!isRead)
        return report(step, false, reasonOf(plugin));
    if (!plugin.isWhole())
        return report(step, false,
                      QStringLiteral("init: the startup file %1 lies outside the plug-in's folder")
                          .arg(QDir::cleanPath(plugin.initFilename())));
    return report(
        step, true,
        QStringLiteral("%1, version %2, startup file %3").arg(plugin.name(), plugin.version(), plugin.initFilename()));
}

int check(const QString& directory)
{
    NoConsequences noConsequences;
    const python::UnloadFailurePromptGuard guard(noConsequences);
    HVPythonPlugin plugin;
    if (!reportMetadata(plugin, plugin.initialize(directory)))
        return g_statusFailed;
    if (const bool loaded = plugin.load(); !report(
            "load", loaded,
            loaded ? QStringLiteral("register() returned True, %1 ms")
                         .arg(static_cast<double>(plugin.startupCostNanoseconds().count()) / g_millisecond, 0, 'f', 1)
                   : reasonOf(plugin)))
        return g_statusFailed;
    const bool unloaded = plugin.unload();
    report("unload", unloaded, unloaded ? QStringLiteral("unregister() returned True") : reasonOf(plugin));
    if (!unloaded)
        plugin.abandon();
    return unloaded ? g_statusRan : g_statusFailed;
}

} // namespace

int runPluginCommand(int argc, char** argv)
{
    const QByteArray command = argc > 2 ? argv[2] : "";
    const auto asksForHelp = [](const char* word) { return qstrcmp(word, "--help") == 0 || qstrcmp(word, "-h") == 0; };
    if (std::any_of(argv + std::min(argc, 2), argv + argc, asksForHelp)) {
        std::fputs(g_usage, stdout);
        return g_statusRan;
    }
    if (argc != 4 || command != "check") {
        std::fputs(g_usage, stderr);
        return g_statusNotStarted;
    }
    program::coerceLocale();
    program::choosePlatform();
    const QString directory = QString::fromLocal8Bit(argv[3]);
    hideQtWarnings();
    program::setUp();
    if (const QString missing = program::missingPythonTree(); !missing.isEmpty())
        return refuse(missing);

    const StandardStreams streams(false);
    TerminalApp app(argv);
    const HVPythonExecutionContext context(&app);
    return check(directory);
}

} // namespace headless
