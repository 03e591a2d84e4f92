// The functions with which scripts and plug-ins reach the application, on a real main window.
#include "host/data/HVProject.h"
#include "host/widgets/HVPluginContributions.h"
#include "tests/plugins/PluginFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QTextEdit>
#include <QTimer>
#include <QToolBar>

namespace {

using namespace fixture;

class Application : public PluginTest
{
protected:
    void SetUp() override
    {
        window.setCentralWidget(area);
        window.menuBar()->addMenu("Help");
        app().window = &window;
        app().onSubWindow = [this](QWidget* widget) { return area->addSubWindow(widget); };
        ASSERT_TRUE(plugin.initialize(makePlugin("import __main__, sys\nfrom strativo_python import *\n"
                                                 "def register():\n  __main__.plugin = sys.modules[__name__]\n"
                                                 "  return True\ndef unregister():\n  return True\n")));
        ASSERT_TRUE(plugin.load());
        ASSERT_TRUE(run("import strativo_python as sp\nfrom strativo_python import *\n"));
    }
    ~Application() override { plugin.abandon(); }

    bool inPlugin(const char* code) { return run((std::string("exec('''") + code + "''', plugin.__dict__)").c_str()); }
    /// The last line of the traceback.
    std::string errorOf(const char* code, bool asPlugin = false)
    {
        recorder.posts.clear();
        EXPECT_FALSE(asPlugin ? inPlugin(code) : run(code)) << code;
        std::string text = recorder.textOf(6);
        text.resize(text.find_last_not_of('\n') + 1);
        return text.substr(text.rfind('\n') + 1);
    }
    QMenu* menu(const QString& title)
    {
        for (QAction* action : window.menuBar()->actions())
            if (action->menu()->title() == title)
                return action->menu();
        return nullptr;
    }
    /// Does something to the next modal widget.
    template <typename Widget>
    void whenModal(std::function<void(Widget&)> act)
    {
        QTimer::singleShot(0, qApp, [act] {
            auto* modal = qobject_cast<Widget*>(QApplication::activeModalWidget());
            ASSERT_TRUE(modal);
            act(*modal);
        });
    }

