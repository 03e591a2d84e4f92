#include "app/headless/Headless.h"

#include "app/ProgramSetup.h"
#include "app/headless/CommandLine.h"
#include "app/headless/StandardStreams.h"
#include "app/headless/TerminalApp.h"
#include "app/headless/TerminalJobs.h"
#include "app/headless/TerminalProgress.h"
#include "host/data/HVProjectService.h"
#include "plugins/HVPythonPluginCollection.h"
#include "runtime/GilLock.h"
#include "runtime/HVPythonExecutionContext.h"
#include "runtime/RunMonitor.h"
#include "runtime/ScriptArguments.h"
#include "runtime/ScriptCoding.h"
#include "runtime/TextSetting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <optional>
#include <unistd.h>

namespace headless {

namespace {

struct Script
{
    QByteArray source;
    /// The name under which it is compiled.
    QString name;
    /// sys.argv[0], the first folder of the search path (null for none), `__file__`.
    QString argument;
    QString directory;
    QString file;
};

/// A sentence when the script cannot be read, else empty.
QString readScript(const CommandLine& line, Script& script)
{
    const QString current = line.currentFolder ? QStringLiteral("") : QString();
    switch (line.source) {
    case CommandLine::Source::Code:
        script = {line.script.toUtf8(), QStringLiteral("<string>"), QStringLiteral("-c"), current, QString()};
        return {};
    case CommandLine::Source::StandardInput: {
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly))
            return QStringLiteral("cannot read standard input: %1").arg(input.errorString());
        script = {input.readAll(), QStringLiteral("<stdin>"), QStringLiteral("-"), current, QString()};
        return {};
    }
    case CommandLine::Source::Module:
        script = {{}, line.script, QStringLiteral("-m"), QDir::currentPath(), QString()};
        return {};
    case CommandLine::Source::File:
        break;
    }
    const QFileInfo info(line.script);
    if (!info.exists())
        return QStringLiteral("no such file: %1").arg(line.script);
    QFile file(line.script);
    if (info.isDir() || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read %1: %2")
            .arg(line.script, info.isDir() ? QStringLiteral("it is a directory") : file.errorString());
    // Whole, so that the script finds itself after a change of the current folder.
    const QString whole = info.absoluteFilePath();
    script = {file.readAll(), whole, line.script, info.absolutePath(), whole};
    return {};
}

/// Loads the plug-ins in their order; a sentence about the first that can not be loaded, else empty.
QString loadPlugins(HVPythonPluginCollection& plugins, const QStringList& folders)
{
    for (const QString& folder : folders) {
        const auto added = plugins.add(folder);
        if (!added)
            return added.failure().sentence;
        if (HVPythonPlugin* plugin = *added; !plugin->load())
            return QStringLiteral("cannot load the plug-in %1: %2")
                .arg(folder, plugin->errorMessage().isEmpty() ? QStringLiteral("see the messages above")
                                                              : plugin->errorMessage());
    }
    return {};
}

/// Opens the project, or makes one where there is nothing yet. A sentence when that fails, else empty.
QString openProject(HVProjectService& projects, const QString& folder)
{
    const bool isNothing = !QFileInfo::exists(folder) || (QFileInfo(folder).isDir() && QDir(folder).isEmpty());
    const auto opened = isNothing ? projects.create(folder, QString()) : projects.open(folder);
    return opened ? QString() : opened.failure().sentence;
}

/// Nothing, after a message, when the bytes are no text.
std::optional<QString> decode(const Script& script)
{
    const auto code = python::decodeScript(script.source);
    if (code)
        return *code;
    std::fprintf(stderr, "strativo: %s is not text: %s; save it as UTF-8 or name its encoding in a coding comment\n",
                 script.name.toLocal8Bit().constData(), code.failure().sentence.toLocal8Bit().constData());
    return std::nullopt;
}

int runScript(const HVPythonExecutionContext& context, const CommandLine& line, const Script& script,
              std::optional<python::ScriptArguments>& presented)
{
    const auto code = decode(script);
    if (!code)
        return g_statusFailed;
    presented.emplace(QStringList(script.argument) + line.arguments, script.directory, script.file);
    if (line.source == CommandLine::Source::Module)
        context.executePythonModule(script.name);
    else // An empty program is a program; to the context no code at all means "nothing to run".
        context.executePythonCode(code->isEmpty() ? QStringLiteral("\n") : *code, nullptr, script.name);
    return context.lastExitStatus();
}

} // namespace

int run(int argc, char** argv)
{
    program::coerceLocale();
    program::choosePlatform();
    QStringList words;
    for (int i = 2; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    const CommandLine line = parseCommandLine(words);
    if (line.help) {
        std::fputs(usage().toLocal8Bit().constData(), stdout);
        return g_statusRan;
    }
    if (!line.error.isEmpty()) {
        std::fputs(usage().toLocal8Bit().constData(), stderr);
        return refuse(line.error);
    }
    Script script;
    if (const QString error = readScript(line, script); !error.isEmpty())
        return refuse(error);

    if (!line.verbose)
        hideQtWarnings();
    program::setUp();
    if (const QString missing = program::missingPythonTree(); !missing.isEmpty())
        return refuse(missing);

    TerminalProgress progress(STDERR_FILENO);
    const StandardStreams streams(line.verbose, &progress);
    TerminalApp app(argv);
    const TerminalJobs jobs(*app.services()->jobs(), progress);
    if (!line.project.isEmpty()) {
        app.provideWindows(); // it watches its files
        if (const QString error = openProject(app.services()->projects(), line.project); !error.isEmpty())
            return refuse(error);
    }
    progress.watch(app.progress());
    // Outlives the interpreter: threads that it waits for import from the script's folder, too.
    std::optional<python::ScriptArguments> presented;
    if (line.unicodeText)
        python::setTextsWholeEverywhere();
    const HVPythonExecutionContext context(&app);
    {
        const python::GilLock lock;
        python::enableKeyboardInterrupt();
    }
    // Unloaded in reverse when it goes, before the interpreter and the window do.
    HVPythonPluginCollection plugins;
    if (const QString error = loadPlugins(plugins, line.plugins); !error.isEmpty())
        return refuse(error);
    // After those that were asked for: of two plug-ins with one name the automatic one steps back.
    if (line.autoLoad)
        plugins.followProjects(app.services()->projects());
    return runScript(context, line, script, presented);
}

} // namespace headless
