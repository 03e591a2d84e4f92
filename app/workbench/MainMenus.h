#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace workbench {

class MainWindow;

/// The main window's menus and the tool bar's buttons. Menus whose contents are known only when they are looked at
/// (recent scripts, windows) are filled then.
///
/// The titles have no mnemonics: scripts ask for menus by the title.
class MainMenus : public QObject
{
    Q_OBJECT

public:
    /// Fills the menu bar and the tool bar of `window`, which owns the object.
    explicit MainMenus(MainWindow& window);

private:
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeToolsMenu();
    void makeSettingsMenu();
    void makeWindowMenu();
    void makeHelpMenu();

    QMenu* addMenu(const QString& title);
    void explainWhenEmpty(QMenu* menu, const QString& explanation);
    void fillScripts(QMenu* menu, const QStringList& paths, const QString& none);
    void fillRecentScripts(QMenu* menu);
    void fillProjectScripts(QMenu* menu);
    void fillWindowList(QMenu* menu);
    void showAbout();

    MainWindow& m_window;
    QAction* m_new = nullptr;
    QAction* m_open = nullptr;
    QAction* m_save = nullptr;
    QAction* m_run = nullptr;
    QList<QAction*> m_editorActions; // of the Edit menu, for scripts only
    QList<QAction*> m_windowActions; // of the Window menu, above its list
};

} // namespace workbench
