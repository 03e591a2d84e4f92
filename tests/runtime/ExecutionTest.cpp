#include "runtime/RunTimeErrorHandler.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QInputDialog>
#include <QLabel>
#include <QSettings>
#include <QTimer>

namespace {

using fixture::Recorder;
using python::RunEnd;
using ExecutionTest = fixture::RuntimeTest;

TEST_F(ExecutionTest, RunsShareOneNamespaceAndPostEachWriteAsItIs)
{
    EXPECT_TRUE(run("x = 'a'"));
    EXPECT_TRUE(run("print(x)\nimport sys\nsys.stderr.write('no end')"));
    const std::vector<Recorder::Post> expected = {{5, "a", false}, {5, "\n", false}, {6, "no end", false}};
    EXPECT_EQ(recorder.posts, expected);
}

TEST_F(ExecutionTest, EmptyCodeTakesTheEditorsTextAndClearsItsMarks)
{
    EXPECT_FALSE(run(""));
    EXPECT_FALSE(run("", &editor));
    EXPECT_EQ(editor.clears, 1);
    editor.text = "print('from the editor')";
    EXPECT_TRUE(run("", &editor));
    EXPECT_EQ(recorder.textOf(5), "from the editor\n");
    EXPECT_EQ(editor.clears, 2);
}

TEST_F(ExecutionTest, CompileErrorsMarkTheLineAndRunNothing)
{
    EXPECT_FALSE(run("print('never')\n\nx = = 2\n", &editor));
    EXPECT_EQ(editor.markedLine, 3);
    EXPECT_EQ(editor.file, "script.py");
    EXPECT_EQ(editor.inFunction, "");
    EXPECT_NE(recorder.textOf(6).find("SyntaxError: invalid syntax"), std::string::npos);

    const QString halfHidden = QStringLiteral("print('never')\n#") + QChar(0) + QStringLiteral("\nprint('hidden')");
    EXPECT_FALSE(context().executePythonCode(halfHidden, &editor, "script.py"));
    EXPECT_EQ(editor.markedLine, 2);
    EXPECT_EQ(context().lastRunEnd(), RunEnd::CompileError);
    EXPECT_EQ(recorder.textOf(5), "");

    // Code that the script itself compiles fails at run time but is marked where its text is wrong.
    EXPECT_FALSE(run("compile('a\\nb c', 'other.py', 'exec')", &editor));
    EXPECT_EQ(editor.file, "other.py");
    EXPECT_EQ(editor.markedLine, 2);
}

TEST_F(ExecutionTest, RunTimeErrorsMarkTheInnermostLine)
{
    EXPECT_FALSE(run("def f():\n    return 1 / 0\n\nf()\n", &editor));
    EXPECT_EQ(editor.markedLine, 2);
    EXPECT_EQ(editor.inFunction, "f");
    const std::string report = recorder.textOf(6);
    EXPECT_EQ(report.rfind("Traceback (most recent call last):\n", 0), 0U);
    EXPECT_NE(report.find("ZeroDivisionError: division by zero\n"), std::string::npos);
    EXPECT_TRUE(run("pass", &editor));
    EXPECT_EQ(editor.markedLine, -1);
}

TEST_F(ExecutionTest, SystemExitEndsOnlyTheScript)
{
    EXPECT_FALSE(run("import sys\ndef leave():\n    sys.exit(0)\nleave()", &editor));
    EXPECT_EQ(context().lastRunEnd(), RunEnd::ExitedZero);
    EXPECT_FALSE(run("exit(3)"));
    EXPECT_EQ(context().lastRunEnd(), RunEnd::ExitedNonZero);
    EXPECT_EQ(context().lastExitStatus(), 3);
    EXPECT_FALSE(run("import sys; sys.exit(object())"));
    EXPECT_EQ(context().lastRunEnd(), RunEnd::ExitedNonZero);
    const std::vector<Recorder::Post> first(recorder.posts.begin(), recorder.posts.begin() + 2);
    const std::vector<Recorder::Post> expected = {{1, "SystemExit exception raised in", false},
                                                  {1, "  File \"script.py\", line 3, in leave", true}};
    EXPECT_EQ(first, expected);
    EXPECT_EQ(recorder.posts[3].text, "  File \"Unknown filename\", line -1, in Unknown function");
    EXPECT_EQ(recorder.textOf(6), "");

    // A hook that tries to leave is reported like any other error.
    EXPECT_FALSE(run("import sys\ndef hook(*a): raise SystemExit(9)\nsys.excepthook = hook\n1/0"));
    EXPECT_NE(recorder.textOf(6).find("ZeroDivisionError"), std::string::npos);
    run("import sys; sys.excepthook = sys.__excepthook__");
}

TEST_F(ExecutionTest, MissingModuleIsOfferedOnlyWithAutofind)
{
    QString asked;
    bool installed = false;
    python::setModuleFinder([&](const QString& name) {
        asked = name;
        return installed;
    });
    EXPECT_FALSE(run("import not_there_at_all", &editor));
    EXPECT_EQ(asked, "not_there_at_all");
    EXPECT_NE(recorder.textOf(6).find("ModuleNotFoundError: No module named 'not_there_at_all'"), std::string::npos);
    EXPECT_EQ(editor.markedLine, 1);

    recorder.posts.clear();
    installed = true;
    EXPECT_FALSE(run("import not_there_at_all", &editor));
    EXPECT_EQ(recorder.textOf(6), "");
    EXPECT_EQ(editor.markedLine, -1);

    asked.clear();
    QSettings().setValue("Python/autofind", false);
    EXPECT_FALSE(run("import not_there_at_all"));
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_NE(recorder.textOf(6).find("ModuleNotFoundError"), std::string::npos);
    QSettings().setValue("Python/autofind", true);

    // Without the attribute the report is about that, and the next run starts clean.
    recorder.posts.clear();
    EXPECT_FALSE(
        run("class Odd(ModuleNotFoundError):\n  def __getattribute__(self, n):\n"
            "    if n == 'name': raise AttributeError(n)\n    return super().__getattribute__(n)\nraise Odd()"));
    EXPECT_NE(recorder.textOf(6).find("ModuleNotFoundError missing module 'name' attribute. Uh oh"), std::string::npos);
    EXPECT_TRUE(run("pass"));
    python::setModuleFinder({});
}

TEST_F(ExecutionTest, FailedRunClosesProgressBarsAndTheModalDialog)
{
    QDialog dialog;
    dialog.open();
    app().progress->create(3, "outer", IProgressService::NoBar, true, 0);
    EXPECT_TRUE(run("pass"));
    EXPECT_TRUE(app().progress->isAnyRunning());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(run("1/0"));
    EXPECT_FALSE(app().progress->isAnyRunning());
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ExecutionTest, FailedRunClosesAModalWidgetThatIsNoDialog)
{
    class Refusing final : public QWidget
    {
    public:
        bool refuses = true;

    private:
        void closeEvent(QCloseEvent* event) override { event->setAccepted(!refuses); }
    };
    Refusing panel;
    panel.setWindowModality(Qt::ApplicationModal);
    panel.show();
    ASSERT_EQ(QApplication::activeModalWidget(), &panel);
    EXPECT_FALSE(run("1/0"));
    EXPECT_TRUE(panel.isVisible()) << "it may refuse, as a dialog may";
    panel.refuses = false;
    EXPECT_FALSE(run("1/0"));
    EXPECT_FALSE(panel.isVisible());
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST_F(ExecutionTest, InterpreterIsMadeSafeAtStart)
{
    EXPECT_TRUE(run("import os, sys, builtins, strativo_python\n"
                    "assert False\n"
                    "ok = (not hasattr(os, '_exit'), not sys.stdout.isatty(), sys.stdout.flush() is None,\n"
                    "      sys.stdout.write('') is None, sys.flags.optimize, sys.dont_write_bytecode,\n"
                    "      type(sys.stdout).__name__, type(sys.stdout) is __HVPythonStreamCapture)\n"
                    "print(ok)"));
    EXPECT_EQ(recorder.textOf(5), "(True, True, True, True, 1, True, '__HVPythonStreamCapture', True)\n");
}

TEST_F(ExecutionTest, LostStreamsAndBrokenExceptionsAreStillReported)
{
    EXPECT_FALSE(run("import sys\nprint('kept')\nsys.stdout = sys.stderr = None\nraise ValueError('told anyway')"));
    EXPECT_NE(recorder.textOf(6).find("ValueError: told anyway"), std::string::npos);
    EXPECT_TRUE(run("print('again')"));
    EXPECT_EQ(recorder.textOf(5), "kept\nagain\n");

    EXPECT_FALSE(run("import sys\ndel sys.stderr\n1/0"));
    EXPECT_NE(recorder.textOf(6).find("ZeroDivisionError"), std::string::npos);

    EXPECT_FALSE(run("class Bad(Exception):\n  def __str__(self): raise RuntimeError('no text')\nraise Bad()"));
    EXPECT_NE(recorder.textOf(6).find("Bad: <exception str() failed>"), std::string::npos);

    EXPECT_FALSE(run("def f(): f()\nf()"));
    EXPECT_NE(recorder.textOf(6).find("RecursionError"), std::string::npos);

    recorder.posts.clear();
    EXPECT_TRUE(run("print('a\\ud800b\\U0001f600')"));
    EXPECT_EQ(recorder.textOf(5), "a\\ud800b\xF0\x9F\x98\x80\n");
    EXPECT_FALSE(run("import sys; sys.stdout.write(3)"));
    EXPECT_NE(recorder.textOf(6).find("TypeError: write() argument must be str, not int"), std::string::npos);
}

const char* const g_onThread = "import threading\n"
                               "def on_thread(function, *arguments):\n"
                               "    results = []\n"
                               "    def work():\n"
                               "        try: results.append(function(*arguments))\n"
                               "        except Exception as error: results.append(repr(error))\n"
                               "    thread = threading.Thread(target=work); thread.start(); thread.join(10)\n"
                               "    return results[0]\n";

TEST_F(ExecutionTest, OnAThreadInputAndHelpOpenNoWindow)
{
    ASSERT_TRUE(run(g_onThread));
    EXPECT_TRUE(run("print(on_thread(input), on_thread(help), sep='\\n'); on_thread(help, len)"));
    const std::string error = "RuntimeError('windows can only be used on the main thread')\n";
    EXPECT_EQ(recorder.textOf(5).rfind(error + error, 0), 0U) << recorder.textOf(5);
    EXPECT_NE(recorder.textOf(5).find("Return the number of items in a container."), std::string::npos);
}

TEST_F(ExecutionTest, AnErrorOnAThreadIsReportedAndTouchesNoWindow)
{
    QDialog dialog;
    dialog.open();
    app().progress->create(3, "outer", IProgressService::NoBar, true, 0);
    bool observed = false;
    python::setErrorObserver([&](PyObject*, PyObject*) { observed = true; });
    ASSERT_TRUE(run(g_onThread));
    EXPECT_TRUE(run("import strativo_python as s\non_thread(s.Font, '\\ud800')"));
    python::setErrorObserver({});
    EXPECT_NE(recorder.textOf(6).find("UnicodeEncodeError"), std::string::npos) << "the error handler was called";
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(app().progress->isAnyRunning());
    EXPECT_FALSE(observed);
    app().progress->closeAll();
}

TEST_F(ExecutionTest, CapturedStreamsHaveTheNumbersOfTheProcess)
{
    EXPECT_TRUE(
        run("import faulthandler, sys\nfaulthandler.enable()\n"
            "print(faulthandler.is_enabled(), sys.stdout.fileno(), sys.stderr.fileno())\nfaulthandler.disable()"));
    EXPECT_EQ(recorder.textOf(5), "True 1 2\n");
}

TEST_F(ExecutionTest, InputAsksWithADialogAndHelpPrints)
{
    QString title, label;
    bool accept = true;
    const auto answer = [&] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        title = dialog->windowTitle();
        label = dialog->labelText();
        dialog->setTextValue(QString::fromUtf8("Bj\xC3\xB8rn"));
        accept ? dialog->accept() : dialog->reject();
    };
    QTimer::singleShot(0, qApp, answer);
    EXPECT_TRUE(run("name = input('Name?')\nprint(ascii(name))"));
    EXPECT_EQ(title, "Python Input");
    EXPECT_EQ(label, "Name?");
    accept = false;
    QTimer::singleShot(0, qApp, answer);
    EXPECT_TRUE(run("class NoText:\n  def __str__(self): raise ValueError\nprint(ascii(input(NoText())))"));
    EXPECT_EQ(label, "");
    EXPECT_EQ(recorder.textOf(5), "'Bj\\xf8rn'\n''\n");

    EXPECT_TRUE(run("help(len)")) << recorder.textOf(6);
    EXPECT_NE(recorder.textOf(5).find("Return the number of items in a container."), std::string::npos);
}

} // namespace
