#include "tests/editor/debugger/EngineFixture.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

using EngineTest = fixture::EngineTest;
using debugger::Resume;

TEST_F(EngineTest, StopsAtLinesWithStatementsOfTheFileOnly)
{
    const char* script = "def f(x):\n"
                         "    # nothing here\n"
                         "    return x + 1\n"
                         "total = 0\n"
                         "for i in range(3):\n"
                         "    total += f(i)\n";
    engine->breakpoints().add(QStringLiteral("SCRIPT.py"), 6);
    EXPECT_EQ(stopsOf(script, {2}), "");
    EXPECT_EQ(stopsOf(script, {3, 4}), "<module>:4 f:3 f:3 f:3 ");
    EXPECT_EQ(depth, 2U);
    engine->breakpoints().remove(QStringLiteral("script.py"), 3);
    engine->breakpoints().remove(QStringLiteral("script.py"), 99);
    EXPECT_EQ(stopsOf(script, {}), "<module>:4 ");
    engine->setEnabled(false);
    EXPECT_EQ(stopsOf(script, {}), "");
}

TEST_F(EngineTest, FramesWithoutBreakpointsAreNotTraced)
{
    const char* script = "def hot():\n"
                         "    n = 0\n"
                         "    while n < 10000:\n"
                         "        n += 1\n"
                         "def marked():\n"
                         "    return 1\n"
                         "marked()\n"
                         "hot()\n"
                         "marked()\n";
    EXPECT_EQ(stopsOf(script, {6}), "marked:6 marked:6 ");
    EXPECT_LT(events, 50);
    // A breakpoint set while the function runs, and taken away again, takes effect at once.
    events = 0;
    onPause = [this](const debugger::Pause& pause) {
        if (pause.stack.calls().front().line == 6)
            engine->breakpoints().add(QStringLiteral("script.py"), 8);
        engine->breakpoints().remove(QStringLiteral("script.py"), 6);
    };
    EXPECT_EQ(stopsOf(script, {}), "marked:6 <module>:8 ");
    EXPECT_LT(events, 50);
}

TEST_F(EngineTest, CallsThatTheInterpreterInlinesStop)
{
    // After some rounds the interpreter calls such a method without asking the evaluation hook.
    const char* script = "class Row:\n"
                         "    def __getitem__(self, i):\n"
                         "        return i\n"
                         "def total(row):\n"
                         "    n = 0\n"
                         "    for i in range(200):\n"
                         "        n += row[i]\n"
                         "    return n\n"
                         "total(Row())\n";
    stopsOf(script, {3});
    EXPECT_EQ(std::count(stops.begin(), stops.end(), ' '), 200);
}

