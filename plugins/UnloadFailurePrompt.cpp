#include "plugins/UnloadFailurePrompt.h"

#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QProcess>
#include <QTextDocumentFragment>
#include <QThread>

#include <cstdlib>

namespace python {

namespace {

constexpr unsigned long g_restartMilliseconds = 100;

class MessageBoxPrompt final : public IUnloadFailurePrompt
{
public:
    bool askForRestart(const QString& title, const QString& text) override
    {
        const IAppWrapper* app = applicationInterface();
        QMessageBox box(QMessageBox::Critical, title, text, QMessageBox::Yes | QMessageBox::No,
                        app ? app->mainWindow() : nullptr);
        box.setTextFormat(Qt::RichText);
        box.setDefaultButton(QMessageBox::Yes);
        return box.exec() == QMessageBox::Yes;
    }

    void restart() override
    {
        QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                restartArguments(QCoreApplication::arguments()));
        QThread::msleep(g_restartMilliseconds);
        std::_Exit(EXIT_FAILURE);
    }
};

IUnloadFailurePrompt* g_replacement = nullptr; // NOLINT: one per process, on the GUI thread

} // namespace

IUnloadFailurePrompt& unloadFailurePrompt()
{
    static MessageBoxPrompt box;
    static QuietUnloadFailurePrompt quiet;
    if (g_replacement)
        return *g_replacement;
    const IAppWrapper* app = applicationInterface();
    const bool windowed =
        qobject_cast<QApplication*>(QCoreApplication::instance()) && !(app && app->isTerminalProgram());
    return windowed ? static_cast<IUnloadFailurePrompt&>(box) : quiet;
}

QStringList restartArguments(QStringList arguments)
{
    if (!arguments.isEmpty())
        arguments.first() = QCoreApplication::applicationFilePath();
    return arguments;
}

UnloadFailurePromptGuard::UnloadFailurePromptGuard(IUnloadFailurePrompt& prompt) : m_before(g_replacement)
{
    g_replacement = &prompt;
}

UnloadFailurePromptGuard::~UnloadFailurePromptGuard()
{
    g_replacement = m_before;
}

bool QuietUnloadFailurePrompt::askForRestart(const QString& title, const QString& text)
{
    HVEventBus::instance().sendMessage(
        MessageLevel::Error,
        QStringLiteral("%1\n%2").arg(title, QTextDocumentFragment::fromHtml(text).toPlainText().trimmed()));
    return false;
}

} // namespace python
