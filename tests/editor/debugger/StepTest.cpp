#include "tests/editor/debugger/EngineFixture.h"

namespace {

using StepTest = fixture::EngineTest;
using debugger::Resume;

constexpr auto Over = Resume::StepOver;
constexpr auto Into = Resume::StepInto;
constexpr auto Out = Resume::StepOut;

const char* const g_calls = "import functools\n"
                            "def inner(x):\n"
                            "    y = x + 1\n"
                            "    return y\n"
                            "def outer(x):\n"
                            "    z = inner(x)\n"
                            "    return z\n"
                            "a = outer(1)\n"
                            "b = functools.reduce(lambda p, q: p + q, [1, 2])\n"
                            "c = 1\n";

TEST_F(StepTest, OverIntoAndOut)
{
    EXPECT_EQ(stopsOf(g_calls, {8}, {Over, Over, Over}), "<module>:8 <module>:9 <module>:10 ");
    EXPECT_EQ(stopsOf(g_calls, {}, {Into, Over, Over}), "<module>:8 outer:6 outer:7 <module>:9 ");
    EXPECT_EQ(stopsOf(g_calls, {}, {Into, Into, Out, Out, Out}), "<module>:8 outer:6 inner:3 outer:7 <module>:9 ");
}

TEST_F(StepTest, BreakpointsStopAStepThatPassesOverThem)
{
    EXPECT_EQ(stopsOf(g_calls, {8, 3}, {Over, Over, Over, Over, Over}),
              "<module>:8 inner:3 inner:4 outer:7 <module>:9 <module>:10 ");
}

TEST_F(StepTest, TheStandardLibraryIsPassedOver)
{
    const char* script = "import textwrap, threading\n"
                         "class Text(str):\n"
                         "    def expandtabs(self, size=8):\n"
                         "        return str(self)\n"
                         "t = Text('a')\n"
                         "textwrap.TextWrapper().wrap(t)\n"
                         "end = 1\n";
    EXPECT_EQ(stopsOf(script, {6}, {Into, Out, Over}), "<module>:6 expandtabs:4 <module>:7 ") << recorder.textOf(6);
}

TEST_F(StepTest, GeneratorsAndExceptions)
{
    const char* generator = "def numbers():\n"
                            "    yield 1\n"
                            "    yield 2\n"
                            "for n in numbers():\n"
                            "    m = n\n"
                            "total = sum(numbers())\n"
                            "end = 1\n";
    EXPECT_EQ(stopsOf(generator, {2}, {Over, Over, Resume::Continue, Over, Over}),
              "numbers:2 <module>:5 <module>:4 numbers:2 numbers:3 <module>:7 ");
    engine->breakpoints().remove(QStringLiteral("script.py"), 2);

    const char* raising = "def f():\n"
                          "    raise ValueError\n"
                          "def g():\n"
                          "    try:\n"
                          "        f()\n"
                          "    except ValueError:\n"
                          "        return 1\n"
                          "g()\n"
                          "x = 1\n";
    EXPECT_EQ(stopsOf(raising, {2}, {Over, Over, Over}), "f:2 g:6 g:7 <module>:9 ");
}

TEST_F(StepTest, RunToALineEndsWithTheRun)
{
    const auto runTo = [this](int line) {
        onPause = [this, line](const debugger::Pause& pause) {
            if (pause.stack.calls().front().line == 8)
                engine->breakpoints().setRunTo(debugger::Place(QStringLiteral("script.py"), line));
        };
    };
    runTo(4);
    EXPECT_EQ(stopsOf(g_calls, {8}), "<module>:8 inner:4 ");
    runTo(2); // behind: never reached again
    EXPECT_EQ(stopsOf(g_calls, {}), "<module>:8 ");
    onPause = {};
    engine->breakpoints().remove(QStringLiteral("script.py"), 8);
    EXPECT_EQ(stopsOf(g_calls, {}), "");
    // So does a step that leaves the script.
    EXPECT_EQ(stopsOf("x = 1\n", {1}, {Into}), "<module>:1 ");
    engine->breakpoints().remove(QStringLiteral("script.py"), 1);
    EXPECT_EQ(stopsOf("y = 1\n", {}), "");
}

} // namespace
