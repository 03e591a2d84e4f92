#include "app/workbench/DebuggerDock.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/ScriptName.h"
#include "editor/HVPythonDebugger.h"
#include "editor/HVPythonTextEdit.h"
#include "editor/debugger/BreakpointList.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

class DebuggerDockTest : public fixture::RuntimeTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(folder.isValid());
        path = folder.filePath(QStringLiteral("script.py"));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("a = 1\nb = 2\nc = 3\n");
        file.close();
        window.show();
        QApplication::setActiveWindow(&window);
        QObject::connect(dock->debugger(), &HVPythonDebugger::signalBreakpointHit, dock.get(), [this](int line) {
            lines.push_back(line);
            if (line != -1)
                QTimer::singleShot(0, whilePaused);
        });
        dock->debugger()->setDebuggingEnabled(true);
        dock->debugger()->addBreakpoint(path, 2);
    }
    bool runScript()
    {
        lines.clear();
        window.runIndicator()->runStarted(path);
        const bool finished = context().executePythonCode(QStringLiteral("a = 1\nb = 2\nc = 3\n"), nullptr, path);
        window.runIndicator()->runFinished();
        return finished;
    }

    QTemporaryDir folder;
    QString path;
    workbench::MainWindow window;
    std::unique_ptr<workbench::DebuggerDock> dock = std::make_unique<workbench::DebuggerDock>(window);
    std::vector<int> lines;
    std::function<void()> whilePaused;
};

TEST_F(DebuggerDockTest, PauseOpensTheFileAndIsSeenEverywhere)
{
    EXPECT_TRUE(window.editors().isEmpty());
    EXPECT_FALSE(dock->isVisible());
    whilePaused = [this] {
        EXPECT_EQ(window.editors().size(), 1);
        EXPECT_EQ(window.activeEditor()->filename(), path);
        EXPECT_TRUE(dock->isVisible());
        EXPECT_TRUE(window.windowTitle().contains(QStringLiteral("(paused)")));
        const auto labels = window.statusBar()->findChildren<QLabel*>();
        EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->isVisible() && label->text().startsWith(QStringLiteral("Paused at line 2 of script.py"));
        }));
        QTest::keyClick(&window, Qt::Key_F5);
    };
    EXPECT_TRUE(runScript());
    EXPECT_EQ(lines, (std::vector<int>{2, -1}));
    EXPECT_FALSE(window.windowTitle().contains(QStringLiteral("(paused)")));
}

TEST_F(DebuggerDockTest, BreakpointsOfTheEditorStopAndTheLineTurnsGreen)
{
    HVPythonTextEdit* script = window.openScript(path);
    ASSERT_NE(script, nullptr);
    const auto markedLines = [script] {
        std::vector<int> marked;
        for (const QTextEdit::ExtraSelection& selection : script->extraSelections()) {
            const QColor colour = selection.format.background().color();
            if (colour.green() > colour.red() && colour.green() > colour.blue())
                marked.push_back(selection.cursor.blockNumber() + 1);
        }
        return marked;
    };
    script->toggleBreakpoint(3);
    script->moveCursor(QTextCursor::Start);
    whilePaused = [&] {
        EXPECT_EQ(markedLines(), std::vector<int>{lines.back()});
        QTest::keyClick(&window, Qt::Key_F5);
    };
    EXPECT_TRUE(runScript());
    EXPECT_EQ(lines, (std::vector<int>{2, -1, 3, -1}));
    EXPECT_TRUE(markedLines().empty());

    script->toggleBreakpoint(3);
    EXPECT_TRUE(runScript());
    EXPECT_EQ(lines, (std::vector<int>{2, -1}));
}

