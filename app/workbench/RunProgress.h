#pragma once

#include "host/widgets/HVProgressPresenter.h"

namespace workbench {

class MainWindow;

/// Progress bars in the workbench: their window lives while a script occupies the GUI thread, and its Cancel button and
/// Escape get through to it. GUI thread only.
class RunProgress : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; both outlive this.
    RunProgress(MainWindow& window, HVProgressBarMgr& bars);

    HVProgressPresenter& presenter() { return m_presenter; }

private:
    HVProgressPresenter m_presenter;
};

} // namespace workbench
