#pragma once

#include "host/services/HVProgressBarMgr.h"
#include "host/services/IAppWrapper.h"

namespace workbench {

class MainWindow;

/// The application as the scripting layer sees it, over the main window.
class AppWrapper : public IAppWrapper
{
public:
    /// `window` is not owned and outlives the wrapper.
    explicit AppWrapper(MainWindow& window) : m_window(window) {}

    QMainWindow* mainWindow() const override;
    HVMessageWindow* messageWindow() const override;
    IProgressService* progressService() const override { return &m_progress; }
    IRunObserver* runObserver() const override;
    QString version() const override;
    bool isTerminalProgram() const override { return false; }
    QMdiSubWindow* addSubWindow(QWidget* widget) override;
    HVProject* currentProject() const override;
    hv::ChangeLog* projectChanges() const override;
    void refreshProject(std::optional<int> objectKind) override;
    /// Colour bars are objects of the project; previews follow their files by themselves.
    void refreshPalettes() override;

    /// What progressService() hands out; watched by whatever shows the bars.
    HVProgressBarMgr& progress() const { return m_progress; }

private:
    MainWindow& m_window;
    mutable HVProgressBarMgr m_progress;
};

} // namespace workbench