TEST_F(DebuggerDockTest, ConditionsFromThePanelStayWithTheirBreakpoints)
{
    HVPythonTextEdit* script = window.openScript(path);
    ASSERT_NE(script, nullptr);
    auto* list = dock->findChild<debugger::BreakpointList*>();
    const auto listed = [&] {
        QStringList all;
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            const QTreeWidgetItem* item = list->topLevelItem(row);
            all << item->text(0) + item->text(1) + (item->checkState(0) == Qt::Checked ? "" : "-");
        }
        return all.join(QLatin1Char(' ')).toStdString();
    };
    const std::string name = QFileInfo(path).fileName().toStdString();
    dock->debugger()->removeBreakpoint(path, 2);
    script->toggleBreakpoint(3);
    list->topLevelItem(0)->setText(1, QStringLiteral("x>1"));
    list->topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(listed(), name + ":3x>1-");
    script->moveCursor(QTextCursor::Start);
    QTest::keyClick(script, Qt::Key_Return);
    EXPECT_EQ(listed(), name + ":4x>1-");
    script->selectAll();
    script->cut();
    EXPECT_EQ(listed(), "");
    script->undo();
    EXPECT_EQ(listed(), name + ":4x>1-");
    script->setFilename(path + QStringLiteral("w"));
    EXPECT_EQ(listed(), name + "w:4x>1-");
    script->document()->setModified(false);
}

TEST_F(DebuggerDockTest, OnlyNewBreakpointsEnableAgainWhatTheUserHasSwitchedOff)
{
    HVPythonTextEdit* script = window.openScript(path);
    ASSERT_NE(script, nullptr);
    script->toggleBreakpoint(3);
    dock->debugger()->setDebuggingEnabled(false);
    script->moveCursor(QTextCursor::Start);
    QTest::keyClick(script, Qt::Key_Return);
    EXPECT_EQ(script->breakpoints(), std::set<qint32>{4});
    script->setFilename(path + QStringLiteral("w"));
    EXPECT_TRUE(dock->debugger()->isBreakpointHit(path + QStringLiteral("w"), 4));
    EXPECT_FALSE(dock->debugger()->debuggingEnabled()) << "it only moved";
    script->toggleBreakpoint(1);
    EXPECT_TRUE(dock->debugger()->debuggingEnabled());
    script->document()->setModified(false);
}

TEST_F(DebuggerDockTest, KeysStepAndStop)
{
    std::vector<Qt::Key> keys = {Qt::Key_F10, Qt::Key_F11};
    whilePaused = [&] {
        const Qt::Key key = keys.front();
        keys.erase(keys.begin());
        QTest::keyClick(&window, key);
    };
    EXPECT_TRUE(runScript());
    EXPECT_EQ(lines, (std::vector<int>{2, -1, 3, -1}));

    whilePaused = [&] { QTest::keyClick(&window, Qt::Key_F5, Qt::ShiftModifier); };
    EXPECT_FALSE(runScript());
    EXPECT_NE(recorder.textOf(6).find("KeyboardInterrupt"), std::string::npos);
    // The request is used up: the next script runs.
    EXPECT_FALSE(window.runIndicator()->breathe());

    // Leaving the application ends a paused script as well.
    whilePaused = [&] { window.close(); };
    EXPECT_FALSE(runScript());
}

TEST_F(DebuggerDockTest, UnsavedScriptsHaveNamesOfTheirOwn)
{
    const HVPythonTextEdit* first = window.newScript();
    HVPythonTextEdit* second = window.newScript();
    EXPECT_NE(workbench::scriptName(*first), workbench::scriptName(*second));
    EXPECT_EQ(workbench::scriptName(*first), workbench::scriptName(*first));
    EXPECT_TRUE(workbench::showsScript(*first, workbench::scriptName(*first)));
    EXPECT_FALSE(workbench::showsScript(*second, workbench::scriptName(*first)));
    second->setFilename(path);
    EXPECT_EQ(workbench::scriptName(*second), path);
    EXPECT_TRUE(workbench::showsScript(*second, folder.path() + QStringLiteral("/../") +
                                                    QFileInfo(folder.path()).fileName() +
                                                    QStringLiteral("/script.py")));
}

} // namespace
