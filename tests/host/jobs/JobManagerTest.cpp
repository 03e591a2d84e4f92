// Jobs on their threads: results, failures, cancelling, dependencies, the end of the application.
#include "host/jobs/JobManager.h"

#include "host/services/HVEventBus.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QtTest>

#include <new>

namespace {

using namespace hv;
using namespace std::chrono_literals;

const ObjectKey g_cube{ObjectKind::Volume, "Cube"};
const ObjectKey g_top{ObjectKind::Horizon3d, "Top"};

/// Asks now and then whether it is to stop.
Result<int> untilCancelled(JobContext& context)
{
    while (!context.cancelled())
        std::this_thread::sleep_for(1ms);
    return JobContext::stopped();
}

class Jobs : public ::testing::Test, public HVEventBus::Sink
{
protected:
    Jobs() { HVEventBus::instance().addSink(this); }
    ~Jobs() override { HVEventBus::instance().removeSink(this); }
    void receive(const HVEventBus::Message& message) override
    {
        messages << QString::number(message.level) + ' ' +
                        QString::fromUtf8(message.text.data(), int(message.text.size()));
    }

    template <class Work>
    JobId start(const QString& name, Work work, std::vector<ObjectKey> dependsOn = {}, QObject* receiver = nullptr)
    {
        return manager->start(JobInfo{name, std::move(dependsOn)}, std::move(work), receiver,
                              [this, name](JobState state, const auto& outcome) {
                                  EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
                                  ends << name + ' ' + QString::number(int(state)) + ' ' +
                                              (outcome ? QStringLiteral("value") : outcome.failure().sentence);
                              });
    }
    static QString end(const QString& name, JobState state, const QString& rest)
    {
        return name + ' ' + QString::number(int(state)) + ' ' + rest;
    }
    static QString cancelled(const QString& name) { return end(name, JobState::Cancelled, name + " was cancelled."); }
    bool waitForEnds(int count)
    {
        return QTest::qWaitFor([&] { return ends.size() >= count; }, 20000);
    }
    bool waitUntilRunning(std::size_t count)
    {
        return QTest::qWaitFor(
            [&] {
                const auto jobs = manager->jobs();
                return std::size_t(std::count_if(jobs.begin(), jobs.end(), [](const JobStatus& job) {
                           return job.state == JobState::Running;
                       })) == count;
            },
            20000);
    }

