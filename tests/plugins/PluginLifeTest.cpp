// The life of one plug-in: metadata, load, unload, refusal, hostile startup files.
#include "runtime/GilLock.h"
#include "tests/plugins/PluginFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace fixture;
using PluginLife = PluginTest;

TEST_F(PluginLife, metadata)
{
    HVPythonPlugin plugin;
    EXPECT_FALSE(plugin.initialize(folder.filePath("absent")));
    EXPECT_EQ(plugin.errorMessage(), "Unable to find plugin metadata file: " + folder.filePath("absent/plugin.info"));

    ASSERT_TRUE(plugin.initialize(makePlugin("", ".a \"b\" \u00e4", "[PluginInfo]\n")));
    EXPECT_EQ(plugin.name(), QString(".a \"b\" \u00e4"));
    for (const QString& text : {plugin.version(), plugin.license(), plugin.copyright(), plugin.contactAddress()})
        EXPECT_EQ(text, "Unknown");
    EXPECT_FALSE(plugin.isAutoLoad());
    EXPECT_FALSE(plugin.load());
    EXPECT_EQ(plugin.errorMessage(), "Designated startup file(" + plugin.directory() + "/Unknown) does not exist");

    ASSERT_TRUE(plugin.initialize(makePlugin(
        "", "bom", "\xef\xbb\xbf[plugininfo]\r\nInit = main.py\r\nCOPYRIGHT=\xc2\xa9 2024 A, B,C\r\nautoload=1\r\n")));
    EXPECT_EQ(plugin.initFilename(), folder.filePath("bom/main.py"));
    EXPECT_EQ(plugin.copyright(), QString("\u00a9 2024 A, B, C"));
    EXPECT_TRUE(plugin.isAutoLoad());
    ASSERT_TRUE(plugin.initialize(
        makePlugin("", "latin", "[PluginInfo]\ncopyright=\xa9 M\xfcller\nversion=" + QByteArray(1 << 20, '1') + "\n")));
    EXPECT_EQ(plugin.copyright(), QString("\u00a9 M\u00fcller"));
    EXPECT_EQ(plugin.version().size(), 1 << 20);
    EXPECT_TRUE(plugin.initialize(makePlugin("", "none", "init=main.py\n")));
    EXPECT_EQ(plugin.initFilename(), folder.filePath("none/Unknown"));
}

TEST_F(PluginLife, loadsOnceUnloadsAndLoadsAgainAsAnotherModule)
{
    const QString path = makePlugin("import sys, helper\nruns = 0\ndef register():\n  global runs, where\n  runs += 1\n"
                                    "  where = __strativo_python_plugin_directory__\n  print(helper.value, end='')\n"
                                    "  return True\ndef unregister():\n  return helper.value != 0\n");
    writeFile(path + "/helper.py", "value = 1\n");
    HVPythonPlugin plugin;
    ASSERT_TRUE(plugin.initialize(path));
    const std::string pathBefore = evaluate("__import__('sys').path");
    recorder.posts.clear();
    ASSERT_TRUE(plugin.load()) << recorder.textOf(6);
    EXPECT_TRUE(plugin.load());
    EXPECT_EQ(recorder.textOf(5), "1") << "registered twice, or not at all";
    EXPECT_GT(plugin.startupCostNanoseconds().count(), 0);
    const QString address =
        QStringLiteral("0x%1").arg(reinterpret_cast<quintptr>(plugin.pythonModule()), 16, 16, QLatin1Char('0'));
    EXPECT_EQ(recorder.textOf(3), "Loaded Python module " + address.toStdString());
    const auto nameOf = [](PyObject* module) {
        const python::GilLock lock;
        return std::string(PyModule_GetName(module));
    };
    const std::string first = nameOf(plugin.pythonModule());
    EXPECT_TRUE(QRegularExpression("^main\\.py_[0-9]{10}$").match(QString::fromStdString(first)).hasMatch()) << first;
    EXPECT_EQ(evaluate("__import__('sys').path"), pathBefore);

    writeFile(path + "/helper.py", "value = 22\n");
    ASSERT_TRUE(plugin.unload());
    EXPECT_FALSE(plugin.isLoaded());
    EXPECT_EQ(plugin.pythonModule(), nullptr);
    EXPECT_EQ(evaluate("'helper' in __import__('sys').modules"), "False");
    EXPECT_EQ(evaluate(("'" + first + "' in __import__('sys').modules").c_str()), "True");
    recorder.posts.clear();
    ASSERT_TRUE(plugin.load());
    EXPECT_EQ(recorder.textOf(5), "22") << "the edited file must run";
    EXPECT_NE(nameOf(plugin.pythonModule()), first);
    EXPECT_TRUE(plugin.unload());
    EXPECT_EQ(prompt.asked, 0);
}

