#include "app/workbench/ScriptFiles.h"

#include "app/workbench/MainWindow.h"
#include "app/workbench/RecentScripts.h"
#include "host/data/HVProjectService.h"

#include <QFileDialog>
#include <QFileInfo>

namespace workbench {

ScriptFiles::ScriptFiles(const HVProjectService& projects) : m_projects(projects)
{
    setCurrent(this);
}

ScriptFiles::~ScriptFiles()
{
    if (current() == this)
        setCurrent(nullptr);
}

QString ScriptFiles::filter()
{
    return MainWindow::tr("Python scripts (*.py);;All files (*)");
}

QString ScriptFiles::folder() const
{
    if (const HVProject* project = m_projects.project())
        if (QString own = project->folder(ObjectKind::PythonScript); QFileInfo(own).isDir())
            return own;
    return scriptFolder();
}

QStringList ScriptFiles::projectScripts() const
{
    HVProject* project = m_projects.project();
    return project ? project->objects(ObjectKind::PythonScript) : QStringList();
}

QString ScriptFiles::chooseScriptToSave(QWidget* parent, const QString& title, const QString& path) const
{
    QString start = path;
    if (HVProject* project = m_projects.project(); project && start.isEmpty())
        if (const auto fresh =
                project->newFilename(ObjectKind::PythonScript, objectKindInfo(ObjectKind::PythonScript).singular))
            start = *fresh;
    if (start.isEmpty())
        start = folder();
    QString chosen = QFileDialog::getSaveFileName(parent, title, start, filter());
    if (!chosen.isEmpty() && QFileInfo(chosen).suffix().isEmpty())
        chosen += QStringLiteral(".py");
    return chosen;
}

QString ScriptFiles::chooseScriptToSave(QWidget* parent)
{
    return chooseScriptToSave(parent, MainWindow::tr("Save Script"), QString());
}

void ScriptFiles::registerScript(const QString& path)
{
    addRecentScript(path);
    HVProject* project = m_projects.project();
    if (project && project->kindOf(path) == ObjectKind::PythonScript)
        project->refresh(ObjectKind::PythonScript);
}

void ScriptFiles::scriptListChanged()
{
    if (HVProject* project = m_projects.project())
        project->refresh(ObjectKind::PythonScript);
}

} // namespace workbench
