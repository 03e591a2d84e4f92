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

TEST_F(RunMonitorTest, WaitsOnLocksBreatheAndStop)
{
    app().observes = true;
    app().onBreath = [this] { return app().breaths >= 3; };
    const std::string waiting =
        "import multiprocessing.pool, queue, signal, threading, time\n"
        "never = threading.Event()\n"
        "thread = threading.Thread(target=never.wait); thread.start()\n"
        "pool = multiprocessing.pool.ThreadPool(1)\n"
        "held = threading.RLock()\n"
        "taken = threading.Thread(target=lambda: held.acquire() and never.wait()); taken.start()\n"
        "everything = signal.valid_signals()\n"
        "try: %s\n"
        "finally: never.set(); pool.terminate(); signal.pthread_sigmask(signal.SIG_SETMASK, [])";
    for (const char* wait :
         {"thread.join()", "queue.Queue().get()", "queue.SimpleQueue().get()", "never.wait()", "taken.join(60)",
          "held.acquire()", "pool.map(lambda _: never.wait(), [0])", "multiprocessing.Semaphore(0).acquire()",
          "signal.pthread_sigmask(signal.SIG_BLOCK, everything); time.sleep(60)",
          "signal.pthread_sigmask(signal.SIG_SETMASK, everything); never.wait()"}) {
        app().breaths = 0;
        const Clock::time_point start = Clock::now();
        std::string script = waiting;
        EXPECT_FALSE(run(script.replace(script.find("%s"), 2, wait).c_str())) << wait;
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(10)) << wait;
        EXPECT_GE(app().breaths, 3) << wait;
        EXPECT_NE(recorder.textOf(6).find("\nKeyboardInterrupt\n"), std::string::npos) << recorder.textOf(6);
        recorder.posts.clear();
    }
}

TEST_F(RunMonitorTest, ScriptsCannotTakeTheWakeUpSignal)
{
    EXPECT_TRUE(run("import signal, strativo_python\n"
                    "for change in (lambda: signal.signal(signal.SIGURG, signal.SIG_IGN),\n"
                    "               lambda: signal.siginterrupt(signal.SIGURG, False)):\n"
                    "    try: change()\n"
                    "    except OSError as error: print(error)\n"
                    "print(signal.signal(signal.SIGUSR1, signal.SIG_IGN), signal.SIGUSR1 in signal.pthread_sigmask(\n"
                    "    signal.SIG_BLOCK, [signal.SIGUSR2]), signal.pthread_sigmask(signal.SIG_SETMASK, []))\n"));
    EXPECT_EQ(recorder.textOf(5), "[Errno 22] Invalid argument\n[Errno 22] Invalid argument\n"
                                  "0 False {<Signals.SIGUSR2: 12>}\n");
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