    std::unique_ptr<JobManager> manager = std::make_unique<JobManager>(2);
    QStringList ends;
    QStringList messages;
};

TEST_F(Jobs, ResultsReachTheGuiThreadWhenItsLoopRuns)
{
    QThread* thread = nullptr;
    int value = 0;
    manager->start(
        {"Sum"},
        [&thread](JobContext&) -> Result<int> {
            thread = QThread::currentThread();
            return 42;
        },
        nullptr, [&value](JobState, Result<int> sum) { value = *sum; });
    QThread::msleep(50);
    EXPECT_EQ(value, 0) << "nobody is called in the middle of something else";
    EXPECT_TRUE(QTest::qWaitFor([&value] { return value == 42; }, 20000));
    EXPECT_NE(thread, QThread::currentThread());
    EXPECT_TRUE(manager->isIdle());
}

TEST_F(Jobs, FailuresAreToldToTheUserAndTheStarter)
{
    start("Reading", [](JobContext&) -> Result<int> { return Failure("The file \"a\" ends too soon."); });
    start("Sorting", [](JobContext&) -> Result<void> { throw std::bad_alloc(); });
    start("Walking", [](JobContext&) -> Result<void> { throw std::out_of_range("past the end"); });
    ASSERT_TRUE(waitForEnds(3));
    ends.sort();
    messages.sort();
    EXPECT_EQ(ends, QStringList({end("Reading", JobState::Failed, "The file \"a\" ends too soon."),
                                 end("Sorting", JobState::Failed, "There is not enough memory."),
                                 end("Walking", JobState::Failed, "past the end")}));
    EXPECT_EQ(messages,
              QStringList({"1 Reading failed. The file \"a\" ends too soon.",
                           "1 Sorting failed. There is not enough memory.", "1 Walking failed. past the end"}));
}

TEST_F(Jobs, CancellingReachesAJobThatAsks)
{
    const JobId id = start("Endless", untilCancelled);
    ASSERT_TRUE(waitUntilRunning(1));
    QElapsedTimer clock;
    clock.start();
    manager->cancel(id);
    EXPECT_TRUE(manager->jobs().front().cancelling);
    ASSERT_TRUE(waitForEnds(1));
    EXPECT_LT(clock.elapsed(), 200);
    EXPECT_EQ(ends, QStringList(cancelled("Endless")));
    EXPECT_EQ(messages, QStringList()) << "the user knows";
    manager->cancel(id);
    manager->cancel(12345);
}

TEST_F(Jobs, WorkThatNoticesTooLateIsCancelledAllTheSame)
{
    QSemaphore go;
    const JobId id = start("Deaf", [&go](JobContext&) -> Result<int> {
        go.acquire();
        return 42;
    });
    ASSERT_TRUE(waitUntilRunning(1));
    manager->cancel(id);
    go.release();
    ASSERT_TRUE(waitForEnds(1));
    EXPECT_EQ(ends, QStringList(cancelled("Deaf")));
}

TEST_F(Jobs, WaitingJobsKeepTheirOrderAndAreCancelledWithoutAThread)
{
    QSemaphore go;
    std::atomic<int> worked = 0;
    const auto work = [&](JobContext&) -> Result<void> {
        ++worked;
        go.acquire();
        return {};
    };
    for (const char* name : {"a", "b", "c", "d"})
        start(name, work);
    ASSERT_TRUE(waitUntilRunning(2));
    std::vector<JobStatus> jobs = manager->jobs();
    ASSERT_EQ(jobs.size(), 4u);
    EXPECT_EQ(jobs[2].state, JobState::Waiting);
    manager->cancel(jobs[2].id);
    ASSERT_TRUE(waitForEnds(1));
    EXPECT_EQ(ends, QStringList(cancelled("c"))) << "while both threads are taken";
    go.release();
    ASSERT_TRUE(waitForEnds(2));
    ASSERT_TRUE(waitUntilRunning(2));
    EXPECT_EQ(manager->jobs().back().name, "d") << "the one that was cancelled took no thread";
    go.release(2);
    ASSERT_TRUE(waitForEnds(4));
    EXPECT_EQ(worked, 3);
}

TEST_F(Jobs, AnObjectThatGoesTakesItsJobsAlong)
{
    start("cube and top", untilCancelled, {g_cube, g_top});
    start("cube", untilCancelled, {g_cube});
    const JobId third = start("nothing", untilCancelled);
    manager->cancelDependents(g_top);
    ASSERT_TRUE(waitForEnds(1));
    EXPECT_EQ(ends, QStringList(cancelled("cube and top")));
    manager->cancelDependents();
    ASSERT_TRUE(waitForEnds(2));
    EXPECT_EQ(ends.last(), cancelled("cube"));
    ASSERT_EQ(manager->jobs().size(), 1u);
    EXPECT_EQ(manager->jobs().front().id, third);
}

TEST_F(Jobs, AReceiverThatGoesIsNotCalled)
{
    auto receiver = std::make_unique<QObject>();
    start("for a window", untilCancelled, {}, receiver.get());
    ASSERT_TRUE(waitUntilRunning(1));
    receiver.reset();
    EXPECT_TRUE(QTest::qWaitFor([this] { return manager->isIdle(); }, 20000));
    EXPECT_EQ(ends, QStringList());
}

TEST_F(Jobs, ProgressIsSeenWhileItRunsAndNothingTicksAtRest)
{
    QSemaphore go;
    start("Steps", [&go](JobContext& context) -> Result<void> {
        context.setSteps(4);
        context.setText("first line");
        context.advance();
        go.acquire();
        return {};
    });
    QSignalSpy changes(manager.get(), &JobManager::changed);
    EXPECT_TRUE(QTest::qWaitFor([this] { return manager->jobs().front().fraction == 0.25; }, 20000));
    EXPECT_EQ(manager->jobs().front().text, "first line");
    changes.clear();
    EXPECT_TRUE(changes.wait(20000)) << "also when nothing but time has passed";
    go.release();
    ASSERT_TRUE(waitForEnds(1));
    changes.clear();
    QTest::qWait(250);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(Jobs, LeavingCancelsAndCallsNobody)
{
    std::atomic<int> stopped = 0;
    const auto work = [&stopped](JobContext& context) -> Result<int> {
        Result<int> outcome = untilCancelled(context);
        ++stopped;
        return outcome;
    };
    for (const char* name : {"a", "b", "c"})
        start(name, work);
    ASSERT_TRUE(waitUntilRunning(2));
    manager.reset();
    EXPECT_EQ(stopped, 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, QStringList());
}

TEST_F(Jobs, LeavingDoesNotWaitForWorkThatNeverAsks)
{
    QSemaphore go;
    QSemaphore done;
    auto snapshot = std::make_shared<int>(42);
    start("Deaf", [&go, &done, snapshot](JobContext&) -> Result<int> {
        go.acquire();
        const int value = *snapshot;
        done.release();
        return value;
    });
    ASSERT_TRUE(waitUntilRunning(1));
    manager.reset();
    go.release();
    EXPECT_TRUE(done.tryAcquire(1, 20000)) << "it has what it needs";
    EXPECT_TRUE(QTest::qWaitFor([&snapshot] { return snapshot.use_count() == 1; }, 20000));
}

TEST_F(Jobs, HandlersMayStartTheNextJob)
{
    int value = 0;
    const auto work = [](JobContext&) -> Result<int> { return 1; };
    manager->start({"first"}, work, nullptr, [&](JobState, Result<int> first) {
        manager->start({"second"}, work, nullptr,
                       [&value, got = *first](JobState, Result<int> second) { value = got + *second; });
    });
    EXPECT_TRUE(QTest::qWaitFor([&value] { return value == 2; }, 20000));
}

} // namespace
