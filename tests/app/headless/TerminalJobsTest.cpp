// Jobs as text: what a file or pipe gets of them.
#include "app/headless/TerminalJobs.h"

#include "app/headless/TerminalProgress.h"

#include <QFile>
#include <QSemaphore>
#include <QTemporaryFile>
#include <QtTest>

namespace {

using namespace hv;

class TerminalJobsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(file.open());
        progress.emplace(file.handle());
        terminal.emplace(jobs, *progress);
    }
    QString written() const
    {
        QFile all(file.fileName());
        return all.open(QIODevice::ReadOnly) ? QString::fromUtf8(all.readAll()) : QString();
    }
    bool waitFor(const char* pattern)
    {
        return QTest::qWaitFor(
            [&] { return QRegularExpression(QString::fromUtf8(pattern)).match(written()).hasMatch(); }, 20000);
    }
    /// A job that is at a quarter until it is let go.
    void start(const QString& name)
    {
        const auto work = [this](JobContext& context) -> Result<void> {
            context.setSteps(4);
            context.setText("reading");
            context.advance();
            go.acquire();
            return {};
        };
        jobs.start({name}, work, nullptr, [](JobState, Result<void>) {});
    }

    QSemaphore go;
    QTemporaryFile file;
    JobManager jobs{2};
    std::optional<headless::TerminalProgress> progress;
    std::optional<headless::TerminalJobs> terminal;
};

TEST_F(TerminalJobsTest, LinesTellOfProgressAndEnd)
{
    start("Histogram");
    EXPECT_TRUE(waitFor("^Histogram: reading 25 %\n$")) << written().toStdString();
    go.release();
    EXPECT_TRUE(waitFor("\nHistogram: done in \\d+\\.\\d s\n$")) << written().toStdString();
}

TEST_F(TerminalJobsTest, CancelledJobsSaySoAndBarsComeFirst)
{
    HVProgressBarState bar;
    bar.id = 1;
    bar.name = "Lines";
    progress->progressChanged({bar});
    start("a");
    start("b");
    EXPECT_TRUE(QTest::qWaitFor([this] { return jobs.jobs().back().fraction == 0.25; }, 20000));
    QTest::qWait(1500);
    EXPECT_EQ(written(), "Lines\n") << "a second job's worth of time later";
    progress->progressChanged({});
    EXPECT_TRUE(waitFor("\na: reading \\(and 1 more\\) 25 %\n$")) << written().toStdString();
    jobs.cancelAll();
    go.release(2);
    EXPECT_TRUE(waitFor("\na: cancelled after \\d+\\.\\d s\n")) << written().toStdString();
}

} // namespace
