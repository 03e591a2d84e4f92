#pragma once

#include "host/services/IProgressService.h"

#include <QString>

#include <optional>

class HVMessageWindow;
class HVProject;
class QMainWindow;
class QMdiSubWindow;
class QWidget;

namespace hv {
class ChangeLog;
}

/// Follows a script that occupies the GUI thread. All calls come on the GUI thread.
///
/// breathe() comes about every 40 ms while Python code runs, between two of its instructions: the observer lets
/// pending paints through and looks whether the user asked to stop. It must not run user code and returns quickly.
class IRunObserver
{
public:
    virtual ~IRunObserver() = default;
    virtual void runStarted(const QString& fileName) = 0;
    /// True asks for the script to be interrupted.
    virtual bool breathe() = 0;
    /// Whether the run under way was told to end: its KeyboardInterrupt is then no error.
    virtual bool stopWasAsked() const { return false; }
    virtual void runFinished() = 0;
};

/// What the scripting layer needs of the application around it. The application owns the object and keeps it alive
/// longer than the execution context. Services that an application lacks are null.
class IAppWrapper
{
public:
    virtual ~IAppWrapper() = default;

    /// First operation: the main window, null when there is none. GUI thread only: it may be made now.
    virtual QMainWindow* mainWindow() const = 0;
    /// Whether mainWindow() gives one. Any thread.
    virtual bool hasMainWindow() const { return mainWindow() != nullptr; }
    /// A window, font or icon is about to be made; whoever has made nothing that they need yet does so. GUI thread
    /// only.
    virtual void provideWindows() {}
    virtual HVMessageWindow* messageWindow() const = 0;
    virtual IProgressService* progressService() const = 0;
    virtual IRunObserver* runObserver() const = 0;
    /// "major.minor..." as shown to the user.
    virtual QString version() const = 0;
    /// True for a program whose user sits at its standard input: input() then reads from there as in plain Python
    /// instead of asking with a dialog.
    virtual bool isTerminalProgram() const = 0;
    /// The open project, null when there is none. Not owned; it may be closed between two calls.
    virtual HVProject* currentProject() const { return nullptr; }
    /// Where what is done to the open project is recorded; null when nobody can take it back. Not owned.
    virtual hv::ChangeLog* projectChanges() const { return nullptr; }
    /// Shows the project's objects anew: those of one kind (the numbers of ObjectId), or all.
    virtual void refreshProject(std::optional<int> /*objectKind*/) {}
    /// Reads the list of colour bars anew.
    virtual void refreshPalettes() {}
    /// Adds `widget`, which is taken over, to the main window's document area; null when there is none, and then the
    /// widget stays the caller's.
    virtual QMdiSubWindow* addSubWindow(QWidget* /*widget*/) { return nullptr; }
};
