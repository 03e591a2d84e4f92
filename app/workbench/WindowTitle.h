#pragma once

#include <QString>

class QWidget;

namespace workbench {

/// The main window's title: the open project, and what a script is doing just now.
class WindowTitle
{
public:
    /// `window` outlives the object.
    explicit WindowTitle(QWidget& window);

    /// Empty while no project is open.
    void setProject(const QString& name);
    /// One word, empty while nothing runs.
    void setState(const QString& word);

private:
    void show();

    QWidget& m_window;
    QString m_project;
    QString m_state;
};

} // namespace workbench
