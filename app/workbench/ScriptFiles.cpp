#include "app/workbench/ScriptFiles.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RecentScripts.h"

#include <QFileDialog>
#include <QFileInfo>

namespace workbench {

QString ScriptFiles::chooseScriptToSave(QWidget* parent)
{
    QString path = QFileDialog::getSaveFileName(parent, MainWindow::tr("Save Script"), scriptFolder(),
                                                MainWindow::tr("Python scripts (*.py);;All files (*)"));
    if (!path.isEmpty() && QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".py");
    return path;
}

void ScriptFiles::registerScript(const QString& path)
{
    addRecentScript(path);
}

} // namespace workbench
