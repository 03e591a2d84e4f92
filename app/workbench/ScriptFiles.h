#pragma once

#include "host/services/IScriptProject.h"

#include <QStringList>

class HVProjectService;

namespace workbench {

/// Scripts of the workbench: those of the open project, whose folder is where new ones go first, and any others, which
/// the list of recent scripts remembers. Is IScriptProject::current() while it lives.
class ScriptFiles : public IScriptProject
{
public:
    /// `projects` is not owned.
    explicit ScriptFiles(const HVProjectService& projects);
    ~ScriptFiles() override;

    /// Where file dialogs begin: the project's script folder once there is one, else where the last script was.
    QString folder() const;
    /// Absolute paths of the open project's scripts in the order of their names.
    QStringList projectScripts() const;
    /// Asks where to save the script that lies at `path`, or one that has no file yet. Empty when the user cancels.
    QString chooseScriptToSave(QWidget* parent, const QString& title, const QString& path) const;

    QString chooseScriptToSave(QWidget* parent) override;
    void registerScript(const QString& path) override;
    void scriptListChanged() override;

    /// The file types of file dialogs.
    static QString filter();

private:
    const HVProjectService& m_projects;
};

} // namespace workbench
