#include "editor/HVPythonDebugger.h"
#include "editor/debugger/PythonValueDelegate.h"
#include "editor/debugger/VariableTreeModel.h"
#include "runtime/GilLock.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>
#include <QTreeView>
#include <QtTest>

#include <cfloat>

namespace {

class DebuggerPanelTest : public fixture::RuntimeTest
{
protected:
    void SetUp() override
    {
        panel = new HVPythonDebugger;
        panel->setDebuggingEnabled(true);
        QObject::connect(panel, &HVPythonDebugger::signalBreakpointHit, panel, [this](int line) {
            lines.push_back(line);
            // While the script is paused, from the nested event loop.
            if (line != -1 && whilePaused)
                QTimer::singleShot(0, whilePaused);
        });
    }
    void TearDown() override
    {
        delete panel;
        RuntimeTest::TearDown();
    }

    bool runWith(std::vector<int> breakpoints, const char* code)
    {
        for (const int line : breakpoints)
            panel->addBreakpoint(QStringLiteral("script.py"), line);
        lines.clear();
        return run(code);
    }
    QPushButton* continueButton() { return panel->findChild<QPushButton*>(); }
    QTreeView* tree()
    {
        for (auto* view : panel->findChildren<QTreeView*>())
            if (qobject_cast<VariableTreeModel*>(view->model()))
                return view;
        return nullptr;
    }
    VariableTreeModel* model() { return qobject_cast<VariableTreeModel*>(tree()->model()); }
    QModelIndex cell(const char* name, int column, const QModelIndex& parent = {})
    {
        QModelIndex found;
        for (int row = 0; row < model()->rowCount(parent); ++row)
            if (model()->index(row, 0, parent).data().toString() == QLatin1String(name))
                found = model()->index(row, column, parent);
        return found;
    }
    std::string text(const char* name, int column = VariableTreeModel::Value, const QModelIndex& parent = {})
    {
        return cell(name, column, parent).data().toString().toStdString();
    }
    /// Shows variables without pausing, from the locals of an executed text.
    void show(const char* code)
    {
        const python::GilLock lock;
        PyObject* names = PyDict_New();
        PyDict_SetItemString(names, "__builtins__", PyEval_GetBuiltins());
        PyObject* done = PyRun_String(code, Py_file_input, names, names);
        ASSERT_TRUE(done);
        Py_DECREF(done);
        PyObject* globals = PyDict_New();
        panel->populateVariables(nullptr, globals, names);
        Py_DECREF(globals);
        Py_DECREF(names);
    }

