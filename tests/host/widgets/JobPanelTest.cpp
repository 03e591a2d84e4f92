// The panel of running jobs.
#include "host/widgets/HVJobPanel.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

namespace {

using namespace hv;

class JobPanel : public ::testing::Test
{
protected:
    void start(const QString& name, int percent = -1, const QString& text = QString())
    {
        const auto work = [percent, text](JobContext& context) -> Result<void> {
            if (percent >= 0) {
                context.setSteps(100);
                context.advance(percent);
            }
            context.setText(text);
            while (!context.cancelled())
                QThread::msleep(1);
            return JobContext::stopped();
        };
        jobs.start({name}, work, nullptr, [this](JobState, Result<void>) { ++ended; });
    }
    QStringList texts() const
    {
        QStringList all;
        for (const QLabel* label : panel.findChildren<QLabel*>())
            if (label->isVisible() && !label->text().isEmpty())
                all << label->text();
        return all;
    }
    template <class Widget>
    std::vector<Widget*> visible() const
    {
        std::vector<Widget*> all;
        for (Widget* widget : panel.findChildren<Widget*>())
            if (widget->isVisible())
                all.push_back(widget);
        return all;
    }

    int ended = 0;
    JobManager jobs{2};
    HVJobPanel panel{&jobs};
};

TEST_F(JobPanel, RowsTellOfEachJobAndNoneOfNoJobs)
{
    panel.resize(500, 300);
    panel.show();
    EXPECT_EQ(texts(), QStringList("No jobs are running"));
    start("Histogram of <Amplitude>", 40, "line 7");
    start("Checking");
    start("Third");
    const QStringList expected{"Histogram of <Amplitude>: line 7", "Checking", "Third", "waiting"};
    ASSERT_TRUE(QTest::qWaitFor([&] { return texts() == expected; }, 20000)) << texts().join('|').toStdString();
    const auto bars = visible<QProgressBar>();
    ASSERT_EQ(bars.size(), 3u);
    EXPECT_NEAR(bars[0]->value() * 100 / bars[0]->maximum(), 40, 1);
    EXPECT_EQ(bars[1]->maximum(), 0) << "nobody knows how long it takes";
    EXPECT_GT(bars[2]->maximum(), 0) << "nothing moves yet";
    jobs.cancelAll();
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts() == QStringList("No jobs are running"); }, 20000));
}

TEST_F(JobPanel, TheButtonOfARowCancelsThatJob)
{
    panel.resize(500, 300);
    panel.show();
    start("a");
    start("b");
    ASSERT_TRUE(QTest::qWaitFor([&] { return visible<QToolButton>().size() == 2; }, 20000));
    QTest::mouseClick(visible<QToolButton>()[1], Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ended == 1; }, 20000));
    EXPECT_EQ(jobs.jobs().front().name, "a");
    EXPECT_TRUE(visible<QPushButton>().empty()) << "one job needs no button for all";
    start("c");
    ASSERT_EQ(visible<QPushButton>().size(), 1u);
    QTest::mouseClick(visible<QPushButton>().front(), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended == 3; }, 20000));
}

TEST_F(JobPanel, ThousandsOfJobsMakeNoThousandsOfRows)
{
    panel.show();
    for (int i = 0; i < 2000; ++i)
        start(QString::number(i));
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts().contains("and 1950 more"); }, 20000));
    EXPECT_EQ(visible<QProgressBar>().size(), 50u);
    jobs.cancelAll();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended == 2000; }, 60000));
}

TEST_F(JobPanel, OutlivesTheJobs)
{
    auto manager = std::make_unique<JobManager>(1);
    HVJobPanel other(manager.get());
    other.show();
    manager.reset();
    other.hide();
    other.show();
    EXPECT_EQ(other.findChild<QLabel*>()->text(), "No jobs are running");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
