#include "host/services/HVEventBus.h"
#include "module/app/ApplicationFunctions.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

#include <QFileDialog>
#include <QMainWindow>
#include <QMessageBox>

namespace bp = boost::python;

namespace python {

namespace {

const QString g_title = QStringLiteral("Strativo");

/// Stands in for a dialog on a terminal: the answer that changes nothing is given at once.
void postInstead(const QString& text)
{
    const GilRelease unlocked;
    HVEventBus::instance().sendMessage(MessageLevel::Information, text);
}

/// The dialog's caption; None is no caption.
QString caption(const bp::object& text, const char* format)
{
    return text.is_none() ? QString() : requireStr(text, format);
}

/// The paths that `choose` returns, none on a terminal.
template <typename Choose>
QStringList askForPaths(const char* function, const QString& text, Choose choose)
{
    if (isOnTerminal()) {
        postInstead(QStringLiteral("%1 %2 [nothing chosen]").arg(QLatin1String(function), text));
        return {};
    }
    QMainWindow* window = applicationWindow();
    // Other threads of scripts go on while the user looks around.
    const GilRelease unlocked;
    return choose(window);
}

bp::object firstOf(const QStringList& paths)
{
    return textObject(paths.value(0));
}

} // namespace

void showDialogBox(const bp::object& message)
{
    const QString text = requireStr(message, "showDialogBox(), expected 'str' but got '%s'");
    if (isOnTerminal())
        return postInstead(text);
    QMainWindow* window = applicationWindow();
    if (!window)
        return;
    const GilRelease unlocked;
    QMessageBox::information(window, g_title, text, QMessageBox::Ok);
}

bool showQuestionBox(const bp::object& message, const bp::object& title)
{
    const QString text = requireStr(message, "showQuestionBox(), expected 'str' but got '%s'");
    const QString heading =
        title.is_none()
            ? g_title
            : requireStr(title, "showQuestionBox(), expected 'str' for optional 'title' argument but got '%s'");
    if (isOnTerminal()) {
        postInstead(text + QStringLiteral(" [No]"));
        return false;
    }
    QMainWindow* window = applicationWindow();
    if (!window)
        return false;
    const GilRelease unlocked;
    return QMessageBox::question(window, heading, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

bp::object getDirectory(const bp::object& text)
{
    const QString title = caption(text, "getDirectory(), expected 'str' but got '%s' instead");
    return firstOf(askForPaths("getDirectory()", title, [&](QWidget* parent) {
        return QStringList(QFileDialog::getExistingDirectory(parent, title, {}, QFileDialog::ShowDirsOnly));
    }));
}

bp::object getFile(const bp::object& text)
{
    const QString title = caption(text, "getFile(), expected 'str' but got '%s' instead");
    return firstOf(askForPaths(
        "getFile()", title, [&](QWidget* parent) { return QStringList(QFileDialog::getOpenFileName(parent, title)); }));
}

bp::object getFiles(const bp::object& text)
{
    const QString title = caption(text, "getFiles(), expected 'str' but got '%s' instead");
    bp::list paths;
    for (const QString& path : askForPaths(
             "getFiles()", title, [&](QWidget* parent) { return QFileDialog::getOpenFileNames(parent, title); }))
        paths.append(textObject(path));
    return paths;
}

} // namespace python
