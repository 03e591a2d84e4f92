#pragma once

#include <QString>
#include <QStringList>

namespace python {

/// Asks the user what to do after a plug-in refused to be unloaded, and carries the answer out. GUI thread only.
class IUnloadFailurePrompt
{
public:
    virtual ~IUnloadFailurePrompt() = default;

    /// False where the refusal has no consequences: autoload stays as it is in the plug-in's folder, nobody is asked.
    virtual bool hasConsequences() const { return true; }
    /// Shows a critical error as rich text; true when the user wants the application restarted.
    virtual bool askForRestart(const QString& title, const QString& text) = 0;
    /// Starts the application anew and ends this process at once; returns only in tests.
    virtual void restart() = 0;
};

/// The prompt in use: a message box, or for a program on a terminal a message that answers itself with "No".
IUnloadFailurePrompt& unloadFailurePrompt();

/// What the program is started anew with, after it was started with `arguments`: its own name, which stays among them,
/// is its whole path, by which it knows that this is no script to open.
QStringList restartArguments(QStringList arguments);

/// Puts another prompt in place for its lifetime; not owned.
class UnloadFailurePromptGuard
{
public:
    explicit UnloadFailurePromptGuard(IUnloadFailurePrompt& prompt);
    ~UnloadFailurePromptGuard();
    UnloadFailurePromptGuard(const UnloadFailurePromptGuard&) = delete;
    UnloadFailurePromptGuard& operator=(const UnloadFailurePromptGuard&) = delete;

private:
    IUnloadFailurePrompt* m_before;
};

/// Reports on the event bus and never restarts: for a terminal, and for the time when the application is leaving.
class QuietUnloadFailurePrompt final : public IUnloadFailurePrompt
{
public:
    bool askForRestart(const QString& title, const QString& text) override;
    void restart() override {}
};

} // namespace python
