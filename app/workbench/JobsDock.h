#pragma once

#include <QDockWidget>

class QToolButton;

namespace hv {
class JobManager;
}

namespace workbench {

/// The jobs' place in the main window: their panel in a dock, and a button in the status bar that tells of them while
/// there are any and opens it. Nothing but the dock is made before it is needed. GUI thread only.
class JobsDock : public QDockWidget
{
    Q_OBJECT

public:
    /// `jobs` is not owned and outlives the dock.
    JobsDock(hv::JobManager& jobs, QWidget* parent);

Q_SIGNALS:
    /// The first job was started; the button is to be put into the status bar, which takes it over.
    void buttonMade(QToolButton* button);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showState();

    hv::JobManager& m_jobs;
    QToolButton* m_button = nullptr;
};

} // namespace workbench
