#include "app/headless/JobOnTerminal.h"

#include "app/headless/TerminalJobs.h"
#include "app/headless/TerminalProgress.h"

#include <QEventLoop>

#include <chrono>
#include <csignal>
#include <unistd.h>

namespace headless {

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

/// While it lives Ctrl+C is noted instead of ending the program.
class InterruptNoted
{
public:
    InterruptNoted()
    {
        g_interrupted = 0;
        struct sigaction action
        {};
        action.sa_handler = [](int) { g_interrupted = 1; };
        sigaction(SIGINT, &action, &m_before);
    }
    ~InterruptNoted() { sigaction(SIGINT, &m_before, nullptr); }
    InterruptNoted(const InterruptNoted&) = delete;
    InterruptNoted& operator=(const InterruptNoted&) = delete;

private:
    struct sigaction m_before
    {};
};

} // namespace

hv::Result<void> runOnTerminal(const QString& name, const std::function<hv::Result<void>(hv::JobContext&)>& work)
{
    using namespace std::chrono_literals;
    TerminalProgress progress(STDERR_FILENO);
    hv::JobManager jobs;
    const TerminalJobs shown(jobs, progress);
    const InterruptNoted noted;
    QEventLoop loop;
    hv::Result<void> outcome;
    const hv::JobId id = jobs.start(
        {name}, [&work](hv::JobContext& context) -> hv::Result<void> { return work(context); }, nullptr,
        [&](hv::JobState state, const hv::Result<void>& result) {
            outcome =
                state == hv::JobState::Cancelled ? hv::Failure(QStringLiteral("%1 was cancelled.").arg(name)) : result;
            loop.quit();
        });
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
        if (g_interrupted != 0)
            jobs.cancel(id);
    });
    watch.start(50ms);
    loop.exec();
    return outcome;
}

} // namespace headless
