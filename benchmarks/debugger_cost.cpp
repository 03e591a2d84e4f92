/// What enabled debugging costs code that does not stop: a tight loop and many short calls, with breakpoints in other
/// files, in another function, and on a line of the running function that is never reached. Beside it untraced code,
/// a trace function in Python and Python's own debugger framework.

#include "app/ProgramSetup.h"
#include "editor/HVPythonDebugger.h"
#include "host/services/HVEventBus.h"
#include "runtime/HVPythonExecutionContext.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace {

const char* const g_work = R"(def loop(n):
    i = total = 0
    while i < n:
        i += 1
        total += i
    if n < 0:
        return None
    return total

def calls(n):
    def short(x):
        y = x + 1
        if y < 0:
            return None
        return y
    for i in range(n):
        short(i)

def elsewhere():
    return 1
)";
constexpr int g_unreachedInLoop = 7;
constexpr int g_unreachedInCalls = 14;
constexpr int g_elsewhere = 20;
constexpr int g_rounds = 15;

const char* const g_setUp = R"(
import bdb, sys, time
times = {}

class Debugger(bdb.Bdb):
    def user_line(self, frame):
        self.set_continue()

framework = Debugger()
framework.set_break(work_file, 20)

def python_trace(frame, event, argument):
    return python_trace

def traced_by_python(function, n):
    sys.settrace(python_trace)
    try:
        function(n)
    finally:
        sys.settrace(None)

def measure(name, run=lambda function, n: function(n)):
    for what, function, n in (('loop', loop, 500_000), ('calls', calls, 250_000)):
        start = time.perf_counter()
        run(function, n // 10 if 'bdb' in name else n)
        elapsed = time.perf_counter() - start
        times.setdefault((name, what), []).append(elapsed * (10 if 'bdb' in name else 1))
)";

const char* const g_report = R"(
print('| slow-down, minimum of minima | loop, 1.5 million lines | 250,000 short calls |')
print('|---|---|---|')
base = {what: min(times['untraced', what]) for what in ('loop', 'calls')}
print('| untraced | 1 (%.1f ms) | 1 (%.1f ms) |' % (base['loop'] * 1e3, base['calls'] * 1e3))
for name in dict.fromkeys(name for name, what in times):
    if name != 'untraced':
        print('| %s | %.2f | %.2f |' % ((name,) + tuple(min(times[name, w]) / base[w] for w in ('loop', 'calls'))))
)";

class ReportSink final : public HVEventBus::Sink
{
public:
    void receive(const HVEventBus::Message& message) override
    {
        if (message.level == static_cast<int>(MessageLevel::StandardOutput))
            std::fwrite(message.text.data(), 1, message.text.size(), stdout);
        else if (message.level == static_cast<int>(MessageLevel::StandardError))
            std::fwrite(message.text.data(), 1, message.text.size(), stderr);
    }
};

} // namespace

int main(int argc, char** argv)
{
    program::choosePlatform();
    QApplication application(argc, argv);
    program::setUp();
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("work.py")));
    if (!file.open(QIODevice::WriteOnly) || file.write(g_work) < 0)
        return 1;
    file.close();
    const QString name = file.fileName();

    const HVPythonExecutionContext context(nullptr);
    ReportSink report;
    HVEventBus::instance().addSink(&report);
    HVPythonDebugger debugger;
    const auto run = [&](const QString& code) {
        return context.executePythonCode(code, nullptr, QStringLiteral("driver.py"));
    };
    run(QStringLiteral("work_file = '%1'\n").arg(name));
    context.executePythonCode(QString::fromUtf8(g_work), nullptr, name);
    run(QString::fromUtf8(g_setUp));

    const auto measure = [&](const char* label, const std::vector<int>& lines) {
        for (const int line : lines)
            debugger.addBreakpoint(name, line);
        debugger.setDebuggingEnabled(true);
        run(QStringLiteral("measure('%1')").arg(QLatin1String(label)));
        debugger.setDebuggingEnabled(false);
        for (const int line : lines)
            debugger.removeBreakpoint(name, line);
    };
    // Breakpoints of other scripts are always there.
    for (int i = 0; i < 20; ++i)
        debugger.addBreakpoint(QStringLiteral("/scripts/file%1.py").arg(i), i + 1);
    for (int round = 0; round < g_rounds; ++round) {
        run(QStringLiteral("measure('untraced')"));
        measure("breakpoints in other files", {});
        measure("breakpoint in another function", {g_elsewhere});
        measure("breakpoint in the running function", {g_unreachedInLoop, g_unreachedInCalls});
        run(QStringLiteral("measure('sys.settrace, Python function', traced_by_python)"));
        if (round % 5 == 0)
            run(QStringLiteral("measure('bdb, breakpoint in another function', framework.runcall)"));
    }
    run(QString::fromUtf8(g_report));
    HVEventBus::instance().removeSink(&report);
    return 0;
}
