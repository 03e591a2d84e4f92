// A script's progress bars in the workbench, while the script occupies the GUI thread.
#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "app/workbench/RunProgress.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

class RunProgressTest : public fixture::RuntimeTest
{
protected:
    void SetUp() override
    {
        window.resize(900, 600);
        window.addDocument(line);
        window.show();
        window.activateWindow();
        line->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        app().observes = true;
        app().onBreath = [this] {
            const auto act = whileShown;
            if (HVProgressWindow* shown = progress.presenter().window(); shown && shown->windowHandle())
                act(*shown);
            return window.runIndicator()->breathe();
        };
    }
    /// The run as the application brackets it.
    bool runScript(const char* code)
    {
        window.runIndicator()->runStarted("script.py");
        const bool finished = run(code);
        window.runIndicator()->runFinished();
        return finished;
    }
    /// What the window system reports is seen by the next breath.
    static void press(QWidget* widget, Qt::Key key)
    {
        QMetaObject::invokeMethod(
            widget,
            [widget, key] {
                for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
                    qt_handleKeyEvent(widget->windowHandle(), type, key, {}, key == Qt::Key_A ? "a" : QString());
            },
            Qt::QueuedConnection);
    }
    static void click(QWidget* widget)
    {
        QMetaObject::invokeMethod(
            widget,
            [widget] {
                QWindow* native = widget->window()->windowHandle();
                const QPoint global = widget->mapToGlobal(widget->rect().center());
                const QPoint local = native->mapFromGlobal(global);
                qt_handleMouseEvent(native, local, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, {},
                                    ++s_time);
                qt_handleMouseEvent(native, local, global, {}, Qt::LeftButton, QEvent::MouseButtonRelease, {},
                                    ++s_time);
            },
            Qt::QueuedConnection);
    }
    void once(std::function<void(HVProgressWindow&)> act)
    {
        whileShown = [this, act](HVProgressWindow& shown) {
            const auto now = act;
            whileShown = [](HVProgressWindow&) {};
            now(shown);
        };
    }

    static inline int s_time = 1000;
    workbench::MainWindow window;
    QLineEdit* line = new QLineEdit;
    const std::shared_ptr<HVProgressBarMgr> bars = app().progress; // outlives the application of the test
    workbench::RunProgress progress{window, *bars};
    std::function<void(HVProgressWindow&)> whileShown = [](HVProgressWindow&) {};
};

constexpr const char* g_endless = "import strativo_python as sp, time\n"
                                  "bar, inner = sp.ModalProgressBar('Reading lines', 10**9), None\n"
                                  "for i in bar:\n"
                                  "    inner = sp.ModalProgressBar('Traces', 10**9, bar)\n"
                                  "    for j in inner: time.sleep(0.001)\n"
                                  "print(int(i), bar.cancelled(), inner.cancelled())\n";

TEST_F(RunProgressTest, CancelGetsThroughAndOtherInputWaits)
{
    bool painted = false;
    once([&](HVProgressWindow& shown) {
        EXPECT_FALSE(shown.isModal());
        press(&window, Qt::Key_A);
        whileShown = [&](HVProgressWindow& later) {
            painted = painted || later.grab().size() == later.size() * later.devicePixelRatioF();
            click(later.findChild<QPushButton*>());
        };
    });
    EXPECT_TRUE(runScript(g_endless));
    EXPECT_EQ(recorder.textOf(5), "0 True True\n");
    EXPECT_TRUE(painted);
    EXPECT_FALSE(progress.presenter().isShown());
    EXPECT_FALSE(app().progress->isAnyRunning());
    EXPECT_TRUE(QTest::qWaitFor([this] { return line->text() == "a"; }, 2000)) << "typed during the run";
}

TEST_F(RunProgressTest, EscapeCancelsFromWhateverWindow)
{
    once([&](HVProgressWindow&) { press(&window, Qt::Key_Escape); });
    EXPECT_TRUE(runScript(g_endless));
    once([&](HVProgressWindow& shown) { press(&shown, Qt::Key_Escape); });
    EXPECT_TRUE(runScript(g_endless));
    once([&](HVProgressWindow& shown) { shown.windowHandle()->close(); });
    EXPECT_TRUE(runScript(g_endless));
    EXPECT_EQ(recorder.textOf(5), "0 True True\n0 True True\n0 True True\n");
}

TEST_F(RunProgressTest, SlowStepsAndLoopsThatIgnoreTheCancelLeaveNoWindow)
{
    // The window comes in the middle of the only step.
    bool shown = false;
    once([&](HVProgressWindow& progressWindow) {
        shown = true;
        progressWindow.reject();
    });
    EXPECT_TRUE(runScript("import strativo_python as sp, time\n"
                          "bar = sp.ModalProgressBar('One step', 0)\n"
                          "it = iter(bar); next(it)\n"
                          "for n in range(20): time.sleep(0.05)\n"));
    EXPECT_TRUE(shown);
    EXPECT_FALSE(progress.presenter().isShown());
    EXPECT_FALSE(app().progress->isAnyRunning());
    EXPECT_TRUE(runScript("print(list(it), bar.cancelled())"));
    EXPECT_EQ(recorder.textOf(5), "[] True\n") << "it learns it later";
}

TEST_F(RunProgressTest, AnExceptionLeavesNoneOpen)
{
    whileShown = [](HVProgressWindow& shown) { EXPECT_TRUE(shown.isVisible()); };
    EXPECT_FALSE(runScript("import strativo_python as sp, time\n"
                           "keep = sp.ModalProgressBar('kept', 3); it = iter(keep); next(it)\n"
                           "for i in sp.ModalProgressBar('fails', 100, keep):\n"
                           "    time.sleep(0.05)\n"
                           "    if int(i) == 15: 1/0\n"));
    EXPECT_NE(recorder.textOf(6).find("ZeroDivisionError"), std::string::npos);
    EXPECT_FALSE(app().progress->isAnyRunning());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !progress.presenter().isShown(); }, 1000));
    EXPECT_TRUE(run("del i, it, keep"));
}

} // namespace
