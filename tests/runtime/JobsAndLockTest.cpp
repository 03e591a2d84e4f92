// Jobs and the interpreter lock: neither waits for the other.
#include "host/jobs/JobManager.h"
#include "runtime/GilLock.h"
#include "tests/runtime/RuntimeFixture.h"

#include <QSemaphore>
#include <QtTest>

namespace {

using namespace hv;

class JobsAndLock : public fixture::RuntimeTest
{
protected:
    JobManager jobs{2};
};

TEST_F(JobsAndLock, JobsRunToTheirEndWhileTheGuiThreadKeepsTheLock)
{
    context();
    QSemaphore done;
    std::atomic<int> locked = 0;
    int told = 0;
    const auto work = [&](JobContext& progress) -> Result<int> {
        locked += PyGILState_Check();
        progress.setSteps(2);
        progress.advance();
        progress.setText("half way");
        done.release();
        return 1;
    };
    {
        const python::GilLock lock;
        // More than there are threads: the end of each lets the next one begin, without the GUI thread.
        for (int i = 0; i < 20; ++i)
            jobs.start({"job"}, work, nullptr, [&told](JobState, Result<int>) { ++told; });
        EXPECT_TRUE(done.tryAcquire(20, 20000));
        jobs.poll();
        EXPECT_EQ(told, 0);
    }
    EXPECT_EQ(locked, 0);
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told == 20; }, 20000));
}

TEST_F(JobsAndLock, ResultsWaitForAScriptThatOccupiesTheGuiThread)
{
    QSemaphore begun, done;
    int told = 0;
    app().observes = true;
    bool tellsInBetween = false;
    jobs.start(
        {"job"},
        [&](JobContext& progress) -> Result<void> {
            begun.acquire();
            while (!progress.cancelled())
                QThread::msleep(1);
            done.release();
            return JobContext::stopped();
        },
        nullptr, [&told](JobState, Result<void>) { ++told; });
    // The application's breath in the middle of a script.
    app().onBreath = [&] {
        begun.release();
        jobs.cancelAll();
        tellsInBetween = tellsInBetween || told > 0;
        return done.available() > 0;
    };
    EXPECT_FALSE(run("while True: pass")) << "interrupted once the job has ended";
    EXPECT_FALSE(tellsInBetween);
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told == 1; }, 20000));
}

} // namespace
