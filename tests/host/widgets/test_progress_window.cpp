// The progress window and when it comes and goes.
#include "host/widgets/HVProgressPresenter.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {

using namespace std::chrono_literals;

class ProgressWindow : public ::testing::Test
{
protected:
    ProgressWindow()
    {
        s_time = 1h;
        main.show();
    }
    static HVProgressBarMgr::Time time() { return s_time; }
    int open(const QString& name, int steps = 100, int parent = IProgressService::NoBar)
    {
        return manager.create(steps, name, parent, true, 0);
    }
    /// Time passes, with a breath now and then.
    void pass(HVProgressBarMgr::Time span)
    {
        for (const auto end = s_time + span; s_time < end;) {
            s_time += 10ms;
            manager.poll();
            presenter.refresh();
        }
    }
    QStringList texts()
    {
        QStringList all;
        for (const QLabel* label : presenter.window()->findChildren<QLabel*>())
            if (label->isVisible() && !label->text().isEmpty())
                all << label->text();
        return all;
    }

    static inline HVProgressBarMgr::Time s_time;
    QWidget main;
    HVProgressBarMgr manager{&time};
    HVProgressPresenter presenter{manager, &main};
};

TEST_F(ProgressWindow, ShowsOneRowPerBar)
{
    presenter.setOccupied(true);
    const int outer = open("<b>Lines</b>\nof the survey"), inner = open("Traces", 0, outer);
    pass(100ms);
    for (int i = 0; i < 25; ++i) {
        manager.increment(outer, 1);
        s_time += 1s;
    }
    pass(50ms);
    ASSERT_TRUE(presenter.isShown());
    EXPECT_EQ(texts(), (QStringList{"<b>Lines</b> of the survey", "about 1 min left", "Traces"}));
    const auto bars = presenter.window()->findChildren<QProgressBar*>();
    ASSERT_EQ(bars.size(), 2);
    EXPECT_EQ(bars[0]->text(), "25%");
    EXPECT_EQ(bars[1]->maximum(), 0) << "of unknown length";
    EXPECT_GT(bars[1]->mapTo(presenter.window(), QPoint()).x(), bars[0]->mapTo(presenter.window(), QPoint()).x());

    const QSize size = presenter.window()->size();
    manager.close(inner);
    pass(100ms);
    EXPECT_FALSE(bars[1]->isVisible());
    EXPECT_EQ(presenter.window()->size(), size) << "inner loops do not shake the window";
    for (int i = 0; i < 10; ++i)
        open("Deep", 3, outer);
    pass(100ms);
    EXPECT_EQ(presenter.window()->findChildren<QProgressBar*>().size(), 6);
    EXPECT_TRUE(texts().contains("and 5 more"));
}

TEST_F(ProgressWindow, ComesLateAndNeverJustFlashes)
{
    presenter.setOccupied(true);
    manager.close(open("short"));
    pass(1s);
    EXPECT_EQ(presenter.window(), nullptr);
    const int first = open("first");
    pass(390ms);
    EXPECT_FALSE(presenter.isShown());
    pass(70ms);
    EXPECT_TRUE(presenter.isShown());
    EXPECT_FALSE(presenter.window()->isModal()) << "input would be thrown away instead of held";
    const QPointer<QWidget> window = presenter.window();
    manager.close(first);
    pass(300ms);
    const int second = open("second");
    pass(100ms);
    EXPECT_EQ(presenter.window(), window) << "one window for a series of bars";
    EXPECT_EQ(texts(), QStringList("second"));
    manager.close(second);
    pass(600ms);
    EXPECT_FALSE(presenter.isShown());

    open("failed");
    pass(500ms);
    ASSERT_TRUE(presenter.isShown());
    manager.closeAll();
    presenter.setOccupied(false);
    EXPECT_TRUE(presenter.isShown());
    pass(250ms);
    EXPECT_FALSE(presenter.isShown()) << "the run is over";
}

TEST_F(ProgressWindow, CancelButtonEscapeAndCloseCancelEverything)
{
    for (const int way : {0, 1, 2}) {
        presenter.setOccupied(true);
        const int outer = open("outer"), inner = open("inner", 3, outer), other = open("other");
        pass(500ms);
        ASSERT_TRUE(presenter.isShown());
        auto* button = presenter.window()->findChild<QPushButton*>();
        if (way == 0)
            QTest::mouseClick(button, Qt::LeftButton);
        else if (way == 1)
            QTest::keyClick(presenter.window(), Qt::Key_Escape);
        else
            presenter.window()->close();
        for (const int id : {outer, inner, other})
            EXPECT_TRUE(manager.wasCancelled(id)) << way;
        pass(100ms);
        EXPECT_TRUE(presenter.isShown()) << "until the loops have noticed";
        EXPECT_FALSE(button->isEnabled());
        presenter.setOccupied(false);
        EXPECT_FALSE(presenter.isShown()) << "and no longer than they could have";
        EXPECT_FALSE(manager.isAnyRunning());
    }
}

TEST_F(ProgressWindow, IsModalWithoutAScriptAndStaysAwayWhilePaused)
{
    presenter.setPaused(true);
    open("left open by a script");
    pass(1s);
    EXPECT_FALSE(presenter.isShown());
    presenter.setPaused(false);
    pass(100ms);
    ASSERT_TRUE(presenter.isShown());
    EXPECT_EQ(presenter.window()->windowModality(), Qt::ApplicationModal);
    QTest::mouseClick(presenter.window()->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(presenter.isShown());
    EXPECT_FALSE(manager.isAnyRunning());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);

    // In an event loop the presenter looks by itself.
    open("alone");
    s_time += 500ms;
    EXPECT_TRUE(QTest::qWaitFor([this] { return presenter.isShown(); }, 2000));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
