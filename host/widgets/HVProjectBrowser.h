#pragma once

#include "host/data/HVProject.h"

#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QWidget>

class HVProjectCommands;
class HVProjectFilter;
class HVProjectModel;
class QLabel;
class QLineEdit;
class QMenu;
class QStackedWidget;
class QTreeView;
struct ProjectNode;
namespace hv {
class JobManager;
}

/// Shows the objects of the open project in a tree with a search field; made for a dock widget. What is open and
/// selected stays so when objects come and go. Without a project, and in an empty one, it says how to begin.
class HVProjectBrowser : public QWidget
{
    Q_OBJECT

public:
    explicit HVProjectBrowser(QWidget* parent = nullptr);
    ~HVProjectBrowser() override;

    /// Null for none. A browser that is not on the screen looks at the project when it is shown.
    void setProject(HVProject* project);

    /// Who copies large files beside; not owned, outlives the browser. Without it the browser waits for them.
    void setJobs(hv::JobManager* jobs);

    /// Chooses the object and brings it into view, whatever is searched for. Nothing happens to one that is not listed.
    void select(const hv::ObjectKey& object);

    QTreeView* view() const { return m_view; }
    QLineEdit* searchField() const { return m_search; }
    HVProjectModel* model() const { return m_model; }

Q_SIGNALS:
    /// The context menu for these objects has its own commands; others may be added.
    void menuAboutToShow(QMenu& menu, const std::vector<hv::ObjectKey>& objects);
    void objectActivated(ObjectKind kind, const QString& path);
    void newProjectRequested();
    void openProjectRequested();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void makeView();
    void keepState();
    void restoreState();
    void search();
    void showPage();
    void showMenu(const QPoint& position);
    void followLink(const QString& link);
    QVector<const ProjectNode*> selectedRows() const;

    QPointer<HVProject> m_project;
    HVProjectModel* m_model;
    HVProjectFilter* m_filter;
    HVProjectCommands* m_commands;
    QLineEdit* m_search;
    QTreeView* m_view;
    QLabel* m_hint;
    QStackedWidget* m_pages;
    QTimer m_searchSoon;
    QSet<QString> m_known;    // keys of kinds and directories that were shown before
    QSet<QString> m_expanded; // and of those that were open
    QSet<QString> m_selected;
};
