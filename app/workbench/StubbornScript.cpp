#include "app/workbench/StubbornScript.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/OpenScripts.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"

#include <QMessageBox>
#include <QPushButton>

#include <unistd.h>

namespace workbench {

void keepForNextStart(MainWindow& window)
{
    for (HVPythonTextEdit* editor : window.editors())
        editor->keepUnsavedTextNow();
    keepOpenScripts(openScripts(window));
    window.projects()->close();
}

void offerToEnd(MainWindow& window, const QString& script)
{
    QMessageBox box(QMessageBox::Warning, MainWindow::tr("Stop Script"),
                    MainWindow::tr("%1 was stopped and goes on all the same.").arg(script), QMessageBox::NoButton,
                    &window);
    box.setInformativeText(
        MainWindow::tr("Strativo can be ended together with the script. Unsaved scripts are kept and "
                       "open again at the next start; whatever else is not saved is lost."));
    const QPushButton* end = box.addButton(MainWindow::tr("&End Strativo"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(MainWindow::tr("&Wait"), QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() != end)
        return;
    keepForNextStart(window);
    // The script holds the interpreter and the GUI thread: nothing can be taken down in order.
    ::_exit(1);
}

} // namespace workbench