TEST_F(EngineTest, KnowsTheFileUnderAnotherName)
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    ASSERT_TRUE(dir.mkdir(QStringLiteral("real")));
    ASSERT_TRUE(QFile::link(dir.filePath(QStringLiteral("real")), dir.filePath(QStringLiteral("link"))));
    QFile file(dir.filePath(QStringLiteral("real/debugged.py")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("def twice(x):\n    return 2 * x\n");
    file.close();
    engine->breakpoints().add(file.fileName(), 2);
    const std::string script = "import sys\nsys.path.insert(0, '" + folder.path().toStdString() +
                               "/link')\nimport debugged\nprint(debugged.twice(21))\ndel sys.path[0]\n";
    EXPECT_EQ(stopsOf(script.c_str(), {}), "twice:2 ");
    EXPECT_EQ(recorder.textOf(5), "42\n");
}

TEST_F(EngineTest, ConditionsDecide)
{
    const char* script = "for i in range(5):\n    j = i\n";
    const debugger::Place place(QStringLiteral("script.py"), 2);
    engine->breakpoints().add(place.first, place.second);
    engine->breakpoints().setCondition(place, QStringLiteral("i % 2 == 1"));
    EXPECT_EQ(stopsOf(script, {}), "<module>:2 <module>:2 ");
    EXPECT_EQ(reason, "");
    engine->breakpoints().setCondition(place, QStringLiteral("missing > 1"));
    EXPECT_EQ(stopsOf(script, {}, {Resume::Stop}), "<module>:2 ");
    EXPECT_EQ(reason, "The condition \"missing > 1\" raised NameError: name 'missing' is not defined");
    engine->breakpoints().setCondition(place, QStringLiteral("i ="));
    EXPECT_EQ(stopsOf(script, {}, {Resume::Stop}), "<module>:2 ");
    EXPECT_NE(reason.find("SyntaxError"), std::string::npos) << reason;
    engine->breakpoints().setEnabled(place, false);
    EXPECT_EQ(stopsOf(script, {}), "");
    EXPECT_TRUE(succeeded);
}

TEST_F(EngineTest, StopRaisesKeyboardInterruptWhereTheScriptStands)
{
    EXPECT_EQ(stopsOf("try:\n    before = 1\n    reached = 1\nfinally:\n    print('tidied')\n", {3}, {Resume::Stop}),
              "<module>:3 ");
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(recorder.textOf(5), "tidied\n");
    EXPECT_NE(recorder.textOf(6).find("line 3, in <module>\nKeyboardInterrupt\n"), std::string::npos);
    // The debugger is as ready as before.
    EXPECT_EQ(stopsOf("x = 1\n'reached' in dir()\nprint('reached' in dir())\n", {}), "<module>:3 ");
    EXPECT_EQ(recorder.textOf(5), "tidied\nFalse\n");
}

TEST_F(EngineTest, UnhandledExceptionsAndTheBuiltinStopToo)
{
    const char* script = "def f(n):\n"
                         "    secret = n\n"
                         "    return 1 / n\n"
                         "try:\n"
                         "    f(0)\n"
                         "except ZeroDivisionError:\n"
                         "    pass\n"
                         "f(0)\n";
    onPause = [](const debugger::Pause& pause) {
        PyObject* locals = PyFrame_GetLocals(pause.stack.calls().front().frame.get());
        EXPECT_TRUE(PyMapping_HasKeyString(locals, "secret"));
        Py_DECREF(locals);
        EXPECT_TRUE(pause.postMortem);
    };
    EXPECT_EQ(stopsOf(script, {}), "f:3 ");
    EXPECT_EQ(reason, "ZeroDivisionError: division by zero");
    EXPECT_EQ(depth, 2U);
    onPause = {};
    EXPECT_EQ(stopsOf("raise SystemExit\n", {}), "");
    engine->setStopsAtExceptions(false);
    EXPECT_EQ(stopsOf(script, {}), "");

    EXPECT_EQ(stopsOf("def g():\n    breakpoint()\n    return 1\ng()\nbreakpoint()\ng = None\n", {}),
              "g:3 <module>:6 ");
    engine->setEnabled(false);
    EXPECT_EQ(stopsOf("breakpoint()\nx = 1\n", {}), "");
    EXPECT_NE(recorder.textOf(3).find("not enabled"), std::string::npos);
}

TEST_F(EngineTest, SurvivesItsOwnEndAndBeingSwitchedWhilePaused)
{
    const char* script = "def f():\n    return 1\nf()\nf()\nprint('end')\n";
    onPause = [this](const debugger::Pause&) { engine->setEnabled(false); };
    EXPECT_EQ(stopsOf(script, {2}, {Resume::StepOver}), "f:2 ");
    EXPECT_TRUE(succeeded);
    engine->setEnabled(true);
    onPause = [this](const debugger::Pause&) {
        engine->setEnabled(false);
        engine->setEnabled(true);
    };
    EXPECT_EQ(stopsOf(script, {}, {Resume::StepOut}), "f:2 <module>:4 f:2 ");
    onPause = [this](const debugger::Pause&) { engine.reset(); };
    EXPECT_EQ(stopsOf(script, {}), "f:2 ");
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(recorder.textOf(5), "end\nend\nend\n");
}

TEST_F(EngineTest, ScriptsThatTraceThemselvesKeepTheirTracing)
{
    const char* script = "import sys, cProfile\n"
                         "seen = []\n"
                         "def note(frame, event, arg):\n"
                         "    seen.append(event)\n"
                         "    return note\n"
                         "def f():\n"
                         "    return 1\n"
                         "def switch(to): sys.settrace(to)\n"
                         "f()\n"
                         "switch(note)\n"
                         "f()\n"
                         "switch(None)\n"
                         "f()\n"
                         "profile = cProfile.Profile()\n"
                         "profile.runcall(f)\n"
                         "f()\n"
                         "print(seen.count('line') > 1, len(profile.getstats()) > 0)\n";
    EXPECT_EQ(stopsOf(script, {7}), "f:7 f:7 f:7 f:7 ");
    EXPECT_EQ(recorder.textOf(5), "True True\n") << recorder.textOf(6);
}

TEST_F(EngineTest, OtherThreadsGeneratorsAndDeepRecursionPassThrough)
{
    const char* threads = "import threading\n"
                          "done = []\n"
                          "def work(n):\n"
                          "    done.append(n)\n"
                          "workers = [threading.Thread(target=work, args=(i,)) for i in range(4)]\n"
                          "for w in workers: w.start()\n"
                          "for w in workers: w.join()\n"
                          "work(9)\n"
                          "print(sorted(done))\n";
    EXPECT_EQ(stopsOf(threads, {4}), "work:4 ");
    engine->breakpoints().remove(QStringLiteral("script.py"), 4);
    const char* generators = "import asyncio\n"
                             "def g():\n"
                             "    try:\n"
                             "        yield 1\n"
                             "    except ValueError:\n"
                             "        yield 2\n"
                             "it = g(); next(it); print(it.throw(ValueError('x')))\n"
                             "async def c():\n"
                             "    await asyncio.sleep(0)\n"
                             "    return 3\n"
                             "print(asyncio.run(c()))\n";
    EXPECT_EQ(stopsOf(generators, {6, 10}), "g:6 c:10 ") << recorder.textOf(6);
    engine->breakpoints().remove(QStringLiteral("script.py"), 6);
    engine->breakpoints().remove(QStringLiteral("script.py"), 10);
    const char* recursion = "import sys\n"
                            "def down(n):\n"
                            "    if n == 0:\n"
                            "        return 0\n"
                            "    return 1 + down(n - 1)\n"
                            "print(down(900))\n"
                            "limit = sys.getrecursionlimit()\n"
                            "sys.setrecursionlimit(200000)\n"
                            "try:\n"
                            "    print(down(100000))\n"
                            "finally:\n"
                            "    sys.setrecursionlimit(limit)\n";
    EXPECT_EQ(stopsOf(recursion, {4}), "down:4 down:4 ") << recorder.textOf(6);
    EXPECT_TRUE(succeeded) << recorder.textOf(6);
    EXPECT_EQ(recorder.textOf(5), "[0, 1, 2, 3, 9]\n2\n3\n900\n100000\n");
}

TEST_F(EngineTest, ObserverDoesNotBreatheWhilePaused)
{
    app().observes = true;
    onPause = [this](const debugger::Pause&) {
        const int breaths = app().breaths;
        PyRun_SimpleString("import time\ntime.sleep(0.2)");
        EXPECT_EQ(app().breaths, breaths);
    };
    EXPECT_EQ(stopsOf("import time\nx = 1\ntime.sleep(0.3)\n", {2}), "<module>:2 ");
    EXPECT_GE(app().breaths, 2);
    // What runs while windows paint must not stop: nobody could resume it.
    app().onBreath = [this] {
        run("x = 1\nx = 2\n");
        return false;
    };
    onPause = {};
    EXPECT_EQ(stopsOf("import time\ntime.sleep(0.2)\n", {}), "<module>:2 ");
    EXPECT_NE(recorder.textOf(2).find("cannot stop"), std::string::npos);
}

} // namespace
