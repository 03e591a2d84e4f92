#pragma once

#include "app/workbench/WindowlessApp.h"

#include <memory>

class QApplication;

namespace workbench {
class MainWindow;
}

namespace headless {

inline constexpr int g_statusRan = 0;
inline constexpr int g_statusFailed = 1;
inline constexpr int g_statusNotStarted = 2;

/// The workbench's objects for a user who sits at a terminal. Most scripts show nothing, so there is neither a window
/// nor the application object that windows, fonts and timers need before something asks for one: half of the time that
/// a short script takes would be theirs, and with a display each run would connect with it. GUI thread only.
class TerminalApp final : public workbench::WindowlessApp
{
public:
    /// `arguments` are those of main(); Qt sees the program's name alone, all others belong to the script.
    explicit TerminalApp(char** arguments);
    ~TerminalApp() override;
    TerminalApp(const TerminalApp&) = delete;
    TerminalApp& operator=(const TerminalApp&) = delete;

    bool isTerminalProgram() const override { return true; }
    IRunObserver* runObserver() const override { return nullptr; }
    QMainWindow* mainWindow() const override;
    bool hasMainWindow() const override { return true; }
    HVMessageWindow* messageWindow() const override;
    QMdiSubWindow* addSubWindow(QWidget* widget) override;
    /// Makes the application object, once; whoever needs timers or watches files asks for it, too.
    void provideWindows() override { makeApplication(); }

private:
    void makeApplication() const;
    workbench::MainWindow& window() const;

    char** const m_arguments;
    // Made when they are asked for.
    mutable int m_argumentCount = 1; // Qt keeps a reference
    mutable std::unique_ptr<QApplication> m_application;
    mutable std::unique_ptr<workbench::MainWindow> m_window;
};

/// Keeps Qt's own remarks about the platform, which are of no use to a script's user, from standard error.
void hideQtWarnings();

/// Says on standard error why nothing was started; the status for that.
int refuse(const QString& sentence);

} // namespace headless
