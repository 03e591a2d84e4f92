#include "app/workbench/AppWrapper.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RunIndicator.h"

namespace workbench {

AppWrapper::AppWrapper(MainWindow& window) : WindowlessApp(window.services()), m_window(window) {}

QMainWindow* AppWrapper::mainWindow() const
{
    return &m_window;
}

HVMessageWindow* AppWrapper::messageWindow() const
{
    return m_window.messageWindow();
}

IRunObserver* AppWrapper::runObserver() const
{
    return m_window.runIndicator();
}

QMdiSubWindow* AppWrapper::addSubWindow(QWidget* widget)
{
    return m_window.addDocument(widget);
}

} // namespace workbench
