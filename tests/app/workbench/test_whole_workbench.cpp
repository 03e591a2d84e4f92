// The workbench as the program puts it together: keys, menus, title and what is said about runs.
#include "app/workbench/Commands.h"
#include "app/workbench/DebuggerDock.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "editor/HVPythonDebugger.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/widgets/HVProjectBrowser.h"
#include "tests/app/workbench/WorkbenchFixture.h"

#include <QAction>
#include <QLineEdit>
#include <QMenuBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QWindow>
#include <QtTest>

namespace {

using namespace workbench;

class WholeWorkbench : public fixture::Workbench
{
protected:
    bool isAnyLineMarkedRed() const
    {
        const auto marks = window.activeEditor()->extraSelections();
        return std::any_of(marks.begin(), marks.end(), [](const QTextEdit::ExtraSelection& mark) {
            const QColor colour = mark.format.background().color();
            return colour.red() > colour.green() && colour.red() > colour.blue() && colour.green() == colour.blue();
        });
    }

    /// Keys that two enabled commands of the window claim.
    std::string contestedKeys() const
    {
        QMap<QString, QStringList> owners;
        for (const QAction* action : window.findChildren<QAction*>())
            if (action->isEnabled() && action->shortcutContext() != Qt::WidgetShortcut &&
                action->shortcutContext() != Qt::WidgetWithChildrenShortcut)
                for (const QKeySequence& keys : action->shortcuts())
                    owners[keys.toString()] << action->text();
        QStringList contested;
        for (auto it = owners.cbegin(); it != owners.cend(); ++it)
            if (it.value().size() > 1)
                contested << it.key() + QStringLiteral(": ") + it.value().join(QStringLiteral(", "));
        return contested.join(QStringLiteral("; ")).toStdString();
    }
};

TEST_F(WholeWorkbench, everyKeyBelongsToOneCommandInEveryState)
{
    EXPECT_EQ(contestedKeys(), "") << "nothing open";
    openProject();
    window.newScript();
    window.newScript();
    EXPECT_EQ(contestedKeys(), "") << "documents open";
    window.runIndicator()->runStarted(QStringLiteral("script.py"));
    EXPECT_EQ(contestedKeys(), "") << "running";
    window.runIndicator()->setPaused(QStringLiteral("line 1"));
    dock->debugger()->setIsWaiting(true);
    EXPECT_EQ(contestedKeys(), "") << "paused";
    dock->debugger()->setIsWaiting(false);
    window.runIndicator()->setPaused(QString());
    window.runIndicator()->runFinished();
}

TEST_F(WholeWorkbench, everyKeyReachesItsCommandWhereverTheFocusIs)
{
    openProject();
    window.newScript();
    HVPythonTextEdit* script = window.newScript();
    window.projectDock()->show();
    // What the commands do is tested elsewhere; here it is counted.
    QMap<QAction*, int> counts;
    std::vector<std::pair<QAction*, const Command*>> pressed;
    for (const Command& command : commandTable()) {
        QAction* action = window.commands().action(command.id);
        if (!action->isEnabled() || command.keysOfDocument)
            continue;
        pressed.emplace_back(action, &command);
        action->setCheckable(false);
        QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        QObject::connect(action, &QAction::triggered, action, [&counts, action] { ++counts[action]; });
    }
    EXPECT_GT(pressed.size(), 25U);
    const auto press = [&](const QKeySequence& sequence) {
        QTest::keyClick(window.windowHandle(), static_cast<Qt::Key>(sequence[0] & ~Qt::KeyboardModifierMask),
                        Qt::KeyboardModifiers(sequence[0] & static_cast<int>(Qt::KeyboardModifierMask)));
        QCoreApplication::processEvents();
    };
    // Fields of text have the keys of editing for themselves.
    auto* filter = window.projectBrowser()->findChild<QLineEdit*>();
    window.setFocusPolicy(Qt::StrongFocus);
    for (QWidget* focus : std::initializer_list<QWidget*>{script, filter, &window}) {
        for (const auto& [action, command] : pressed) {
            if (focus != &window && std::string_view(command->id).starts_with("edit."))
                continue;
            for (const QKeySequence& sequence : command->keys.sequences()) {
                focus->setFocus();
                counts.clear();
                press(sequence);
                EXPECT_EQ(counts.value(action), 1) << command->id << ' ' << sequence.toString().toStdString() << " in "
                                                   << focus->metaObject()->className();
                EXPECT_LE(counts.size(), 1) << sequence.toString().toStdString();
            }
        }
    }
}

TEST_F(WholeWorkbench, everyCommandIsInItsMenuAndOfUseWhenTheTableSaysSo)
{
    const auto expectEnabled = [&](Contexts now, const char* state) {
        for (const Command& command : commandTable()) {
            const QAction* action = window.commands().action(command.id);
            ASSERT_TRUE(action) << command.id;
            const QList<QWidget*> places = action->associatedWidgets();
            EXPECT_TRUE(action->isVisible() && std::any_of(places.begin(), places.end(),
                                                           [](QWidget* place) { return qobject_cast<QMenu*>(place); }))
                << command.id;
            EXPECT_EQ(action->isEnabled(), !(command.needs & ~now)) << command.id << ", " << state;
        }
    };
    RunIndicator& run = *window.runIndicator();
    expectEnabled(Context::Idle, "nothing open");
    openProject();
    expectEnabled(Contexts(Context::Idle) | Context::Project, "a project open");
    window.newScript();
    const Contexts open = Contexts(Context::Project) | Context::Document | Context::Script;
    expectEnabled(open | Context::Idle, "a script open");
    run.runStarted(QStringLiteral("script.py"));
    expectEnabled(open | Context::Running, "running");
    run.setPaused(QStringLiteral("line 1"));
    dock->debugger()->setIsWaiting(true);
    expectEnabled(open | Context::Running | Context::Paused, "paused");
    dock->debugger()->setIsWaiting(false);
    run.setPaused(QString());
    run.runFinished();
    expectEnabled(open | Context::Idle, "run over");
    window.destroyDocuments();
    window.projects()->close();
    expectEnabled(Context::Idle, "all closed");
}

TEST_F(WholeWorkbench, keysOfTheWindowMenuWorkThoughItWasOpenedWhileNothingWas)
{
    Q_EMIT window.commands().menu("window")->aboutToShow();
    window.newScript();
    HVPythonTextEdit* second = window.newScript();
    QTest::keyClick(window.windowHandle(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window.editors().size(), 1);
    EXPECT_FALSE(window.editors().contains(second));
}

TEST_F(WholeWorkbench, theTitleIsRightBeforeDuringAndAfterARun)
{
    QStringList titles;
    QObject::connect(window.runIndicator(), &RunIndicator::breathing, &window, [&] { titles << window.windowTitle(); });
    const char* sleeping = "import time\ntime.sleep(0.2)";
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Strativo"));
    runText(sleeping);
    ASSERT_FALSE(titles.isEmpty());
    EXPECT_EQ(titles.last(), QStringLiteral("Strativo (running)"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Strativo"));
    openProject();
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Field - Strativo"));
    runText(sleeping);
    EXPECT_EQ(titles.last(), QStringLiteral("Field - Strativo (running)"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Field - Strativo"));

    QObject::connect(window.runIndicator(), &RunIndicator::breathing, &window, [&] { window.projects()->close(); });
    runText(sleeping);
    EXPECT_EQ(titles.last(), QStringLiteral("Strativo (running)")) << "a project closed during the run";
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Strativo"));
}

TEST_F(WholeWorkbench, onlyErrorsAreCalledErrors)
{
    EXPECT_EQ(runText("x = 1"), QStringLiteral("The script has finished."));
    EXPECT_EQ(runText(""), QStringLiteral("The script is empty."));
    for (const char* leaving : {"import sys; sys.exit()", "import sys; sys.exit(3)", "raise SystemExit('why')"})
        EXPECT_EQ(runText(leaving), QStringLiteral("The script has ended with sys.exit().")) << leaving;
    for (const char* wrong : {"1/0", "x ==", "raise KeyboardInterrupt"}) {
        EXPECT_EQ(runText(wrong), QStringLiteral("The script has ended with an error; see the messages.")) << wrong;
        EXPECT_TRUE(isAnyLineMarkedRed()) << wrong;
    }
}

TEST_F(WholeWorkbench, aStopThatWasAskedForIsNoError)
{
    // A breath may come before the script's first line.
    int breaths = 0;
    QObject::connect(window.runIndicator(), &RunIndicator::breathing, window.runIndicator(), [&] {
        if (++breaths == 3)
            window.runIndicator()->askToStop();
    });
    EXPECT_EQ(runText("x = 1\nwhile True: pass"), QStringLiteral("The script was stopped."));
    EXPECT_EQ(recorder.textOf(6), "");
    EXPECT_NE(recorder.textOf(3).find("Stopped at line 2 of <unsaved script"), std::string::npos) << recorder.textOf(3);
    EXPECT_FALSE(isAnyLineMarkedRed());
    // What the script does about it is its own.
    breaths = 0;
    EXPECT_EQ(runText("import time\ntry:\n  time.sleep(60)\nexcept KeyboardInterrupt:\n  1/0"),
              QStringLiteral("The script has ended with an error; see the messages."));
    EXPECT_EQ(runText("raise KeyboardInterrupt"),
              QStringLiteral("The script has ended with an error; see the messages."));
}

TEST_F(WholeWorkbench, theDebuggersStopIsNoErrorEither)
{
    QObject::connect(dock->debugger(), &HVPythonDebugger::signalBreakpointHit, &window, [&](int line) {
        if (line != -1)
            QTimer::singleShot(0, &window, [&] { dock->debugger()->commands().last()->trigger(); });
    });
    dock->debugger()->setDebuggingEnabled(true);
    EXPECT_EQ(runText("x = 1\nbreakpoint()\ny = 2"), QStringLiteral("The script was stopped."));
    EXPECT_EQ(recorder.textOf(6), "");
}

TEST_F(WholeWorkbench, windowsOfScriptsCloseWithTheMainWindow)
{
    EXPECT_EQ(runText("import strativo_python as sp\n"
                      "class Refusing(sp.Widget):\n"
                      "  def closeEvent(self, event):\n"
                      "    print('asked')\n"
                      "    event.ignore()\n"
                      "sp.Widget().show()\n"
                      "Refusing().show()\n"),
              QStringLiteral("The script has finished."))
        << recorder.textOf(6);
    window.activeEditor()->document()->setModified(false);
    QTimer::singleShot(0, &window, &QWidget::close);
    QTimer::singleShot(20000, &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0) << "the application would not end";
    EXPECT_EQ(recorder.textOf(5), "asked\n");
    EXPECT_FALSE(window.isVisible());
}

} // namespace
