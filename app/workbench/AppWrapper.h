#pragma once

#include "app/workbench/WindowlessApp.h"

namespace workbench {

class MainWindow;

/// The application as the scripting layer sees it, over the main window.
class AppWrapper : public WindowlessApp
{
public:
    /// `window` is not owned and outlives the wrapper.
    explicit AppWrapper(MainWindow& window);

    QMainWindow* mainWindow() const override;
    HVMessageWindow* messageWindow() const override;
    IRunObserver* runObserver() const override;
    bool isTerminalProgram() const override { return false; }
    QMdiSubWindow* addSubWindow(QWidget* widget) override;

private:
    MainWindow& m_window;
};

} // namespace workbench
