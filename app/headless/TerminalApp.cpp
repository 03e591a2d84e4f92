#include "app/headless/TerminalApp.h"

#include "app/workbench/MainWindow.h"

#include <QApplication>

#include <clocale>
#include <cstdio>
#include <string>

namespace headless {

TerminalApp::TerminalApp(char** arguments)
    : WindowlessApp(std::make_shared<workbench::Services>()), m_arguments(arguments)
{}

TerminalApp::~TerminalApp()
{
    m_window.reset();
    services()->end();
}

void TerminalApp::makeApplication() const
{
    if (m_application)
        return;
    // Qt takes the user's locale; the script may have chosen another.
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    m_application = std::make_unique<QApplication>(m_argumentCount, m_arguments);
    std::setlocale(LC_ALL, locale.c_str());
}

workbench::MainWindow& TerminalApp::window() const
{
    makeApplication();
    if (!m_window)
        m_window = std::make_unique<workbench::MainWindow>(services());
    return *m_window;
}

QMainWindow* TerminalApp::mainWindow() const
{
    return &window();
}

HVMessageWindow* TerminalApp::messageWindow() const
{
    return window().messageWindow();
}

QMdiSubWindow* TerminalApp::addSubWindow(QWidget* widget)
{
    return window().addDocument(widget);
}

void hideQtWarnings()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
    });
}

int refuse(const QString& sentence)
{
    std::fprintf(stderr, "strativo: %s\n", sentence.toLocal8Bit().constData());
    return g_statusNotStarted;
}

} // namespace headless
