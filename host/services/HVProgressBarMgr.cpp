#include "host/services/HVProgressBarMgr.h"

#include <QThread>

#include <algorithm>
#include <ctime>

namespace {

constexpr HVProgressBarMgr::Time g_interval = std::chrono::milliseconds(50);
/// Loops that never come back to ask whether they were cancelled must not add up for ever.
constexpr std::size_t g_mostRemembered = 1000;

} // namespace

HVProgressBarMgr::Time HVProgressBarMgr::coarseTime()
{
    timespec time{};
#ifdef CLOCK_MONOTONIC_COARSE
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
#else
    clock_gettime(CLOCK_MONOTONIC, &time);
#endif
    return std::chrono::seconds(time.tv_sec) + Time(time.tv_nsec);
}

std::uintptr_t HVProgressBarMgr::currentThread()
{
    return reinterpret_cast<std::uintptr_t>(QThread::currentThreadId());
}

HVProgressBarMgr::~HVProgressBarMgr()
{
    closeAll();
}

std::int32_t HVProgressBarMgr::create(std::int32_t steps, const QString& name, std::int32_t parent, bool modal,
                                      int /*flag*/)
{
    closeFromOtherThreads();
    const Time time = now();
    Bar bar{freeId(), steps, 0, time, time, 0, modal, false, false, name, {}};
    std::size_t place = m_bars.size();
    if (const std::size_t above = find(parent); above < m_bars.size()) {
        bar.depth = m_bars[above].depth + 1;
        bar.cancelled = m_bars[above].cancelled;
        place = endOfTree(above);
    } else if (parent != NoBar && wasCancelled(parent)) {
        bar.cancelled = true;
    }
    m_bars.insert(m_bars.begin() + static_cast<std::ptrdiff_t>(place), bar);
    m_found = place;
    if (m_nextTelling == s_never) {
        m_nextTelling = m_lastTelling + g_interval;
        for (HVProgressObserver* observer : m_observers)
            observer->progressStarted();
    }
    if (time >= m_nextTelling)
        tell(time);
    return bar.id;
}

void HVProgressBarMgr::increment(std::int32_t id, std::int32_t count)
{
    const Time time = m_clock();
    if (const std::size_t index = find(id); index < m_bars.size()) [[likely]] {
        Bar& bar = m_bars[index];
        // The estimate begins with the first step, whether it is counted at its beginning or at its end.
        if (bar.done == 0) [[unlikely]]
            bar.timeLeft.note(time, count);
        bar.done = std::max<std::int64_t>(0, bar.done + count);
        bar.lastStep = time;
    }
    if (time >= m_nextTelling) [[unlikely]]
        tell(time);
}

bool HVProgressBarMgr::wasCancelled(std::int32_t id) const
{
    if (const std::size_t index = find(id); index < m_bars.size()) [[likely]]
        return m_bars[index].cancelled;
    return std::find(m_cancelledAndGone.begin(), m_cancelledAndGone.end(), id) != m_cancelledAndGone.end();
}

void HVProgressBarMgr::close(std::int32_t id)
{
    if (currentThread() != m_thread) {
        const std::lock_guard lock(m_mutex);
        m_toClose.push_back(id);
        m_anyToClose = true;
        return;
    }
    if (const std::size_t index = find(id); index < m_bars.size())
        remove(index, endOfTree(index));
    // Whoever closes a bar has seen what became of it; those nested in it have not.
    std::erase(m_cancelledAndGone, id);
}

bool HVProgressBarMgr::isAnyRunning() const
{
    return !m_bars.empty();
}

void HVProgressBarMgr::closeAll()
{
    closeFromOtherThreads();
    remove(0, m_bars.size());
}

void HVProgressBarMgr::cancel(std::int32_t id)
{
    const std::size_t begin = find(id);
    if (begin == m_bars.size())
        return;
    for (std::size_t i = begin, end = endOfTree(begin); i < end; ++i)
        m_bars[i].cancelled = true;
    tell(now());
}

void HVProgressBarMgr::cancelAll()
{
    if (m_bars.empty())
        return;
    for (Bar& bar : m_bars)
        bar.cancelled = true;
    tell(now());
}

