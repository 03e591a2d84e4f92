#pragma once

#include "host/services/IScriptProject.h"

namespace workbench {

/// Scripts of the workbench: saved wherever the user likes, beginning where the last one was, and remembered in the
/// list of recent scripts. Is IScriptProject::current() while it lives.
class ScriptFiles : public IScriptProject
{
public:
    ScriptFiles() { setCurrent(this); }
    ~ScriptFiles() override { setCurrent(nullptr); }

    QString chooseScriptToSave(QWidget* parent) override;
    void registerScript(const QString& path) override;
    void scriptListChanged() override {} // the list is read when its menu opens
};

} // namespace workbench