TEST_F(PluginLife, refusedRegistrations)
{
    const struct
    {
        QByteArray source;
        const char* message;
    } cases[] = {
        {"x = 1", "'register' function not found"},
        {"register = 1", "'register' must be a function"},
        {withRegister("return 1"), "'register' function MUST return a boolean value"},
        {withRegister("pass"), "'register' function MUST return a boolean value"},
        {withRegister("return False"), "Plugin signaled an error to Strativo during load process"},
        {withRegister("1 / 0"), "Exception raised during plugin registration"},
        {withRegister("import sys; sys.exit(3)"), "Exception raised during plugin registration"},
        {"import sys; sys.modules[__name__] = 5\n" + withRegister("return True"),
         "Unable to insert plugin directory into Python module dictionary"},
        {"def broken(:\n", ""},
        {QByteArray("x = 1\n\0y = 2\n", 13) + g_sound, ""},
        {"raise SystemExit\n", ""},
        {"import sys; sys.modules.pop(__name__)\n", ""},
        {"import sys; sys.stderr = None; nowhere\n", ""},
    };
    int number = 0;
    for (const auto& [source, message] : cases) {
        HVPythonPlugin plugin;
        ASSERT_TRUE(plugin.initialize(makePlugin(source, QString::number(++number))));
        recorder.posts.clear();
        EXPECT_FALSE(plugin.load()) << source.toStdString();
        EXPECT_EQ(plugin.errorMessage(), message);
        EXPECT_FALSE(plugin.isLoaded());
        const bool isPrinted = *message == '\0' || QByteArray(message).startsWith("Exception");
        EXPECT_EQ(!recorder.textOf(6).empty(), isPrinted) << source.toStdString();
        EXPECT_TRUE(plugin.unload());
    }
    HVPythonPlugin plugin;
    ASSERT_TRUE(plugin.initialize(makePlugin("", "dir", "[PluginInfo]\ninit=.\n")));
    EXPECT_FALSE(plugin.load());
    EXPECT_TRUE(plugin.errorMessage().startsWith("Error opening file " + plugin.directory() + "/.: "));
}

TEST_F(PluginLife, encodingsOfStartupFiles)
{
    const QByteArray ending = "'\nprint(len(text), end='')\n" + QByteArray(g_sound);
    const QByteArray sources[] = {
        "text = '\xc3\xa4\xc3\xb6" + ending,
        "\xef\xbb\xbf"
        "text = '\xc3\xa4\xc3\xb6" +
            ending,
        "# -*- coding: latin-1 -*-\ntext = '\xe4\xf6" + ending,
        "text = '\xe4\xf6" + ending, // not text, yet no reason to refuse: the two letters are replaced
        "text = 'ab'\r\nprint(len(text), end='')\r\n" + QByteArray(g_sound).replace("\n", "\r\n"),
    };
    int number = 0;
    for (const QByteArray& source : sources) {
        HVPythonPlugin plugin;
        ASSERT_TRUE(plugin.initialize(makePlugin(source, QString::number(++number))));
        recorder.posts.clear();
        EXPECT_TRUE(plugin.load()) << number << recorder.textOf(6);
        EXPECT_EQ(recorder.textOf(5), "2") << number;
    }
}

TEST_F(PluginLife, refusedUnregistrations)
{
    const struct
    {
        QByteArray source;
        const char* message;
        bool asks;
    } cases[] = {
        {withRegister("return True"), "'unregister' function not found", false},
        {withRegister("return True") + "unregister = 1\n", "'unregister' must be a function", false},
        {withUnregister("1 / 0"), "Exception raised during plugin unregistration", false},
        {withUnregister("raise SystemExit"), "Exception raised during plugin unregistration", false},
        {withUnregister("return 0"), "'unregister' function MUST return a boolean value", true},
        {withUnregister("return False"), "Plugin signaled an error to Strativo during unload process", true},
        {withUnregister("del globals()['__strativo_python_plugin_directory__']; return True"),
         "Unable to remove plugin directory from Python module dictionary", false},
    };
    int number = 0;
    for (const auto& [source, message, asks] : cases) {
        HVPythonPlugin plugin;
        const QString path = makePlugin(source, QString::number(++number));
        ASSERT_TRUE(plugin.initialize(path));
        ASSERT_TRUE(plugin.load());
        prompt = FakePrompt();
        EXPECT_FALSE(plugin.unload());
        EXPECT_EQ(plugin.errorMessage(), message);
        EXPECT_TRUE(plugin.isLoaded());
        EXPECT_EQ(prompt.asked, asks) << message;
        EXPECT_EQ(plugin.isAutoLoad(), !asks);
        EXPECT_EQ(contents(path + "/plugin.info").contains("autoload=false"), asks);
        plugin.abandon();
    }
    EXPECT_EQ(evaluate("any('a plug-in' in p for p in __import__('sys').path)"), "False");
}

