#include "app/workbench/Workbench.h"

#include "app/ProgramSetup.h"
#include "app/workbench/AppWrapper.h"
#include "app/workbench/DebuggerDock.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/OpenScripts.h"
#include "app/workbench/PluginMenu.h"
#include "app/workbench/RunProgress.h"
#include "app/workbench/ScriptRunner.h"
#include "app/workbench/Theme.h"
#include "editor/CompletionEngine.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/widgets/HVMessageWindow.h"
#include "plugins/HVPythonPluginCollection.h"
#include "runtime/HVPythonExecutionContext.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>

namespace workbench {

namespace {

constexpr int g_statusLeft = 0;
constexpr int g_statusFailed = 1;
constexpr int g_statusNotStarted = 2;
constexpr int g_warmUpDelay = 500; // milliseconds, once the windows are on the screen

struct Options
{
    QStringList scripts;
    QString project;
    bool execute = false;
    QString screenshot;
    /// One sentence when the command line cannot be understood, else empty.
    QString error;
};

Options parseArguments(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Seismic interpretation with Python scripting.\n\n"
                       "To run a script without the window: strativo run SCRIPT (see strativo run --help)."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("scripts"), QStringLiteral("Python scripts to open."),
                                 QStringLiteral("[scripts...]"));
    const QCommandLineOption execute(QStringLiteral("execute"),
                                     QStringLiteral("Run the first script after opening it."));
    const QCommandLineOption project(QStringLiteral("project"), QStringLiteral("Open the project in this folder."),
                                     QStringLiteral("folder"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Save a picture of the window and leave."),
                                        QStringLiteral("file"));
    parser.addOptions({execute, project, screenshot});
    Options read;
    if (!parser.parse(arguments)) {
        read.error = parser.errorText();
        return read;
    }
    if (parser.isSet(version))
        parser.showVersion();
    if (parser.isSet(help))
        parser.showHelp();
    // A restart after a plug-in's failure hands over all of the arguments, the program's own path among them.
    read.scripts = parser.positionalArguments();
    read.scripts.removeAll(QCoreApplication::applicationFilePath());
    read.project = parser.value(project);
    read.execute = parser.isSet(execute);
    read.screenshot = parser.value(screenshot);
    return read;
}

int refuseToStart(const QString& sentence)
{
    std::fprintf(stderr, "strativo: %s\n", sentence.toLocal8Bit().constData());
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        QMessageBox::critical(nullptr, QStringLiteral("Strativo"), sentence);
    return g_statusNotStarted;
}

int saveScreenshot(MainWindow& window, const QString& path)
{
    window.messageWindow()->flush();
    QCoreApplication::processEvents();
    if (window.grab().save(path))
        return g_statusLeft;
    std::fprintf(stderr, "strativo: cannot write %s\n", path.toLocal8Bit().constData());
    return g_statusFailed;
}

} // namespace

int run(int& argc, char** argv)
{
    program::coerceLocale();
    program::choosePlatform();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    program::setUp();
    const Options options = parseArguments(QCoreApplication::arguments());
    if (!options.error.isEmpty())
        return refuseToStart(options.error);
    // A picture needs none.
    if (!program::hasDisplay() && options.screenshot.isEmpty())
        return refuseToStart(QStringLiteral(
            "there is no display to show the workbench on; strativo run SCRIPT runs a script without it"));
    if (const QString missing = program::missingPythonTree(); !missing.isEmpty())
        return refuseToStart(missing);

    applyTheme(storedTheme());
    MainWindow window;
    AppWrapper app(window);
    const RunProgress progress(window, app.progress());
    int status = g_statusLeft;
    {
        const HVPythonExecutionContext context(&app);
        const ScriptRunner runner(window, context);
        HVPythonPluginCollection plugins;
        PluginMenu pluginMenu(window, plugins);
        const auto debugger = std::make_unique<DebuggerDock>(window);
        plugins.followProjects(*window.projects());
        QObject::connect(&window, &MainWindow::closed, &application, &QCoreApplication::quit);
        window.restoreLayout();
        window.show();
        if (!options.project.isEmpty())
            window.openProject(options.project);
        // A picture shows what the command line asks for, nothing of the user's.
        if (options.screenshot.isEmpty()) {
            restoreOpenScripts(window);
            QTimer::singleShot(g_warmUpDelay, &window, &editor::CompletionEngine::warmUp);
        }
        HVPythonTextEdit* first = nullptr;
        for (const QString& script : options.scripts) {
            HVPythonTextEdit* editor = window.openScript(script);
            first = first ? first : editor;
        }
        // Once the windows are on the screen.
        QTimer::singleShot(0, &window, [&] {
            if (options.execute && first)
                first->execute();
            if (!options.screenshot.isEmpty())
                QCoreApplication::exit(saveScreenshot(window, options.screenshot));
        });
        status = QApplication::exec();

        // Plug-ins say goodbye while the windows are there, and Python objects may hang on documents: both go while
        // there is an interpreter.
        plugins.unloadAll();
        window.hide();
        window.destroyDocuments();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return status;
}

} // namespace workbench
