#include "app/workbench/RunIndicator.h"

#include "app/workbench/Commands.h"
#include "app/workbench/WindowTitle.h"
#include "host/widgets/HVMessageWindow.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

namespace workbench {

namespace {

/// Of the run's time, one part in this many goes into showing its output.
constexpr qint64 g_messageShare = 16;
constexpr qint64 g_longestSilence = 300; // milliseconds
/// What a script may take to end after it was interrupted.
constexpr qint64 g_timeToEnd = 2000; // milliseconds

} // namespace

RunIndicator::RunIndicator(QMainWindow* window, Commands& commands, WindowTitle& title, HVMessageWindow* messages)
    : QObject(window), m_window(window), m_commands(commands), m_title(title), m_messages(messages),
      m_stop(commands.handle("script.stop", this, &RunIndicator::askToStop)), m_label(new QLabel)
{
    connect(&m_input, &HeldInput::stopKeysPressed, this, &RunIndicator::askToStop);
    m_label->setContentsMargins(6, 0, 6, 0);
    m_label->hide();
    window->statusBar()->addWidget(m_label);
}

void RunIndicator::setStopButton(QWidget* button)
{
    m_input.setStopControl(button, m_stop->shortcut());
}

void RunIndicator::askToStop()
{
    if (!m_running)
        return;
    noteStop();
    if (m_paused) {
        Q_EMIT stopAskedWhilePaused();
        return;
    }
    m_stopAsked = true;
    m_label->setText(tr("Stopping %1 ...").arg(m_script));
}

void RunIndicator::setPaused(const QString& place)
{
    m_paused = !place.isEmpty();
    Q_EMIT pausedChanged(m_paused);
    hideState();
    if (!m_paused)
        return;
    m_shown = true;
    m_window->statusBar()->clearMessage();
    m_title.setState(tr("paused"));
    m_label->setText(tr("Paused at %1. %2 goes on, %3 steps, %4 stops.")
                         .arg(place, m_commands.keyText("debug.continue"), m_commands.keyText("debug.step-over"),
                              m_commands.keyText("script.stop")));
    m_label->show();
    m_messages->flush();
}

void RunIndicator::runStarted(const QString& fileName)
{
    m_script = QFileInfo(fileName).fileName();
    m_clock.start();
    m_running = true;
    m_stopAsked = false;
    m_stopped = false;
    m_interrupted = -1;
    m_input.forgetEscape();
    m_nextMessages = 0;
    Q_EMIT runningChanged(true);
}

bool RunIndicator::breathe()
{
    const qint64 begin = m_clock.elapsed();
    const bool showMessages = begin >= m_nextMessages;
    if (showMessages)
        m_messages->flushSome();
    showState();
    Q_EMIT breathing();
    m_input.processEvents();
    if (showMessages)
        m_nextMessages = begin + std::min((m_clock.elapsed() - begin) * g_messageShare, g_longestSilence);
    if (!std::exchange(m_stopAsked, false))
        return false;
    const bool ignored = m_interrupted >= 0 && begin - m_interrupted >= g_timeToEnd;
    if (ignored)
        Q_EMIT stopIgnored(m_script);
    if (ignored || m_interrupted < 0)
        m_interrupted = m_clock.elapsed();
    return true;
}

void RunIndicator::showState()
{
    if (!m_shown) {
        m_shown = true;
        m_window->statusBar()->clearMessage();
        m_title.setState(tr("running"));
        m_window->setCursor(Qt::BusyCursor);
        m_label->show();
    }
    const QString state =
        tr("Running %1 for %2 s. Press Esc twice to stop.").arg(m_script).arg(m_clock.elapsed() / 1000);
    if (!m_stopAsked && m_label->text() != state)
        m_label->setText(state);
}

void RunIndicator::runFinished()
{
    m_running = false;
    m_stopped = false;
    hideState();
    Q_EMIT runningChanged(false);
}

void RunIndicator::hideState()
{
    if (!std::exchange(m_shown, false))
        return;
    m_label->hide();
    m_window->unsetCursor();
    m_title.setState(QString());
}

} // namespace workbench
