#pragma once

#include "app/workbench/Services.h"
#include "host/services/HVActionDispatcher.h"

#include <QMainWindow>

#include <memory>

class HVMessageWindow;
class HVProjectBrowser;
class HVPythonTextEdit;
class HVUndoStack;
class QMdiArea;
class QMdiSubWindow;
class QToolBar;

namespace hv {
class VolumeExchange;
}

namespace workbench {

class Commands;
class JobsDock;
class RunIndicator;
class ScriptFiles;
class WindowTitle;

/// The application's main window: a tabbed document area, the message window in a dock, menus, tool bar and status
/// bar. What only a person sees comes with restoreLayout(). GUI thread only.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    /// Over services that are there already; they end with the window all the same.
    explicit MainWindow(std::shared_ptr<Services> services);
    ~MainWindow() override;

    QMdiArea* workspace() const { return m_workspace; }
    const std::shared_ptr<Services>& services() const { return m_services; }
    /// The open project and its owner.
    HVProjectService* projects() const { return &m_services->projects(); }
    /// The long work of the application.
    hv::JobManager* jobs() const { return m_services->jobs(); }
    /// Volumes from and to files of other programs.
    hv::VolumeExchange* volumeExchange() const { return m_volumeExchange; }
    const ScriptFiles& scriptFiles() const { return *m_scripts; }
    HVMessageWindow* messageWindow() const { return m_messages; }
    QDockWidget* messageDock() const { return m_messageDock; }
    HVProjectBrowser* projectBrowser() const { return m_browser; }
    QDockWidget* projectDock() const { return m_projectDock; }
    /// Undo of what is done to the project, and its list. Kept for people: from restoreLayout() on.
    HVUndoStack* projectUndo() const { return m_undo; }
    QDockWidget* changesDock() const { return m_changesDock; }
    JobsDock* jobsDock() const { return m_jobsDock; }
    QToolBar* toolBar() const { return m_toolBar; }
    Commands& commands() const { return *m_commands; }
    WindowTitle& title() const { return *m_title; }
    RunIndicator* runIndicator() const { return m_runIndicator; }
    /// Where documents send their actions; the program adds the handlers.
    HVActionDispatcher& actionDispatcher() { return m_dispatcher; }

    /// Adds `widget` to the document area, which owns it from then on. The sub-window deletes itself when closed.
    QMdiSubWindow* addDocument(QWidget* widget);
    /// The one in front, whichever window has the focus.
    void closeDocument();
    /// Asks once about all unsaved scripts. False when the user cancels, a script cannot be saved or a document of a
    /// script or plug-in refuses: every script is there as before then.
    bool closeAllDocuments();
    /// Closes and destroys all documents without asking.
    void destroyDocuments();

    /// Opens the project in a folder, or the one whose file `path` is; false after a message when it cannot be.
    bool openProject(const QString& path);

    HVPythonTextEdit* activeEditor() const;
    QList<HVPythonTextEdit*> editors() const;
    /// Brings the editor's document to the front.
    void showEditor(HVPythonTextEdit& editor);
    HVPythonTextEdit* newScript();
    /// The editor that shows the file, which may be open already; null after a message when it cannot be read.
    HVPythonTextEdit* openScript(const QString& path);
    void chooseScript();
    bool saveScript();
    bool saveScriptAs();

    /// Geometry, docks and tool bars as they were left, and a sensible size the first time.
    void restoreLayout();
    /// In the status bar, for some seconds.
    void tell(const QString& sentence) const;

Q_SIGNALS:
    /// Asked for in the project browser.
    void newProjectRequested();
    void openProjectRequested();
    void editorAdded(HVPythonTextEdit* editor);
    /// The user has left; nothing of the application is on the screen any more.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void fillProjectDock();
    void fillChangesDock();
    bool saveScripts(const QList<HVPythonTextEdit*>& scripts);
    bool settleUnsavedScripts();
    bool closeSettledDocuments();
    void closeOtherWindows();
    void keepLayout() const;
    /// Of a readable file, or of a new script when the path is empty.
    HVPythonTextEdit* addEditor(const QString& path);
    void showTabTitles();
    bool saveUnder(HVPythonTextEdit& editor, const QString& path);

    const std::shared_ptr<Services> m_services;
    hv::VolumeExchange* m_volumeExchange;
    std::unique_ptr<ScriptFiles> m_scripts;
    QMdiArea* m_workspace;
    HVMessageWindow* m_messages;
    QDockWidget* m_messageDock;
    HVProjectBrowser* m_browser = nullptr; // comes with restoreLayout()
    QDockWidget* m_projectDock;
    HVUndoStack* m_undo;
    QDockWidget* m_changesDock;
    JobsDock* m_jobsDock;
    QToolBar* m_toolBar;
    Commands* m_commands;
    std::unique_ptr<WindowTitle> m_title;
    RunIndicator* m_runIndicator;
    HVActionDispatcher m_dispatcher;
    bool m_closeAfterRun = false;
};

} // namespace workbench
