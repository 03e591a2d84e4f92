#pragma once

#include <QObject>

class QMenu;

namespace workbench {

class MainWindow;

/// The project's commands in the File menu (New, Open, Close, "Recent Projects") and its name in the window's title.
class ProjectMenu : public QObject
{
    Q_OBJECT

public:
    /// Owned by the window.
    explicit ProjectMenu(MainWindow& window);

private:
    void createProject();
    void chooseProject();
    void fillRecentProjects(QMenu* menu);
    void showTitle();

    MainWindow& m_window;
};

} // namespace workbench
