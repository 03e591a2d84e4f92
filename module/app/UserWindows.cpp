#include "runtime/UserWindows.h"

#include "module/ModuleFrame.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

namespace python {

namespace {

class UserWindows final : public IUserWindows
{
public:
    QString askForLine(const QString& label) override
    {
        QInputDialog dialog(nullptr);
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.setWindowTitle(QStringLiteral("Python Input"));
        dialog.setLabelText(label);
        dialog.setTextEchoMode(QLineEdit::Normal);
        return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
    }

    void warn(const QString& title, const QString& text) override
    {
        QMessageBox::warning(nullptr, title, text, QMessageBox::Ok);
    }

    void closeModalWindow() override
    {
        if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
            return;
        // Not the event alone, which only a dialog answers by going away.
        if (QWidget* modal = QApplication::activeModalWidget())
            modal->close();
    }
};

} // namespace

void installScripting()
{
    static UserWindows windows;
    setUserWindows(&windows);
    PyImport_AppendInittab("strativo_python", PyInit_strativo_python);
}

} // namespace python
