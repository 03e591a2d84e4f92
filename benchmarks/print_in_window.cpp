/// One million print() calls through the captured stream with the workbench's window open, against io.StringIO.
///
/// Two questions: what does a call cost beside a stream in plain Python, and for how long does the window stand still
/// meanwhile. The first is asked without an observer, so that the window's own work is not counted; the second with it.

#include "app/ProgramSetup.h"
#include "app/workbench/AppWrapper.h"
#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "host/services/HVEventBus.h"
#include "host/widgets/HVMessageWindow.h"
#include "runtime/HVPythonExecutionContext.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace {

/// The workbench's own indicator with a watch on it.
class TimedObserver final : public IRunObserver
{
public:
    explicit TimedObserver(IRunObserver* observed) : m_observed(observed) {}
    void runStarted(const QString& fileName) override
    {
        m_observed->runStarted(fileName);
        m_sinceBreath.start();
    }
    bool breathe() override
    {
        longestPause = std::max(longestPause, m_sinceBreath.nsecsElapsed());
        QElapsedTimer breath;
        breath.start();
        const bool stop = m_observed->breathe();
        longestBreath = std::max(longestBreath, breath.nsecsElapsed());
        ++breaths;
        m_sinceBreath.start();
        return stop;
    }
    void runFinished() override { m_observed->runFinished(); }

    qint64 longestPause = 0;
    qint64 longestBreath = 0;
    int breaths = 0;

private:
    IRunObserver* m_observed;
    QElapsedTimer m_sinceBreath;
};

class BenchmarkApp final : public workbench::AppWrapper
{
public:
    using AppWrapper::AppWrapper;
    IRunObserver* runObserver() const override { return observer; }
    IRunObserver* observer = nullptr;
};

/// Shows what the benchmark itself reports; everything else goes to the message window only.
class ReportSink final : public HVEventBus::Sink
{
public:
    void receive(const HVEventBus::Message& message) override
    {
        if (message.level == static_cast<int>(MessageLevel::StandardError))
            std::fwrite(message.text.data(), 1, message.text.size(), stdout);
    }
};

const char* const g_ratio = R"(
import gc, io, sys, time

def print_lines(count):
    for _ in range(count):
        print('a line of text')

def seconds(stream, count):
    before, sys.stdout = sys.stdout, stream
    gc.collect()
    start = time.perf_counter()
    print_lines(count)
    elapsed = time.perf_counter() - start
    sys.stdout = before
    return elapsed

captured, plain = [], []
for _ in range(10):
    captured.append(seconds(sys.stdout, 100_000))
    plain.append(seconds(io.StringIO(), 100_000))
ratios = sorted(c / p for c, p in zip(captured, plain))
)";

const char* const g_report = R"(
print('| 1,000,000 print calls | ns a call | ratio of minima | median of ratios |', file=sys.stderr)
print('|---|---|---|---|', file=sys.stderr)
print('| io.StringIO | %.0f | 1 | 1 |' % (min(plain) * 1e4), file=sys.stderr)
print('| captured stream | %.0f | %.2f | %.2f |' % (
    min(captured) * 1e4, min(captured) / min(plain), (ratios[4] + ratios[5]) / 2), file=sys.stderr)
)";

} // namespace

int main(int argc, char** argv)
{
    program::choosePlatform();
    QApplication application(argc, argv);
    program::setUp();
    workbench::MainWindow window;
    window.resize(1200, 800);
    window.show();
    QApplication::processEvents();
    BenchmarkApp app(window);
    const HVPythonExecutionContext context(&app);

    context.executePythonCode(QString::fromUtf8(g_ratio), nullptr, QStringLiteral("ratio.py"));
    ReportSink report;
    HVEventBus::instance().addSink(&report);
    context.executePythonCode(QString::fromUtf8(g_report), nullptr, QStringLiteral("report.py"));
    HVEventBus::instance().removeSink(&report);
    QApplication::processEvents();

    TimedObserver observer(window.runIndicator());
    app.observer = &observer;
    QElapsedTimer whole;
    whole.start();
    context.executePythonCode(QStringLiteral("for _ in range(1_000_000): print('a line of text')"), nullptr,
                              QStringLiteral("stall.py"));
    const double seconds = static_cast<double>(whole.nsecsElapsed()) * 1e-9;
    // Each later turn of the event loop is one more step that the user could feel.
    qint64 longestTurn = 0;
    for (int turn = 0; turn < 100; ++turn) {
        QElapsedTimer step;
        step.start();
        QApplication::processEvents(QEventLoop::AllEvents);
        longestTurn = std::max(longestTurn, step.nsecsElapsed());
        QThread::msleep(10);
    }
    std::printf("\n| window during 1,000,000 prints | |\n|---|---|\n"
                "| whole run with the window following | %.2f s, %d breaths |\n"
                "| longest time without a breath | %.1f ms |\n| longest breath | %.1f ms |\n"
                "| longest turn of the event loop afterwards | %.1f ms |\n",
                seconds, observer.breaths, static_cast<double>(observer.longestPause) * 1e-6,
                static_cast<double>(observer.longestBreath) * 1e-6, static_cast<double>(longestTurn) * 1e-6);
    return 0;
}
