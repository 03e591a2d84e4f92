#pragma once

#include <QObject>

class QAction;
class QMenu;

namespace workbench {

class MainWindow;

/// The project's commands in the File menu (New, Open, Close, "Recent Projects") and its name in the window's title.
class ProjectMenu : public QObject
{
    Q_OBJECT

public:
    /// Adds the commands at the end of `menu`; owned by the window.
    ProjectMenu(MainWindow& window, QMenu& menu);

private:
    void createProject();
    void chooseProject();
    void fillRecentProjects(QMenu& menu);
    void showTitle();

    MainWindow& m_window;
    QAction* m_close;
};

} // namespace workbench
