#pragma once

#include "app/workbench/HeldInput.h"
#include "host/services/IAppWrapper.h"

#include <QElapsedTimer>
#include <QPointer>

class HVMessageWindow;
class QAction;
class QLabel;
class QMainWindow;

namespace workbench {

class Commands;
class WindowTitle;

/// Shows that a script is running and lets the user stop it. GUI thread only.
///
/// What takes less than a breath leaves no trace on the screen.
class RunIndicator final : public QObject, public IRunObserver
{
    Q_OBJECT

public:
    /// `window` owns the indicator; the others live as long as the window.
    RunIndicator(QMainWindow* window, Commands& commands, WindowTitle& title, HVMessageWindow* messages);

    /// Asks for the script to be interrupted.
    QAction* stopAction() const { return m_stop; }
    /// The button of stopAction(), which works while the script runs.
    void setStopButton(QWidget* button);

    HeldInput* input() { return &m_input; }

    bool isRunning() const { return m_running; }
    bool isPaused() const { return m_paused; }
    /// The script waits in the debugger, at this place; empty when it goes on. Whoever makes it wait also makes it
    /// stop, see stopAskedWhilePaused().
    void setPaused(const QString& place);
    void askToStop();
    /// The run under way ends because the user wants it to, whichever way that was said.
    void noteStop() { m_stopped = true; }

    void runStarted(const QString& fileName) override;
    bool breathe() override;
    bool stopWasAsked() const override { return m_stopped; }
    void runFinished() override;

Q_SIGNALS:
    void runningChanged(bool running);
    void stopAskedWhilePaused();
    /// The script was interrupted before, had time to end and is stopped again. Sent in a breath, outside of the
    /// handling of input.
    void stopIgnored(const QString& script);
    void pausedChanged(bool paused);
    /// What has to move during a run moves now; sent in every breath, before windows paint.
    void breathing();

private:
    void showState();
    void hideState();

    QMainWindow* m_window;
    Commands& m_commands;
    WindowTitle& m_title;
    HVMessageWindow* m_messages;
    QAction* m_stop;
    QLabel* m_label;
    HeldInput m_input;
    QElapsedTimer m_clock;
    qint64 m_nextMessages = 0; // on the clock, in milliseconds
    QString m_script;
    bool m_running = false;
    bool m_shown = false;
    bool m_stopAsked = false; // and not yet passed on
    bool m_stopped = false;
    qint64 m_interrupted = -1; // when on the clock, -1 for not yet
    bool m_paused = false;
};

} // namespace workbench