    QPointer<HVPythonDebugger> panel;
    std::vector<int> lines;
    std::function<void()> whilePaused;
};

TEST_F(DebuggerPanelTest, PausesShowsAndContinues)
{
    EXPECT_EQ(HVPythonDebugger::instance(), panel);
    EXPECT_FALSE(continueButton()->isEnabled());
    EXPECT_EQ(continueButton()->text(), QStringLiteral("Continue"));
    int pauses = 0;
    whilePaused = [&] {
        ++pauses;
        EXPECT_TRUE(panel->isWaiting());
        EXPECT_EQ(panel->pausedFile(), QStringLiteral("script.py"));
        EXPECT_TRUE(tree()->isEnabled());
        EXPECT_EQ(text("number"), std::to_string(pauses));
        EXPECT_EQ(text("number", VariableTreeModel::Type), "int");
        EXPECT_GT(cell("number", VariableTreeModel::ReferenceCount).data().toLongLong(), 0);
        EXPECT_EQ(text("_x"), "5");
        EXPECT_FALSE(cell("_private__", 0).isValid());
        EXPECT_FALSE(cell("__name__", 0).isValid());
        // Globals stand before locals.
        EXPECT_LT(cell("_x", 0).row(), cell("number", 0).row());
        QTest::mouseClick(continueButton(), Qt::LeftButton);
        EXPECT_FALSE(continueButton()->isEnabled());
    };
    const char* script = "_x = 5\n"
                         "_private__ = 6\n"
                         "def f(number):\n"
                         "    return number\n"
                         "f(1), f(2)\n";
    EXPECT_TRUE(runWith({4}, script));
    const std::vector<int> expected = {4, -1, 4, -1};
    EXPECT_EQ(lines, expected);
    EXPECT_FALSE(panel->isWaiting());
    EXPECT_FALSE(tree()->isEnabled());
    EXPECT_TRUE(panel->pausedFile().isEmpty());

    panel->removeBreakpoint(QStringLiteral("script.py"), 4);
    panel->removeBreakpoint(QStringLiteral("script.py"), 4);
    EXPECT_FALSE(panel->isBreakpointHit(QStringLiteral("script.py"), 4));
    panel->addBreakpoint(QStringLiteral("Script.py"), 4);
    EXPECT_TRUE(runWith({}, script));
    EXPECT_TRUE(lines.empty());
    panel->addBreakpoint(QStringLiteral("script.py"), 4);
    panel->setDebuggingEnabled(false);
    EXPECT_TRUE(runWith({}, script));
    EXPECT_TRUE(lines.empty());
}

TEST_F(DebuggerPanelTest, CommandsStepAndStop)
{
    std::vector<int> order = {1, 2, 4}; // over, into, stop
    whilePaused = [&] {
        const int command = order.empty() ? 0 : order.front();
        order.erase(order.begin(), order.begin() + (order.empty() ? 0 : 1));
        panel->commands()[command]->trigger();
    };
    EXPECT_FALSE(runWith({3}, "def f():\n    return 1\na = 1\nb = f()\nc = 2\n"));
    const std::vector<int> expected = {3, -1, 4, -1, 2, -1};
    EXPECT_EQ(lines, expected);
    EXPECT_NE(recorder.textOf(6).find("KeyboardInterrupt"), std::string::npos);
    EXPECT_FALSE(panel->commands()[0]->isEnabled());

    whilePaused = [&] { panel->runTo(QStringLiteral("script.py"), 5); };
    EXPECT_TRUE(runWith({}, "def f():\n    return 1\na = 1\nb = f()\nc = 2\n"));
    const std::vector<int> ran = {3, -1, 5, -1};
    EXPECT_EQ(lines, ran);
}

TEST_F(DebuggerPanelTest, CallsSwitchTheVariablesAndModuleNamesComeOnce)
{
    whilePaused = [&] {
        QTreeView* calls = nullptr;
        for (auto* view : panel->findChildren<QTreeView*>())
            if (view->model()->headerData(0, Qt::Horizontal).toString() == QStringLiteral("Function"))
                calls = view;
        ASSERT_TRUE(calls);
        ASSERT_EQ(calls->model()->rowCount(), 3);
        EXPECT_EQ(text("n"), "7");
        const QSignalSpy chosen(panel, &HVPythonDebugger::placeChosen);
        calls->setCurrentIndex(calls->model()->index(1, 0));
        EXPECT_EQ(text("m"), "6");
        EXPECT_FALSE(cell("n", 0).isValid());
        ASSERT_EQ(chosen.size(), 1);
        EXPECT_EQ(chosen[0][1].toInt(), 4);
        calls->setCurrentIndex(calls->model()->index(2, 0));
        int shown = 0;
        for (int row = 0; row < model()->rowCount(); ++row)
            shown += model()->index(row, 0).data().toString() == QStringLiteral("g") && !tree()->isRowHidden(row, {});
        EXPECT_EQ(shown, 1);
        panel->commands()[0]->trigger();
    };
    EXPECT_TRUE(runWith({2}, "def f(n):\n    return n\ndef g(m):\n    return f(m + 1)\ntop = g(6)\ntop = g(6)\n"));
}

TEST_F(DebuggerPanelTest, SurvivesBeingClosedAndDestroyedWhileWaiting)
{
    whilePaused = [&] {
        panel->close();
        EXPECT_TRUE(panel->isWaiting());
        panel->setDebuggingEnabled(false);
        EXPECT_TRUE(panel->isWaiting());
        panel->commands()[0]->trigger();
    };
    EXPECT_TRUE(runWith({1}, "x = 1\nx = 2\n"));
    EXPECT_EQ(lines.size(), 2U);

    panel->setDebuggingEnabled(true);
    whilePaused = [&] { delete panel; };
    EXPECT_TRUE(runWith({1}, "x = 1\nx = 3\nprint(x)\n"));
    EXPECT_EQ(lines.size(), 1U);
    EXPECT_EQ(HVPythonDebugger::instance(), nullptr);
    EXPECT_EQ(recorder.textOf(5), "3\n");
    EXPECT_EQ(HVPythonDebugger::tracer_fn(nullptr, nullptr, PyTrace_LINE, nullptr), 0);
}

TEST_F(DebuggerPanelTest, LeavesItsSubWindowAndReachesOverModalDialogs)
{
    QMdiArea area;
    QMdiSubWindow* document = area.addSubWindow(panel);
    area.show();
    document->setAttribute(Qt::WA_DeleteOnClose);
    panel->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(panel);
    EXPECT_FALSE(panel->parentWidget());
    EXPECT_TRUE(area.subWindowList().isEmpty());

    QMainWindow window;
    auto* dock = new QDockWidget(&window);
    dock->setWidget(panel);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    window.show();
    QDialog dialog(&window);
    whilePaused = [&] {
        EXPECT_NE(panel->window(), &window);
        EXPECT_EQ(QApplication::activeModalWidget(), panel->window());
        panel->window()->close();
        EXPECT_TRUE(panel->isVisible());
        QTest::mouseClick(continueButton(), Qt::LeftButton);
    };
    QTimer::singleShot(0, &dialog, [&] {
        EXPECT_TRUE(runWith({1}, "x = 1\n"));
        EXPECT_EQ(dock->widget(), panel);
        dialog.accept();
    });
    dialog.exec();
    EXPECT_EQ(lines.size(), 2U);
    panel->setParent(nullptr);
}

TEST_F(DebuggerPanelTest, TreeHasOneLevelOfAttributesAndTheEditorsOfTheTypes)
{
    show("class P:\n"
         "    shared = 1\n"
         "    def method(self): pass\n"
         "    @property\n"
         "    def broken(self): raise RuntimeError\n"
         "    @property\n"
         "    def endless(self):\n"
         "        while True: pass\n"
         "p = P()\n"
         "p.own = [1]\n"
         "p._hidden__ = 2\n"
         "flag, count, ratio, name, nothing = True, 3, 0.5, 'abc', None\n");
    const QModelIndex p = cell("p", 0);
    EXPECT_TRUE(model()->hasChildren(p));
    EXPECT_FALSE(model()->hasChildren(cell("nothing", 0)));
    EXPECT_EQ(text("own", VariableTreeModel::Value, p), "[1]");
    EXPECT_EQ(text("shared", VariableTreeModel::Value, p), "1");
    EXPECT_EQ(model()->rowCount(p), 2);
    EXPECT_EQ(model()->rowCount(cell("own", 0, p)), 0);
    EXPECT_EQ(model()->rowCount(p.siblingAtColumn(1)), 0);
    EXPECT_EQ(model()->parent(cell("own", 2, p)), p);

    QWidget parent;
    PythonValueDelegate delegate;
    const auto editorFor = [&](const char* variable) {
        return delegate.createEditor(&parent, {}, cell(variable, VariableTreeModel::Value));
    };
    auto* flag = qobject_cast<QComboBox*>(editorFor("flag"));
    ASSERT_TRUE(flag);
    EXPECT_EQ(flag->itemText(0) + flag->itemText(1), QStringLiteral("TrueFalse"));
    auto* count = qobject_cast<QSpinBox*>(editorFor("count"));
    ASSERT_TRUE(count);
    EXPECT_EQ(count->minimum(), INT_MIN);
    auto* ratio = qobject_cast<QDoubleSpinBox*>(editorFor("ratio"));
    ASSERT_TRUE(ratio);
    EXPECT_EQ(ratio->decimals(), 10);
    EXPECT_EQ(ratio->maximum(), DBL_MAX);
    for (const char* refused : {"0", "0.0000000000", "-1"}) {
        QString entered = QLatin1String(refused);
        int position = 0;
        EXPECT_NE(ratio->validate(entered, position), QValidator::Acceptable) << refused;
    }
    EXPECT_TRUE(qobject_cast<QLineEdit*>(editorFor("name")));
    EXPECT_FALSE(editorFor("p"));
    const QModelIndex value = cell("count", VariableTreeModel::Value);
    EXPECT_TRUE(model()->flags(value).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model()->flags(value.siblingAtColumn(0)).testFlag(Qt::ItemIsEditable));
    count->setValue(99);
    delegate.setModelData(count, model(), value);
    EXPECT_EQ(text("count"), "3");
    model()->releaseValues();
    EXPECT_EQ(text("count"), "3");
}

TEST_F(DebuggerPanelTest, ValuesCannotHoldTheApplicationUp)
{
    QElapsedTimer clock;
    clock.start();
    show("import time, numpy, array\n"
         "class Raises:\n"
         "    def __repr__(self): raise ValueError('no')\n"
         "class Endless:\n"
         "    def __repr__(self):\n"
         "        while True:\n"
         "            try:\n"
         "                time.sleep(0.01)\n"
         "            except Exception: pass\n"
         "class Deep:\n"
         "    def __repr__(self): return repr(self)\n"
         "class Wrong:\n"
         "    def __repr__(self): return 5\n"
         "raises, deep, wrong = Raises(), Deep(), Wrong()\n"
         "endless = [Endless() for _ in range(5)]\n"
         "slow = Endless()\n"
         "big, long, own = list(range(10**6)), 'é' * 10**6, []\n"
         "own.append(own)\n"
         "dictionary = dict.fromkeys(range(10**5))\n"
         "lonely = '\\ud800'\n"
         "digits = 10 ** 5000\n"
         "cube = numpy.full((30, 20, 10), 0.5, 'f4')\n"
         "cube[0, 0, 0] = -2; cube[1, 1, 1] = numpy.nan\n"
         "few = numpy.array([1, 2])\n"
         "strided = cube[::2]\n"
         "numbers = array.array('h', range(100))\n");
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_EQ(text("raises"), "<repr raised ValueError>");
    EXPECT_EQ(text("deep"), "<repr raised RecursionError>");
    EXPECT_EQ(text("wrong"), "<repr raised TypeError>");
    EXPECT_EQ(text("slow"), "<repr took too long>");
    EXPECT_EQ(text("big").substr(0, 13), "[0, 1, 2, 3, ");
    EXPECT_NE(text("big").find("(1000000)"), std::string::npos);
    EXPECT_LT(text("long").size(), 4000U);
    EXPECT_EQ(text("own"), "[[...]]");
    EXPECT_EQ(text("dictionary"), "<dict of 100000 elements>");
    EXPECT_EQ(text("lonely"), "'\\ud800'");
    EXPECT_EQ(text("digits"), "<repr raised ValueError>");
    EXPECT_EQ(text("cube"), "float32 (30, 20, 10), -2 to 0.5");
    EXPECT_EQ(text("strided"), "float32 (15, 20, 10)");
    EXPECT_EQ(text("few"), "array([1, 2])");
    EXPECT_EQ(text("numbers"), "int16 (100), 0 to 99");
    // The time limit's signal does not reach code that runs afterwards.
    EXPECT_TRUE(run("import time\ntime.sleep(0.3)\n"));
}

} // namespace
