#pragma once

#include "host/services/HVTimeLeft.h"
#include "host/services/IProgressService.h"

#include <atomic>
#include <deque>
#include <limits>
#include <mutex>
#include <optional>
#include <vector>

/// What a view shows of one bar.
struct HVProgressBarState
{
    std::int32_t id = IProgressService::NoBar;
    /// 0 for a bar without parent, 1 for one nested in it, and so on.
    int depth = 0;
    QString name;
    std::int64_t done = 0;
    std::int32_t steps = 0;
    /// Of the work, in [0, 1]; none when its length is not known.
    std::optional<double> fraction;
    /// Since the bar was opened.
    double secondsTaken = 0;
    std::optional<double> secondsLeft;
    bool modal = false;
    bool cancelled = false;
};

/// Shows bars. Called on the GUI thread, in the middle of whatever changes the bars: it does not change them itself.
class HVProgressObserver
{
public:
    /// The first bar was opened, which progressChanged() need not tell of at once: a view that shows it later makes
    /// sure that poll() is called until then.
    virtual void progressStarted() {}
    /// All open bars, each followed by those nested in it; at most 20 times a second however fast the work goes, and
    /// once with nothing after the last bar has closed.
    virtual void progressChanged(const std::vector<HVProgressBarState>& bars) = 0;
    /// The last state of a bar that the observer was told of.
    virtual void progressClosed(const HVProgressBarState& /*bar*/) {}

protected:
    ~HVProgressObserver() = default;
};

/// Keeps the progress bars of the application; how they look is up to the observers.
///
/// A cancelled bar stays open until its owner notices and closes it. Threads as in IProgressService. A step costs the
/// reading of a coarse clock, a few nanoseconds.
class HVProgressBarMgr final : public IProgressService
{
public:
    using Time = std::chrono::nanoseconds;
    using Clock = Time (*)();

    /// Monotonic, exact to some milliseconds.
    static Time coarseTime();

    explicit HVProgressBarMgr(Clock clock = &coarseTime) : m_clock(clock) {}
    ~HVProgressBarMgr() override;
    HVProgressBarMgr(const HVProgressBarMgr&) = delete;
    HVProgressBarMgr& operator=(const HVProgressBarMgr&) = delete;

    std::int32_t create(std::int32_t steps, const QString& name, std::int32_t parent, bool modal, int flag) override;
    void increment(std::int32_t id, std::int32_t count) override;
    bool wasCancelled(std::int32_t id) const override;
    void close(std::int32_t id) override;
    bool isAnyRunning() const override;
    void closeAll() override;

    /// What the user asks for: the bar and those nested in it, or all of them.
    void cancel(std::int32_t id);
    void cancelAll();
    /// Closes cancelled bars that nobody closed, for when their owners had their chance. They still count as cancelled.
    void dropCancelled();

    /// To be called from time to time while bars are open: long steps let time pass too.
    void poll();
    Time now() const { return m_clock(); }

    /// Observers are not owned.
    void addObserver(HVProgressObserver* observer);
    void removeObserver(HVProgressObserver* observer);

private:
    struct Bar
    {
        std::int32_t id;
        std::int32_t steps;
        std::int64_t done;
        Time opened, lastStep;
        int depth;
        bool modal, cancelled, told;
        QString name;
        HVTimeLeft timeLeft;
    };
    static constexpr Time s_never = Time(std::numeric_limits<std::int64_t>::max());

    std::size_t find(std::int32_t id) const;
    std::size_t endOfTree(std::size_t bar) const;
    void remove(std::size_t begin, std::size_t end);
    std::int32_t freeId();
    void closeFromOtherThreads();
    void tell(Time now);
    HVProgressBarState state(Bar& bar, Time now) const;

    const Clock m_clock;
    std::vector<Bar> m_bars; // in the order of HVProgressObserver::progressChanged
    mutable std::size_t m_found = 0;
    /// Of all managers, so that a bar of one that is gone is none of another.
    static std::atomic<std::int32_t> s_lastId;
    std::deque<std::int32_t> m_cancelledAndGone;
    std::vector<HVProgressObserver*> m_observers;
    Time m_lastTelling{};
    Time m_nextTelling = s_never; // not while there are no bars
    bool m_shown = false;         // the observers know of bars

    const std::uintptr_t m_thread = currentThread();
    std::mutex m_mutex;
    std::vector<std::int32_t> m_toClose; // of other threads; guarded by the mutex
    std::atomic<bool> m_anyToClose = false;

    static std::uintptr_t currentThread();
};
