#include "editor/debugger/PauseWindow.h"

#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QMdiSubWindow>
#include <QVBoxLayout>

namespace debugger {

namespace {

constexpr QSize g_size(420, 560);

/// Escape or the close button must not leave the script paused with nothing on the screen to resume it.
class StayingDialog final : public QDialog
{
public:
    using QDialog::QDialog;
    void reject() override {}
};

void letGoOfInput()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close())
            break;
    if (QWidget* grabber = QWidget::mouseGrabber())
        grabber->releaseMouse();
    if (QWidget* grabber = QWidget::keyboardGrabber())
        grabber->releaseKeyboard();
}

} // namespace

PauseWindow::PauseWindow(QWidget* panel) : m_panel(panel), m_home(panel->parentWidget())
{
    letGoOfInput();
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal == panel->window() || modal->isAncestorOf(panel))
        return;
    // Without a parent: the script may destroy its dialog, and the panel must not go with it.
    m_window = new StayingDialog(nullptr, Qt::Window | Qt::WindowStaysOnTopHint);
    m_window->setWindowTitle(panel->windowTitle());
    m_window->setWindowModality(Qt::ApplicationModal);
    auto* layout = new QVBoxLayout(m_window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    m_window->resize(g_size);
    m_window->show();
}

PauseWindow::~PauseWindow()
{
    if (m_panel && m_window)
        giveBack();
    delete m_window;
}

void PauseWindow::giveBack()
{
    if (auto* dock = qobject_cast<QDockWidget*>(m_home))
        dock->setWidget(m_panel);
    else if (auto* document = qobject_cast<QMdiSubWindow*>(m_home))
        document->setWidget(m_panel);
    else
        m_panel->setParent(m_home);
    m_panel->show();
}

} // namespace debugger