TEST_F(PluginLife, theCriticalDialog)
{
    HVPythonPlugin plugin;
    ASSERT_TRUE(plugin.initialize(makePlugin(withUnregister("return False"))));
    ASSERT_TRUE(plugin.load());
    prompt.answer = true;
    EXPECT_FALSE(plugin.unload());
    EXPECT_EQ(prompt.title, "Critical Error - Unable to unload Python plugin");
    EXPECT_EQ(
        prompt.text,
        "Strativo is unable to unload the plugin <b>a plug-in</b>. This may be because of an error that occurred "
        "during execution.<br></br><br></br>If this occurs repeatedly, please contact <b><a "
        "href=\"mailto:me@example.org\">me@example.org</a></b> for details. Autoload has been disabled for this "
        "plugin.<br></br><br></br>It is recommended that Strativo be restarted to avoid any instability caused by "
        "an inconsistent plugin state.<br></br><br></br><b>Restart Strativo?</b>");
    EXPECT_EQ(prompt.restarts, 1);
    const QStringList restart = python::restartArguments({"bin/strativo", "--execute", "bin/strativo"});
    EXPECT_EQ(restart, QStringList({QCoreApplication::applicationFilePath(), "--execute", "bin/strativo"}));
    QFile::remove(plugin.directory() + "/plugin.info");
    plugin.handleUnloadError();
    EXPECT_TRUE(prompt.text.contains("Strativo is unable to disable autoload for this plugin. This is likely due to "
                                     "insufficient privileges. Please contact your system administrator"));
    EXPECT_EQ(plugin.errorMessage(), "'plugin.info' file does not exist");
    plugin.abandon();
}

TEST_F(RuntimeTest, theCriticalDialogIsAMessageBox)
{
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        QTimer::singleShot(0, qApp, [answer] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            EXPECT_EQ(box->icon(), QMessageBox::Critical);
            EXPECT_EQ(box->textFormat(), Qt::RichText);
            EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
            EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Yes));
            EXPECT_EQ(box->windowTitle() + box->text(), "T<b>x</b>");
            box->button(answer)->click();
        });
        EXPECT_EQ(python::unloadFailurePrompt().askForRestart("T", "<b>x</b>"), answer == QMessageBox::Yes);
    }
    app().terminal = true;
    EXPECT_FALSE(python::unloadFailurePrompt().askForRestart("T", "<b>x</b>"));
    EXPECT_EQ(recorder.textOf(1), "T\nx");
}

TEST_F(PluginLife, autoloadIsWrittenAndNothingElseChanges)
{
    const QString path = makePlugin(g_sound, "p", "[PluginInfo]\ninit=main.py\ncopyright=\xc2\xa9 A, B\nOther=x\n");
    HVPythonPlugin plugin;
    ASSERT_TRUE(plugin.initialize(path));
    EXPECT_TRUE(plugin.setAutoLoad(true));
    HVPythonPlugin again;
    ASSERT_TRUE(again.initialize(path));
    EXPECT_TRUE(again.isAutoLoad());
    EXPECT_EQ(again.copyright(), QString("\u00a9 A, B"));
    EXPECT_TRUE(contents(path + "/plugin.info").contains("Other=x"));

    // Permissions do not bind the administrator, so another user tries.
    chmod(folder.path().toLocal8Bit().constData(), 0755);
    chmod((path + "/plugin.info").toLocal8Bit().constData(), 0444);
    const QByteArray before = contents(path + "/plugin.info");
    EXPECT_EXIT(
        {
            if (setuid(65534) != 0 && geteuid() == 0)
                _exit(2);
            const bool written = again.setAutoLoad(false);
            const bool told =
                again.errorMessage() == "Strativo does not have permission to write to the 'plugin.info' file";
            _exit(!written && told && again.isAutoLoad() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(contents(path + "/plugin.info"), before);
}

TEST_F(PluginLife, hostileStartupFiles)
{
    const QByteArray sources[] = {
        "import shutil\nimport os\nshutil.rmtree(os.path.dirname(__file__))\n",
        "import threading, time\nthreading.Thread(target=lambda: [time.sleep(.01) for _ in range(40)], "
        "daemon=True).start()\n",
        "import sys\nsys.path[:] = [p for p in sys.path if 'a plug-in' not in p]\n",
    };
    for (const QByteArray& source : sources) {
        HVPythonPlugin plugin;
        ASSERT_TRUE(plugin.initialize(makePlugin(source + g_sound)));
        recorder.posts.clear();
        EXPECT_TRUE(plugin.load()) << source.toStdString();
        EXPECT_EQ(recorder.textOf(6).find("IndexError: element not found") != std::string::npos,
                  source.contains("sys.path"));
        EXPECT_TRUE(plugin.unload());
    }
}

TEST_F(PluginLife, copiesShareTheModule)
{
    auto plugin = std::make_unique<HVPythonPlugin>();
    ASSERT_TRUE(plugin->initialize(
        makePlugin("def register():\n  return True\ndef unregister():\n  print('off', end='')\n  return True\n")));
    ASSERT_TRUE(plugin->load());
    {
        HVPythonPlugin copy = *plugin;
        EXPECT_TRUE(copy.isLoaded());
    }
    EXPECT_EQ(recorder.textOf(5), "") << "a copy that dies must not unregister";
    HVPythonPlugin heir;
    heir = *plugin;
    plugin.reset();
    EXPECT_TRUE(heir.isLoaded());
    heir = HVPythonPlugin();
    EXPECT_EQ(recorder.textOf(5), "off");
}

} // namespace
