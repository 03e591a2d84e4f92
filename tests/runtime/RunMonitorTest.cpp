#include "tests/runtime/RuntimeFixture.h"

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;
using RunMonitorTest = fixture::RuntimeTest;

TEST_F(RunMonitorTest, StopInterruptsBusyAndSleepingScripts)
{
    app().observes = true;
    app().onBreath = [this] { return app().breaths >= 2; };
    for (const char* script :
         {"while True: pass", "import time\ntime.sleep(60)", "import re\nre.match('(a+)+b', 'a'*40)",
          "import select\nselect.select([], [], [], 60)"}) {
        app().breaths = 0;
        const Clock::time_point start = Clock::now();
        EXPECT_FALSE(run(script)) << script;
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(10)) << script;
    }
    const std::string report = recorder.textOf(6);
    std::size_t interrupts = 0;
    for (std::size_t at = report.find("\nKeyboardInterrupt\n"); at != std::string::npos;
         at = report.find("\nKeyboardInterrupt\n", at + 1))
        ++interrupts;
    EXPECT_EQ(interrupts, 4U) << report;
}

TEST_F(RunMonitorTest, ObserverSeesTheOutermostRunOnly)
{
    app().observes = true;
    int nestedLeft = 1;
    app().onBreath = [&] {
        // What the observer starts from inside a breath neither recurses into it nor ends the outer run's watch.
        if (nestedLeft-- > 0) {
            EXPECT_TRUE(run("import time\ntime.sleep(0.15)"));
        }
        return false;
    };
    EXPECT_TRUE(run("import time\ntime.sleep(0.4)"));
    EXPECT_GE(app().breaths, 2);
    const std::vector<std::string> expected = {"started script.py", "finished"};
    EXPECT_EQ(app().log, expected);

    const int breaths = app().breaths;
    app().observes = false;
    EXPECT_TRUE(run("import time\ntime.sleep(0.15)"));
    EXPECT_EQ(app().breaths, breaths);
}

} // namespace