void HVProgressBarMgr::dropCancelled()
{
    for (std::size_t i = m_bars.size(); i > 0; --i)
        if (i <= m_bars.size() && m_bars[i - 1].cancelled)
            remove(i - 1, endOfTree(i - 1));
}

void HVProgressBarMgr::poll()
{
    closeFromOtherThreads();
    const Time time = now();
    if (time >= m_nextTelling)
        tell(time);
}

void HVProgressBarMgr::addObserver(HVProgressObserver* observer)
{
    m_observers.push_back(observer);
}

void HVProgressBarMgr::removeObserver(HVProgressObserver* observer)
{
    std::erase(m_observers, observer);
}

std::size_t HVProgressBarMgr::find(std::int32_t id) const
{
    if (m_found < m_bars.size() && m_bars[m_found].id == id) [[likely]]
        return m_found;
    for (std::size_t i = m_bars.size(); i > 0; --i)
        if (m_bars[i - 1].id == id)
            return m_found = i - 1;
    return m_bars.size();
}

std::size_t HVProgressBarMgr::endOfTree(std::size_t bar) const
{
    std::size_t end = bar + 1;
    while (end < m_bars.size() && m_bars[end].depth > m_bars[bar].depth)
        ++end;
    return end;
}

void HVProgressBarMgr::remove(std::size_t begin, std::size_t end)
{
    if (begin == end)
        return;
    const Time time = now();
    std::vector<HVProgressBarState> closed;
    for (std::size_t i = begin; i < end; ++i) {
        if (m_bars[i].told)
            closed.push_back(state(m_bars[i], time));
        if (m_bars[i].cancelled)
            m_cancelledAndGone.push_back(m_bars[i].id);
    }
    while (m_cancelledAndGone.size() > g_mostRemembered)
        m_cancelledAndGone.pop_front();
    m_bars.erase(m_bars.begin() + static_cast<std::ptrdiff_t>(begin),
                 m_bars.begin() + static_cast<std::ptrdiff_t>(end));
    for (HVProgressObserver* observer : m_observers)
        for (const HVProgressBarState& bar : closed)
            observer->progressClosed(bar);
    if (!m_bars.empty())
        return;
    m_nextTelling = s_never;
    if (std::exchange(m_shown, false))
        for (HVProgressObserver* observer : m_observers)
            observer->progressChanged({});
}

std::atomic<std::int32_t> HVProgressBarMgr::s_lastId = NoBar;

std::int32_t HVProgressBarMgr::freeId()
{
    std::int32_t id;
    do {
        id = ++s_lastId;
        if (id < 0)
            s_lastId = NoBar;
    } while (id <= NoBar || find(id) < m_bars.size());
    return id;
}

void HVProgressBarMgr::closeFromOtherThreads()
{
    if (!m_anyToClose)
        return;
    std::vector<std::int32_t> ids;
    {
        const std::lock_guard lock(m_mutex);
        ids.swap(m_toClose);
        m_anyToClose = false;
    }
    for (const std::int32_t id : ids)
        close(id);
}

void HVProgressBarMgr::tell(Time time)
{
    closeFromOtherThreads();
    if (m_bars.empty())
        return;
    m_lastTelling = time;
    m_nextTelling = time + g_interval;
    m_shown = true;
    std::vector<HVProgressBarState> bars;
    for (Bar& bar : m_bars) {
        bar.told = true;
        if (bar.done > 0)
            bar.timeLeft.note(bar.lastStep, bar.done);
        bars.push_back(state(bar, time));
    }
    for (HVProgressObserver* observer : m_observers)
        observer->progressChanged(bars);
}

HVProgressBarState HVProgressBarMgr::state(Bar& bar, Time time) const
{
    HVProgressBarState state{bar.id, bar.depth, bar.name, bar.done, bar.steps, {}, 0, {}, bar.modal, bar.cancelled};
    state.secondsTaken = std::chrono::duration<double>(time - bar.opened).count();
    if (bar.steps > 0) {
        state.fraction = std::min(1.0, static_cast<double>(bar.done) / bar.steps);
        state.secondsLeft = bar.timeLeft.seconds(time, bar.steps);
    }
    return state;
}
