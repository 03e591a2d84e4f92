#include "host/widgets/HVProgressPresenter.h"

#include <QApplication>

namespace {

using namespace std::chrono_literals;

constexpr HVProgressBarMgr::Time g_delay = 400ms;
/// A gap that still belongs to the series.
constexpr HVProgressBarMgr::Time g_gap = 500ms;
constexpr HVProgressBarMgr::Time g_shortestShow = 250ms;
constexpr auto g_timer = 50ms;

} // namespace

HVProgressPresenter::HVProgressPresenter(HVProgressBarMgr& manager, QWidget* mainWindow)
    : m_manager(manager), m_mainWindow(mainWindow)
{
    m_timer.setInterval(g_timer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_manager.poll();
        refresh();
    });
    m_manager.addObserver(this);
}

HVProgressPresenter::~HVProgressPresenter()
{
    m_manager.removeObserver(this);
    delete m_window;
}

void HVProgressPresenter::setOccupied(bool occupied)
{
    if (std::exchange(m_occupied, occupied) == occupied)
        return;
    if (!occupied)
        m_manager.dropCancelled();
    // A window that is visible cannot become modal or cease to be.
    if (isShown() && !m_bars.empty())
        takeAway();
    refresh();
}

void HVProgressPresenter::setPaused(bool paused)
{
    m_paused = paused;
    if (paused)
        takeAway();
}

void HVProgressPresenter::progressStarted()
{
    if (!std::exchange(m_inSeries, true))
        m_since = m_idleSince = m_manager.now();
    if (!m_timer.isActive())
        m_timer.start();
}

void HVProgressPresenter::progressChanged(const std::vector<HVProgressBarState>& bars)
{
    const auto now = m_manager.now();
    if (bars.empty())
        m_idleSince = now;
    const bool cancelled = bars.empty() && !m_bars.empty() && m_bars.back().cancelled;
    m_bars = bars;
    if (cancelled) {
        m_inSeries = false;
        takeAway();
    }
    refresh();
    if (isShown())
        m_window->setBars(m_bars);
}

void HVProgressPresenter::refresh()
{
    const auto now = m_manager.now();
    if (m_manager.isAnyRunning()) {
        if (!m_bars.empty() && !isShown() && !m_paused && now - m_since >= g_delay)
            showWindow();
        return;
    }
    const auto end = m_occupied ? m_idleSince + g_gap : m_shownSince + g_shortestShow;
    if (m_inSeries && now < end)
        return;
    m_inSeries = false;
    m_timer.stop();
    takeAway();
}

void HVProgressPresenter::showWindow()
{
    // In front of the dialog that is modal now, which would block any other window.
    QWidget* front = QApplication::activeModalWidget();
    m_window = new HVProgressWindow(front ? front : m_mainWindow);
    const bool modal = !m_occupied && std::any_of(m_bars.begin(), m_bars.end(),
                                                  [](const HVProgressBarState& bar) { return bar.modal; });
    m_window->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    m_window->setBars(m_bars);
    connect(m_window, &HVProgressWindow::cancelRequested, this, &HVProgressPresenter::cancel);
    Q_EMIT windowMade(m_window);
    m_window->show();
    m_shownSince = m_manager.now();
}

void HVProgressPresenter::takeAway()
{
    if (!m_window)
        return;
    m_window->hide();
    // It may be in the middle of its own signal.
    m_window->deleteLater();
    m_window.clear();
}

void HVProgressPresenter::cancel()
{
    m_manager.cancelAll();
    // Without a script at work there is nobody who would notice.
    if (!m_occupied)
        m_manager.dropCancelled();
}
