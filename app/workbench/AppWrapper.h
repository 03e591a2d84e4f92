#pragma once

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
    IProgressService* progressService() const override { return nullptr; }
    IRunObserver* runObserver() const override;
    QString version() const override;
    bool isTerminalProgram() const override { return false; }
    QMdiSubWindow* addSubWindow(QWidget* widget) override;
    HVProject* currentProject() const override;
    void refreshProject(std::optional<int> objectKind) override;

private:
    MainWindow& m_window;
};

} // namespace workbench