    QMainWindow window;
    QMdiArea* area = new QMdiArea;
    HVPythonPlugin plugin;
};

TEST_F(Application, queries)
{
    EXPECT_EQ(evaluate("pluginDirectory()"), "None");
    EXPECT_TRUE(inPlugin("assert_dir = pluginDirectory()"));
    EXPECT_EQ(evaluate("plugin.assert_dir"), plugin.directory().toStdString());
    EXPECT_EQ(evaluate("version()"), "(1, 2)");
    EXPECT_EQ(evaluate("mainWindow() is mainWindow()"), "True");
    EXPECT_EQ(errorOf("mainWindow().close()"), "RuntimeError: MainWindow, illegal method call");
    EXPECT_EQ(evaluate("hasProject()"), "False");
    const auto project = *HVProject::create(folder.filePath("a project"), QString());
    app().project = project.get();
    EXPECT_EQ(evaluate("hasProject()"), "True");
    app().log.clear();
    EXPECT_TRUE(run("import threading\ndef ask():\n    answer.append(hasProject())\n"
                    "    for update in (updateProject, updatePaletteList):\n"
                    "        try: update()\n        except RuntimeError as error: answer.append(str(error))\n"
                    "answer = []; asker = threading.Thread(target=ask); asker.start(); asker.join()"));
    const std::string refusal = "'windows can only be used on the main thread'";
    EXPECT_EQ(evaluate("answer"), "[True, " + refusal + ", " + refusal + "]");
    EXPECT_TRUE(app().log.empty()) << "the project belongs to the GUI thread";
    app().window = nullptr;
    EXPECT_EQ(evaluate("hasProject(), getProject(), mainWindow()"), "(False, None, None)");
    app().log.clear();
    EXPECT_TRUE(run("updateProject(); updatePaletteList()"));
    EXPECT_EQ(app().log, (std::vector<std::string>{"project all", "palettes"}));
    EXPECT_EQ(errorOf("updateProject(5)"), "TypeError: expected 'NoneType' or 'ObjectId', but got 'int'");
}

TEST_F(Application, menus)
{
    python::setTextsWhole(true);
    EXPECT_EQ(errorOf("addMainWindowMenu('M')"),
              "RuntimeError: addMainWindowMenu() can only be executed from the context of a plugin");
    EXPECT_EQ(errorOf("removeMainWindowMenu('Help')"),
              "RuntimeError: removeMainWindowMenu() can only be executed from the context of a plugin");
    EXPECT_EQ(errorOf("getMainWindowMenu('Help')"),
              "RuntimeError: 'Help' is a reserved menu name and cannot be removed or queried");
    EXPECT_EQ(errorOf("addMainWindowMenu('Recent Projects')", true),
              "RuntimeError: 'Recent Projects' is a reserved menu name and cannot be removed or queried");
    EXPECT_EQ(errorOf("removeMainWindowMenu('Help')", true),
              "RuntimeError: 'Help' is a reserved menu name and can not be removed");
    EXPECT_EQ(evaluate("getMainWindowMenu('help')"), "None");
    window.menuBar()->addMenu("Own")->setObjectName(hv::ownPartName("own"));
    EXPECT_EQ(evaluate("getMainWindowMenu('Own')"), "None");
    ASSERT_TRUE(inPlugin("own = removeMainWindowMenu('Own')"));
    EXPECT_EQ(evaluate("plugin.own"), "False");

    ASSERT_TRUE(inPlugin("m = addMainWindowMenu('Velocit\u00e4t')\n"
                         "same = addMainWindowMenu('Velocit\u00e4t') is m\n"
                         "calls = []\n"
                         "good = m.addAction('Good', lambda: calls.append(1), Icon.getBuiltinIcon('save24'))\n"
                         "m.addSeparator()\n"
                         "bad = m.addMenu('More').addAction('Bad', lambda: 1 / 0)\n"));
    EXPECT_EQ(
        evaluate("plugin.same, getMainWindowMenu('Velocit\u00e4t') is plugin.m, plugin.m.title == 'Velocit\u00e4t'"),
        "(True, True, True)");
    QMenu* made = menu("Velocit\u00e4t");
    ASSERT_TRUE(made);
    EXPECT_EQ(made->actions().size(), 3);
    made->actions()[0]->trigger();
    EXPECT_EQ(evaluate("plugin.calls"), "[1]");
    recorder.posts.clear();
    made->actions()[2]->menu()->actions()[0]->trigger();
    EXPECT_NE(recorder.textOf(6).find("ZeroDivisionError"), std::string::npos);
    EXPECT_EQ(errorOf("plugin.m.addAction('x', 5)"),
              "TypeError: Menu.addAction(), expected callable object, but got 'int' instead");

    ASSERT_TRUE(inPlugin("gone = removeMainWindowMenu('Velocit\u00e4t'), removeMainWindowMenu('Velocit\u00e4t')"));
    EXPECT_EQ(evaluate("plugin.gone"), "(True, False)");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(errorOf("plugin.m.addSeparator()"), "RuntimeError: Menu has been deleted");
    EXPECT_EQ(errorOf("plugin.good.trigger()"), "RuntimeError: Action has been deleted");
}

TEST_F(Application, toolBars)
{
    EXPECT_EQ(errorOf("addMainWindowToolBar('T')"),
              "RuntimeError: addMainWindowToolBar() can only be executed from the context of a plugin");
    EXPECT_EQ(errorOf("removeMainWindowToolBar('T')"),
              "RuntimeError: removeMainWindowToolBar() can only be executed from the context of a plugin");
    ASSERT_TRUE(inPlugin("t = addMainWindowToolBar('T')\nt.movable = False\nt.addAction('Go', print)\n"));
    auto* bar = window.findChild<QToolBar*>("T");
    ASSERT_TRUE(bar);
    EXPECT_FALSE(bar->isMovable());
    EXPECT_EQ(bar->windowTitle(), "T");
    EXPECT_EQ(errorOf("addMainWindowToolBar('T')", true), "RuntimeError: Toolbar already exists: T");
    EXPECT_EQ(errorOf("plugin.t.addAction(1, print)"),
              "TypeError: ToolBar.addAction(), expected 'str' but got 'int' instead");
    ASSERT_TRUE(
        inPlugin("gone = removeMainWindowToolBar('T'), removeMainWindowToolBar('T'), addMainWindowToolBar('T') is t"));
    EXPECT_EQ(evaluate("plugin.gone"), "(True, False, False)");
}

TEST_F(Application, ownToolBarsAreOutOfReachOfPlugins)
{
    QPointer<QToolBar> own = window.addToolBar("Main");
    own->setObjectName(hv::ownPartName("main"));
    QPointer<QToolBar> nameless = window.addToolBar("Nameless");
    ASSERT_TRUE(inPlugin("gone = [removeMainWindowToolBar(name) for name in ('strativo:main', 'main', 'Main', '')]"));
    EXPECT_EQ(evaluate("plugin.gone"), "[False, False, False, False]");
    EXPECT_EQ(errorOf("addMainWindowToolBar('')", true),
              "ValueError: addMainWindowToolBar(), the name must not be empty");
    EXPECT_EQ(errorOf("addMainWindowToolBar('strativo:main')", true),
              "ValueError: addMainWindowToolBar(), names that begin with 'strativo:' are the application's own");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(own && nameless);
    EXPECT_EQ(window.findChildren<QToolBar*>().size(), 2);
}

TEST_F(Application, whatAPluginLeavesIsTakenAway)
{
    HVPythonPlugin other;
    ASSERT_TRUE(other.initialize(makePlugin("from strativo_python import *\ndef register():\n"
                                            "  addMainWindowMenu('Shared').addAction('theirs', print)\n  return True\n"
                                            "def unregister():\n  return True\n",
                                            "other")));
    ASSERT_TRUE(inPlugin("m = addMainWindowMenu('Shared')\nm.addAction('ours', print)\naddMainWindowMenu('Own')\n"
                         "addMainWindowToolBar('Bar')\nt = TextEdit()\nt.windowTitle = 'Report'\nw = addSubWindow(t)\n"
                         "passed = addMainWindowMenu('Passed')\nremoveMainWindowMenu('Passed')\n"));
    ASSERT_TRUE(other.load()) << recorder.textOf(6);
    recorder.posts.clear();
    ASSERT_TRUE(plugin.unload());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_NE(recorder.textOf(3).find(
                  "Removed what the plug-in a plug-in left behind: menu Own, tool bar Bar, window Report"),
              std::string::npos)
        << recorder.textOf(3);
    EXPECT_FALSE(menu("Own"));
    EXPECT_FALSE(window.findChild<QToolBar*>("Bar"));
    EXPECT_TRUE(area->subWindowList().isEmpty());
    ASSERT_TRUE(menu("Shared"));
    EXPECT_EQ(menu("Shared")->actions().size(), 1) << "the other plug-in still has its command there";
    EXPECT_EQ(errorOf("plugin.t.text"), "RuntimeError: TextEdit has been deleted");
    EXPECT_TRUE(other.unload());
    EXPECT_FALSE(menu("Shared"));
}

TEST_F(Application, whatHelperModulesOfAPluginMakeGoesWithIt)
{
    QMenu* shared = window.menuBar()->addMenu("Shared");
    const QString path = makePlugin("import helper\n"
                                    "def register():\n"
                                    "  helper.build()\n"
                                    "  helper.refused()\n"
                                    "  return True\n"
                                    "def unregister():\n"
                                    "  return True\n",
                                    "with helper");
    writeFile(path + "/helper.py", "import strativo_python as sp\n"
                                   "early = sp.Widget(windowTitle='Early')\n"
                                   "early.show()\n"
                                   "def build():\n"
                                   "  menu = sp.getMainWindowMenu('Shared')\n"
                                   "  menu.addAction('of the helper', print)\n"
                                   "  sp.Widget(windowTitle='Late').show()\n"
                                   "  sp.addSubWindow(sp.TextEdit(windowTitle='Document'))\n"
                                   "def refused():\n"
                                   "  try:\n"
                                   "    sp.addMainWindowMenu('Mine')\n"
                                   "  except RuntimeError as error:\n"
                                   "    print(error, sp.pluginDirectory(), end='')\n");
    // A neighbour's name begins like the plug-in's.
    writeFile(path + " too/outside.py", "import strativo_python as sp\nkept = sp.Widget(windowTitle='Outside')\n"
                                        "kept.show()\n");
    HVPythonPlugin other;
    ASSERT_TRUE(other.initialize(path));
    recorder.posts.clear();
    ASSERT_TRUE(other.load()) << recorder.textOf(6);
    EXPECT_EQ(recorder.textOf(5), "addMainWindowMenu() can only be executed from the context of a plugin None");
    ASSERT_TRUE(run(("import sys\nsys.path.append('" + path +
                     " too')\nimport outside, helper\nsys.path.pop()\n"
                     "mine = sp.Widget(windowTitle='Of the editor')\n"
                     "mine.show()\nshown = [outside.kept, mine, helper.early]\n")
                        .toUtf8()
                        .constData()))
        << recorder.textOf(6);
    EXPECT_EQ(evaluate("[w.visible for w in shown]"), "[True, True, True]");
    recorder.posts.clear();
    ASSERT_TRUE(other.unload());
    EXPECT_NE(recorder.textOf(3).find("left behind: window Early, window Late, window Document"), std::string::npos)
        << recorder.textOf(3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(shared->actions().isEmpty());
    EXPECT_TRUE(area->subWindowList().isEmpty());
    EXPECT_EQ(evaluate("[not w.deleted and w.visible for w in shown]"), "[True, True, False]");
    ASSERT_TRUE(run("outside.kept.close()\nmine.close()\ndel outside, mine, shown, helper"));
}

TEST_F(Application, subWindows)
{
    EXPECT_EQ(errorOf("addSubWindow(None)"),
              "TypeError: addSubWindow(), expected type 'Widget' but got 'NoneType' instead");
    EXPECT_EQ(errorOf("addSubWindow(3)"), "TypeError: addSubWindow(), expected type 'Widget' but got 'int' instead");
    ASSERT_TRUE(run("t = TextEdit(); t.text = 'a\\nb'; w = addSubWindow(t); del t; u = Widget(); del u"));
    EXPECT_TRUE(run("k = TextEdit(); first = addSubWindow(k); twice = addSubWindow(k) is first; first.close(); del k"));
    EXPECT_EQ(evaluate("twice"), "True");
    delete area->subWindowList().value(1);
    ASSERT_EQ(area->subWindowList().size(), 1);
    EXPECT_EQ(qobject_cast<QTextEdit*>(area->subWindowList()[0]->widget())->toPlainText(), "a\nb");
    delete area->subWindowList()[0];
    EXPECT_EQ(errorOf("w.show()"), "RuntimeError: SubWindow has been deleted");
    EXPECT_EQ(evaluate("w.deleted"), "True");
    app().onSubWindow = {};
    EXPECT_EQ(errorOf("k = Widget(); addSubWindow(k)"),
              "RuntimeError: addSubWindow(), the application has no document area");
    EXPECT_EQ(evaluate("k.width > 0"), "True");
}

TEST_F(Application, boxesAndChoosers)
{
    EXPECT_EQ(errorOf("showDialogBox(1)"), "TypeError: showDialogBox(), expected 'str' but got 'int'");
    EXPECT_EQ(errorOf("showQuestionBox(None)"), "TypeError: showQuestionBox(), expected 'str' but got 'NoneType'");
    EXPECT_EQ(errorOf("showQuestionBox('a', 1)"),
              "TypeError: showQuestionBox(), expected 'str' for optional 'title' argument but got 'int'");
    EXPECT_EQ(errorOf("getDirectory(1)"), "TypeError: getDirectory(), expected 'str' but got 'int' instead");
    EXPECT_EQ(errorOf("getFile(1)"), "TypeError: getFile(), expected 'str' but got 'int' instead");
    EXPECT_EQ(errorOf("getFiles(b'')"), "TypeError: getFiles(), expected 'str' but got 'bytes' instead");

    QString seen;
    whenModal<QMessageBox>([&](QMessageBox& box) {
        seen = box.windowTitle() + '|' + box.text();
        EXPECT_EQ(box.parent(), &window);
        box.accept();
    });
    EXPECT_TRUE(run("showDialogBox('Done')"));
    EXPECT_EQ(seen, "Strativo|Done");
    for (const auto button : {QMessageBox::Yes, QMessageBox::No}) {
        whenModal<QMessageBox>([&](QMessageBox& box) {
            seen = box.windowTitle() + '|' + box.text();
            box.button(button)->click();
        });
        EXPECT_EQ(evaluate("showQuestionBox('Sure?', title='T')"), button == QMessageBox::Yes ? "True" : "False");
        EXPECT_EQ(seen, "T|Sure?");
    }
    const QString file = folder.filePath("\u00e4.txt");
    writeFile(file, "");
    const auto choose = [&] {
        whenModal<QFileDialog>([&](QFileDialog& dialog) {
            seen = dialog.windowTitle();
            dialog.setDirectory(folder.path());
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(file);
            static_cast<QDialog&>(dialog).accept();
        });
    };
    choose();
    EXPECT_FALSE(run("getFile('Pick')"));
    EXPECT_NE(recorder.textOf(6).find("UnicodeDecodeError"), std::string::npos);
    recorder.posts.clear();
    choose();
    EXPECT_FALSE(run("getFiles('Pick')"));
    EXPECT_NE(recorder.textOf(6).find("UnicodeDecodeError"), std::string::npos);
    recorder.posts.clear();
    python::setTextsWhole(true);
    choose();
    EXPECT_EQ(evaluate("getFile('Pick')"), file.toStdString());
    EXPECT_EQ(seen, "Pick");
    whenModal<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(evaluate("getFiles(None)"), "[]");

    app().terminal = true;
    recorder.posts.clear();
    EXPECT_TRUE(
        run("showDialogBox('Hello'); print(showQuestionBox('Sure?'), repr(getFile('F')), getFiles(None), end='')"));
    EXPECT_EQ(recorder.textOf(5), "False '' []");
    EXPECT_NE(recorder.textOf(3).find("HelloSure? [No]"), std::string::npos);
    app().terminal = false;
    app().window = nullptr;
    EXPECT_EQ(evaluate("showDialogBox('x'), showQuestionBox('x')"), "(None, False)");
}

TEST_F(Application, windowsAreForTheMainThread)
{
    EXPECT_TRUE(
        run("import threading\nrefused = []\ntext = TextEdit()\n"
            "def work():\n"
            "  for use in (mainWindow, TextEdit, lambda: showDialogBox('x'), lambda: getFile(None), text.show):\n"
            "    try: use()\n"
            "    except RuntimeError as error: refused.append(str(error))\n"
            "t = threading.Thread(target=work); t.start(); t.join()"));
    EXPECT_EQ(evaluate("len(refused), set(refused)"), "(5, {'windows can only be used on the main thread'})");
}

TEST_F(Application, icons)
{
    writeFile(plugin.directory() + "/icon.svg", "<svg/>");
    EXPECT_EQ(evaluate("Icon.getPluginIcon('icon.svg')"), "None");
    EXPECT_TRUE(inPlugin("assert_icon = Icon.getPluginIcon('icon.svg').__class__"));
    EXPECT_TRUE(errorOf("Icon.getPluginIcon('no.svg')", true)
                    .starts_with("FileNotFoundError: Icon.getPluginIcon(), plugin icon file does not exist: /"));
    EXPECT_EQ(errorOf("Icon('/no')"), "FileNotFoundError: Icon, file '/no' does not exist");
    EXPECT_EQ(errorOf("Icon(1)"), "TypeError: Icon, expected 'str' but got 'int' instead");
    EXPECT_EQ(errorOf("Icon.getBuiltinIcon('no')"),
              "RuntimeError: Icon.getBuiltinIcon(), requested icon 'no' not found");
}

TEST_F(Application, windowsGoWithTheirPlugin)
{
    ASSERT_TRUE(inPlugin("class Window(Dialog):\n  def hideEvent(self, event): pass\n"
                         "Window('left open').show()\nWidget(windowTitle='never shown')\n"
                         "kept = Dialog('kept')\nkept.show()"));
    ASSERT_TRUE(run("mine = Dialog('of a script')\nmine.show()"));
    const auto titles = [] {
        QStringList found;
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible())
                found << widget->windowTitle();
        found.sort();
        return found.join(", ");
    };
    EXPECT_EQ(titles(), "kept, left open, of a script");
    EXPECT_TRUE(plugin.unload());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(titles(), "of a script");
    EXPECT_NE(recorder.textOf(3).find("window left open"), std::string::npos) << recorder.textOf(3);
    EXPECT_TRUE(run("mine.close()\ndel mine"));
}

} // namespace
