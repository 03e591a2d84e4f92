#pragma once

#include "editor/debugger/BreakpointSettings.h"
#include "host/services/HVObjectSerialization.h"
#include "runtime/CodeEditor.h"

#include <QPlainTextEdit>

#include <memory>
#include <set>
#include <vector>

class HVPythonSyntaxHighlighter;

namespace editor {
class Completion;
class Marks;
class NoticeBar;
class ScriptFile;
class Search;
} // namespace editor

/// editor: the windows in which scripts are written and watched.

/// The editor of one Python file: line numbers with breakpoints, search, completion, marks for the current line, the
/// line where execution is paused and the line of the last error. It does not run code; Execute asks the main window
/// to. Lines are counted from 1, -1 is none.
///
/// It handles the events and joins four objects that know only the text: Marks, Search, Completion and ScriptFile.
///
/// GUI thread only. The execution context uses an editor during a run, so it must outlive the run.
class HVPythonTextEdit : public QPlainTextEdit, public HVObjectSerialization, public python::CodeEditor
{
    Q_OBJECT

public:
    explicit HVPythonTextEdit(QWidget* parent = nullptr);
    ~HVPythonTextEdit() override;

    /// Replaces the text by the file's (see ScriptText.h for encodings and line ends) and drops breakpoints and error
    /// marks; false and unchanged when the file cannot be opened.
    bool loadFile(const QString& path);
    /// Asks for a file when there is none yet; true also when the user cancels that. A failed write is reported in a
    /// box and leaves the file as it was and the document modified.
    bool saveToFile();
    /// Breakpoints move to the new name with the text.
    void setFilename(const QString& path);
    QString filename() const;
    /// Whether saving would fail because the file, or its folder, must not be written. The window's icon shows it, so
    /// windowIconChanged() tells of changes.
    bool isFileReadOnly() const;
    void updateWindowTitle();

    /// Asks for the text to be run: sends "EXECUTE_PYTHON_IN_EDITOR".
    void execute();
    /// Save, Execute, Documentation search, Search.
    std::vector<QAction*> editorActions() const;

    /// Marks `line`, whichever file the error was in, and puts the cursor below it.
    void errorDetected(std::string filename, std::string function, long line) override;
    void clearErrors() override;
    /// Unlike toPlainText() this keeps no-break spaces.
    QString plainText() const override;

    /// Execution is paused at `line`, or goes on (-1).
    void breakpointHit(int line);
    void clearBreakpoints();
    std::set<qint32> breakpoints() const;
    /// As a click in the gutter does.
    void toggleBreakpoint(int line);
    /// They move with the breakpoint. The usual ones, and nothing is set, where there is none.
    debugger::BreakpointSettings breakpointSettings(int line) const;
    void setBreakpointSettings(int line, const debugger::BreakpointSettings& settings);

    int lineNumberAreaWidth() const;
    void updateLineNumberAreaWidth(int blockCount = 0);
    void updateLineNumberArea(const QRect& rectangle, int dy);
    void onTextChanged();

    bool SaveObjectSession(QDomElement& element) const override;
    bool LoadObjectSession(const QDomElement& element) override;

    /// Next or previous match of the last search, around the ends of the text.
    void findNext();
    void findPrevious();
    void showSearchBar();
    void showReplaceBar();
    /// Comments the selected lines, or takes their comments away.
    void toggleComment();
    /// Asks for the line when none is given.
    void goToLine(int line = -1);

    /// The text as it was when the application ended without saving it; see RecoveryCopy.h.
    void restoreUnsaved(const QString& path, const QString& text);
    /// The application is about to end without asking.
    void keepUnsavedTextNow();

Q_SIGNALS:
    void breakpointAdded(const QString& filename, int line);
    void breakpointRemoved(const QString& filename, int line);
    /// The settings of a breakpoint are others, or are not the usual ones of a breakpoint that was just added.
    void breakpointChanged(const QString& filename, int line);
    /// After breakpointAdded() of one that the user has just made; others come with their lines and scripts.
    void breakpointMade();
    /// filename() is another.
    void filenameChanged();
    void sendActionToMdi(QObject* sender, QObject* target, const QString& action);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeActions();
    void connectMarks();
    void connectFile();
    void applyColours();
    void highlightLines();
    void placeBars();

    void handleKey(QKeyEvent* event);
    void controlKeyPressed(QKeyEvent* event);
    bool commandKeyPressed(QKeyEvent* event);
    void plainKeyPressed(QKeyEvent* event);
    void insertNewLine(QKeyEvent* event);
    static QFont settingsFont();
    void applyFont(const QFont& font);
    void changeFontSize(int delta);

    HVPythonSyntaxHighlighter* m_highlighter;
    editor::NoticeBar* m_notice;
    QAction* m_saveAction = nullptr;
    QAction* m_executeAction = nullptr;
    QAction* m_searchAction = nullptr;
    QAction* m_documentationAction = nullptr;
    // They know this as the text that they work on.
    std::unique_ptr<editor::Marks> m_marks;
    std::unique_ptr<editor::Search> m_search;
    std::unique_ptr<editor::Completion> m_completion;
    std::unique_ptr<editor::ScriptFile> m_file;
};
