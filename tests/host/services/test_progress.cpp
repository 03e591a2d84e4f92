// The progress bar manager: nesting, what observers hear and how often, the time left.
#include "host/services/HVProgressBarMgr.h"

#include <cmath>
#include <thread>

namespace {

using namespace std::chrono_literals;

class Progress : public ::testing::Test, public HVProgressObserver
{
protected:
    Progress()
    {
        s_time = 1h;
        manager.addObserver(this);
    }
    static HVProgressBarMgr::Time time() { return s_time; }
    int open(int steps, int parent = IProgressService::NoBar) { return manager.create(steps, "bar", parent, true, 0); }
    void progressChanged(const std::vector<HVProgressBarState>& bars) override
    {
        ++tellings;
        last = bars;
    }
    void progressStarted() override { ++started; }
    void progressClosed(const HVProgressBarState& bar) override { closed.push_back(bar.id); }
    std::vector<int> shown()
    {
        s_time += 1s;
        manager.poll();
        std::vector<int> ids;
        for (const HVProgressBarState& bar : last)
            ids.push_back(bar.depth * 1000 + bar.id);
        return ids;
    }

    static inline HVProgressBarMgr::Time s_time;
    int started = 0;
    int tellings = 0;
    std::vector<HVProgressBarState> last;
    std::vector<int> closed;
    HVProgressBarMgr manager{&time};
};

TEST_F(Progress, BarsNestAndGoWithTheirParents)
{
    const int a = open(10), b = open(10), a1 = open(10, a), a11 = open(10, a1), a2 = open(10, a);
    const int orphan = open(10, 1000000);
    EXPECT_EQ(shown(), (std::vector<int>{a, 1000 + a1, 2000 + a11, 1000 + a2, b, orphan}));
    manager.cancel(a1);
    EXPECT_TRUE(manager.wasCancelled(a1) && manager.wasCancelled(a11));
    EXPECT_FALSE(manager.wasCancelled(a) || manager.wasCancelled(a2));
    EXPECT_TRUE(manager.wasCancelled(open(3, a11))) << "too late";
    manager.close(a);
    EXPECT_EQ(shown(), (std::vector<int>{b, orphan}));
    EXPECT_EQ(closed, (std::vector<int>{a, a1, a11, a2})) << "those that were told of";
    EXPECT_TRUE(manager.wasCancelled(a11)) << "its loop is still to learn it";
    EXPECT_TRUE(manager.wasCancelled(open(3, a11)));
    EXPECT_FALSE(manager.wasCancelled(a));
    const int root = open(10, a);
    EXPECT_EQ(shown().back(), root) << "a closed parent is none";
    for (const int id : {a, b, a1, a11, a2, orphan})
        EXPECT_NE(root, id);
    manager.cancelAll();
    manager.dropCancelled();
    EXPECT_FALSE(manager.isAnyRunning());
    EXPECT_TRUE(manager.wasCancelled(b));
    EXPECT_TRUE(last.empty());
    open(3);
    open(3);
    manager.closeAll();
    EXPECT_FALSE(manager.isAnyRunning());
}

TEST_F(Progress, ObserversHearTwentyTimesASecondAtMost)
{
    const int id = open(1000000);
    EXPECT_EQ(tellings, 1);
    for (int i = 0; i < 1000000; ++i) {
        manager.increment(id, 1);
        s_time += 2us;
    }
    EXPECT_NEAR(tellings, 40, 2);
    EXPECT_NEAR(*last.front().fraction, 1, 0.03);
    tellings = 0;
    for (int i = 0; i < 10000; ++i) {
        const int inner = open(3, id);
        manager.increment(inner, 1);
        manager.close(inner);
        s_time += 100us;
    }
    EXPECT_NEAR(tellings, 20, 1) << "inner loops too";
    manager.poll();
    s_time += 60ms;
    manager.increment(id, 1);
    manager.close(id);
    EXPECT_TRUE(last.empty());
    tellings = 0;
    manager.close(open(3));
    EXPECT_EQ(tellings, 0) << "over before anybody heard of it";

    started = 0;
    const int slow = open(3);
    EXPECT_EQ(started, 1);
    s_time += 10s;
    manager.poll();
    EXPECT_EQ(last.back().id, slow);
    EXPECT_EQ(last.back().secondsTaken, 10);
}

TEST_F(Progress, OddNumbersOfStepsStaySensible)
{
    const int three = open(3), none = open(0), negative = open(-5);
    manager.increment(three, 4);
    manager.increment(none, 1);
    manager.increment(negative, 1);
    manager.increment(12345, 1);
    shown();
    EXPECT_EQ(last[0].fraction, 1.0);
    EXPECT_EQ(last[0].done, 4);
    EXPECT_EQ(last[1].fraction, std::nullopt);
    EXPECT_EQ(last[2].fraction, std::nullopt);
    manager.increment(three, std::numeric_limits<int>::max());
    manager.increment(three, std::numeric_limits<int>::max());
    shown();
    EXPECT_EQ(last[0].fraction, 1.0);
    manager.increment(three, -10);
    manager.increment(three, std::numeric_limits<int>::min());
    manager.increment(three, std::numeric_limits<int>::min());
    shown();
    EXPECT_EQ(last[0].fraction, 0.0);
}

TEST_F(Progress, OtherThreadsMayClose)
{
    const int id = open(3);
    std::thread([&] { manager.close(id); }).join();
    EXPECT_TRUE(shown().empty());
    EXPECT_FALSE(manager.isAnyRunning());
}

/// The seconds left of 200 steps after `done` of them, `length(i)` seconds each.
template <typename Length>
std::optional<double> estimate(int done, Length length, double waited = 0)
{
    HVTimeLeft left;
    std::chrono::duration<double> now{100};
    const auto at = [&now] { return std::chrono::duration_cast<HVTimeLeft::Time>(now); };
    for (int i = 0; i < done; ++i) {
        left.note(at(), i + 1); // steps are counted as they begin
        now += std::chrono::duration<double>(i + 1 < done ? length(i) : waited);
    }
    return left.seconds(at(), 200);
}

TEST(TimeLeft, FollowsTheWork)
{
    const auto even = [](int) { return 1.0; };
    EXPECT_EQ(estimate(1, even, 30), std::nullopt) << "nothing to judge by";
    EXPECT_EQ(estimate(200, even), std::nullopt);
    EXPECT_NEAR(*estimate(3, even), 197, 0.01);
    EXPECT_NEAR(*estimate(100, even, 0.4), 99.6, 0.01);
    EXPECT_NEAR(*estimate(100, even, 30), 99, 0.01) << "a step that hangs does not eat the rest up";
    EXPECT_EQ(estimate(50, [](int) { return 0.001; }), std::nullopt) << "too early";
    const auto uneven = [](int i) { return i % 2 ? 1.9 : 0.1; };
    for (int done = 20; done < 180; ++done)
        EXPECT_NEAR(*estimate(done, uneven), 200 - done, 0.3 * (200 - done)) << done;
    const auto slower = [](int i) { return i < 100 ? 0.1 : 1.0; };
    EXPECT_GT(*estimate(112, slower), 50) << "the average alone says 17";
}

TEST(TimeLeft, IsSaidInRoundNumbers)
{
    const std::vector<std::pair<double, const char*>> texts = {{0, "about 1 s left"},
                                                               {7.4, "about 7 s left"},
                                                               {22, "about 20 s left"},
                                                               {57, "about 55 s left"},
                                                               {59, "about 1 min left"},
                                                               {130, "about 2 min left"},
                                                               {59.6 * 60, "about 1 h left"},
                                                               {80 * 60, "about 1 h 20 min left"},
                                                               {23.99 * 3600, "about 1 day left"},
                                                               {200000, "about 2 days left"},
                                                               {1e12, "about 11574074 days left"}};
    for (const auto& [seconds, text] : texts)
        EXPECT_EQ(HVTimeLeft::text(seconds), QString(text));
}

} // namespace
