#pragma once

#include <QString>

class QWidget;

/// Where script files belong: what an editor asks of the application when it saves. An application without one (none
/// set) lets editors save anywhere through the ordinary file dialog.
///
/// GUI thread only.
class IScriptProject
{
public:
    virtual ~IScriptProject() = default;

    /// Asks for the file of a new script, starting in the project's script folder; empty when the user cancels.
    virtual QString chooseScriptToSave(QWidget* parent) = 0;
    /// The script was saved under this path.
    virtual void registerScript(const QString& path) = 0;
    /// A script was saved for the first time: whoever lists the scripts lists them anew.
    virtual void scriptListChanged() = 0;

    /// Null when the application has set none. Not owned.
    static IScriptProject* current();
    static void setCurrent(IScriptProject* project);
};
