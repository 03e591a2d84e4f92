#pragma once

#include "editor/CompletionEngine.h"

#include <QThread>

/// Computes completions for one editor, one request per start. The function that computes is loaded by the
/// constructor, on the GUI thread.
class HVPythonCompleterThread : public QThread
{
    Q_OBJECT

public:
    explicit HVPythonCompleterThread(QObject* parent = nullptr) : QThread(parent) {}

    /// Starts the computation of what may follow at the end of `text`. While one runs, the request is dropped.
    void request(const QString& text);
    /// The last result; not while running.
    const QStringList& results() const { return m_results; }
    const editor::CompletionEngine& engine() const { return m_engine; }

    /// Ends the thread and destroys it. One that does not end soon (compiled code cannot be interrupted) is left to
    /// itself and destroyed when it has ended, so nobody waits for it.
    static void dispose(HVPythonCompleterThread* thread);

protected:
    void run() override;

private:
    editor::CompletionEngine m_engine;
    QString m_request;
    QStringList m_results;
};
