#pragma once

#include <QPointer>

#include <memory>

class QDialog;
class QWidget;

namespace debugger {

/// Makes sure that the user can reach the panel while a script is paused: menus that are open close, the mouse is let
/// go, and when the script waits in a modal dialog, which would block the panel, the panel moves into a window above
/// that dialog for the object's lifetime.
class PauseWindow
{
public:
    explicit PauseWindow(QWidget* panel);
    ~PauseWindow();
    PauseWindow(const PauseWindow&) = delete;
    PauseWindow& operator=(const PauseWindow&) = delete;

private:
    void giveBack();

    QPointer<QWidget> m_panel;
    QPointer<QWidget> m_home;
    QPointer<QDialog> m_window;
};

} // namespace debugger
