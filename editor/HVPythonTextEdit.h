#pragma once

#include "runtime/CodeEditor.h"

#include <QPlainTextEdit>

/// editor: the windows in which scripts are written and watched.

/// A plain editor for one Python file: it loads, saves and marks the line of the last error. It does not run code;
/// its Execute action asks the main window to.
///
/// GUI thread only. The execution context uses an editor during a run, so it must outlive the run.
class HVPythonTextEdit : public QPlainTextEdit, public python::CodeEditor
{
    Q_OBJECT

public:
    explicit HVPythonTextEdit(QWidget* parent = nullptr);

    /// Replaces the text by the file's, read as UTF-8; false and unchanged when the file cannot be read.
    bool loadFile(const QString& path);
    /// Asks for a file when there is none yet; true also when the user cancels that. A failed write is reported in a
    /// box and leaves the file as it was and the document modified.
    bool saveToFile();
    void setFilename(const QString& path);
    QString filename() const { return m_filename; }

    void execute();
    QList<QAction*> editorActions() const { return {m_save, m_execute}; }

    void errorDetected(std::string filename, std::string function, long line) override;
    void clearErrors() override;
    QString plainText() const override { return toPlainText(); }

Q_SIGNALS:
    void sendActionToMdi(QObject* sender, QObject* target, const QString& action);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void updateWindowTitle();
    void highlightLines();

    QString m_filename;
    QAction* m_save;
    QAction* m_execute;
    long m_errorLine = -1;
};
