#pragma once

#include "host/services/HVProgressBarMgr.h"

#include <chrono>
#include <mutex>
#include <string_view>

namespace headless {

/// Progress bars as text: on a terminal one line that is drawn anew, cut to its width, and taken away before anything
/// else is written; in a file or pipe a line now and then. Bars that ran for a second or more leave a line about how
/// they ended. Jobs look like bars and stand back while there are bars.
///
/// The observer's functions come on the main thread, makeWay() on any.
class TerminalProgress final : public HVProgressObserver
{
public:
    explicit TerminalProgress(int file);
    ~TerminalProgress();
    TerminalProgress(const TerminalProgress&) = delete;
    TerminalProgress& operator=(const TerminalProgress&) = delete;

    /// Watches `manager`, which goes first.
    void watch(HVProgressBarMgr& manager) { manager.addObserver(this); }

    /// `text` is about to be written to the terminal by somebody else.
    void makeWay(std::string_view text);

    void progressChanged(const std::vector<HVProgressBarState>& bars) override;
    /// The same for jobs, which are bars without parents.
    void jobsChanged(const std::vector<HVProgressBarState>& jobs);
    void progressClosed(const HVProgressBarState& bar) override;

private:
    using Clock = std::chrono::steady_clock;

    void show();
    void draw(const std::vector<HVProgressBarState>& bars);
    void erase();
    void writeLine(const QString& line);

    const int m_file;
    const bool m_isTerminal;
    std::mutex m_mutex;
    std::vector<HVProgressBarState> m_bars, m_jobs;
    bool m_drawn = false;
    bool m_atLineStart = true;
    /// In a file: of the bar that the lines are about.
    Clock::time_point m_lastLine;
    std::int32_t m_lineBar = IProgressService::NoBar;
    int m_tenths = 0;
};

} // namespace headless
