#include "app/workbench/RunProgress.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"
#include "host/jobs/JobManager.h"

namespace workbench {

RunProgress::RunProgress(MainWindow& window, HVProgressBarMgr& bars) : m_presenter(bars, &window)
{
    RunIndicator* run = window.runIndicator();
    HeldInput* input = run->input();
    connect(run, &RunIndicator::breathing, this, [this, &bars, jobs = window.jobs()] {
        bars.poll();
        jobs->poll();
        m_presenter.refresh();
    });
    connect(run, &RunIndicator::runningChanged, &m_presenter, &HVProgressPresenter::setOccupied);
    connect(run, &RunIndicator::pausedChanged, &m_presenter, &HVProgressPresenter::setPaused);
    connect(&m_presenter, &HVProgressPresenter::windowMade, input, &HeldInput::setLiveWindow);
    connect(input, &HeldInput::escapePressed, this, [this] {
        if (HVProgressWindow* progress = m_presenter.window())
            progress->reject();
    });
}

} // namespace workbench
