#pragma once

#include <QObject>

class QMenu;

namespace workbench {

class Commands;
class MainWindow;

/// Carries out the main window's commands, but for those of the project, the debugger and plug-ins, and says which are
/// of use at the moment. Menus whose contents are known only when they are looked at (recent scripts, windows) are
/// filled then.
class MainMenus : public QObject
{
    Q_OBJECT

public:
    /// Fills the menu bar and the tool bar of `window`, which owns the object.
    explicit MainMenus(MainWindow& window);

private:
    void handleFileCommands();
    void handleEditorCommands();
    void handleViewCommands();
    void handleWindowCommands();
    void handleHelpCommands();
    template <typename Function>
    void handleWithEditor(const char* id, Function function);
    void updateContexts();

    void explainWhenEmpty(QMenu* menu, const QString& explanation);
    void fillScripts(QMenu* menu, const QStringList& paths, const QString& none);
    void fillRecentScripts(QMenu* menu);
    void fillProjectScripts(QMenu* menu);
    void fillWindowList(QMenu* menu);
    void showAbout();

    MainWindow& m_window;
    Commands& m_commands;
};

} // namespace workbench
