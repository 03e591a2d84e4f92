// How far a job is, told from several threads and in parts.
#include "host/jobs/JobContext.h"

#include <thread>
#include <vector>

namespace {

using namespace hv;

TEST(JobContext, StepsFromManyThreadsAddUpToTheWhole)
{
    JobProgress progress;
    JobContext context(progress);
    EXPECT_FALSE(progress.fraction()) << "nobody knows how long it is";
    context.setSteps(7 * 10007);
    EXPECT_EQ(progress.fraction(), 0.0);
    std::vector<std::thread> threads;
    for (int i = 0; i < 7; ++i)
        threads.emplace_back([&context] {
            for (int step = 0; step < 10007; ++step)
                context.advance();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(progress.position(), JobProgress::whole);
    context.advance(1000);
    EXPECT_EQ(progress.fraction(), 1.0) << "more steps than there are";
}

TEST(JobContext, LongLoopsKeepTheirSmallSteps)
{
    JobProgress progress;
    JobContext context(progress);
    context.setSteps(std::int64_t(1) << 40);
    for (int i = 0; i < 1000; ++i)
        context.advance(std::int64_t(1) << 18);
    EXPECT_NEAR(*progress.fraction(), 1000.0 / (1 << 22), 1e-5) << "each of them is less than the shared counter shows";
}

TEST(JobContext, PartsFillTheStepsThatTheyStandFor)
{
    JobProgress progress;
    JobContext context(progress);
    context.setSteps(4);
    {
        JobContext reading(context, 3);
        reading.setSteps(10);
        EXPECT_EQ(progress.fraction(), 0.0);
        reading.advance(5);
        EXPECT_NEAR(*progress.fraction(), 3.0 / 8, 1e-5);
        JobContext inner(reading, 4);
        inner.setSteps(3);
        inner.advance();
        EXPECT_NEAR(*progress.fraction(), 3.0 / 8 + 0.1, 1e-5);
    }
    EXPECT_NEAR(*progress.fraction(), 3.0 / 4, 1e-5) << "what a part leaves out counts as done";
    {
        const JobContext silent(context, 1);
    }
    EXPECT_EQ(progress.position(), JobProgress::whole);
    const JobContext late(context, 1);
    EXPECT_EQ(progress.position(), JobProgress::whole);
}

} // namespace
