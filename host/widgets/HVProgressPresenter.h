#pragma once

#include "host/services/HVProgressBarMgr.h"
#include "host/widgets/HVProgressWindow.h"

#include <QPointer>
#include <QTimer>

/// Shows the bars of a manager in a progress window. What is over within 0.4 s shows nothing; the window bridges short
/// gaps between one bar and the next and never just flashes up. Nothing is made before it is needed.
///
/// While a script occupies the GUI thread the application holds all other input back, and the window is an ordinary
/// one: a modal one would have it thrown away. Otherwise it is modal when one of the bars is.
///
/// GUI thread only.
class HVProgressPresenter final : public QObject, public HVProgressObserver
{
    Q_OBJECT

public:
    /// Neither is owned; both outlive the presenter. The window belongs to `mainWindow` or the modal dialog in front.
    HVProgressPresenter(HVProgressBarMgr& manager, QWidget* mainWindow);
    ~HVProgressPresenter() override;

    /// A script begins or ceases to occupy the GUI thread. At its end, bars that were cancelled go.
    void setOccupied(bool occupied);
    /// Keeps the window away while the script waits in the debugger.
    void setPaused(bool paused);
    /// To be called now and then while the GUI thread is occupied; timers do this otherwise.
    void refresh();

    /// Null while there is none.
    HVProgressWindow* window() const { return m_window; }
    bool isShown() const { return m_window && m_window->isVisible(); }

    void progressStarted() override;
    void progressChanged(const std::vector<HVProgressBarState>& bars) override;

Q_SIGNALS:
    /// A window was made and is about to be shown.
    void windowMade(HVProgressWindow* window);

private:
    void showWindow();
    void takeAway();
    void cancel();

    HVProgressBarMgr& m_manager;
    QWidget* const m_mainWindow;
    QPointer<HVProgressWindow> m_window;
    std::vector<HVProgressBarState> m_bars;
    HVProgressBarMgr::Time m_since{}; // of the first bar of a series
    HVProgressBarMgr::Time m_idleSince{};
    HVProgressBarMgr::Time m_shownSince{};
    bool m_inSeries = false; // a window is shown, or is going to be when the bars stay
    bool m_occupied = false;
    bool m_paused = false;
    QTimer m_timer;
};
