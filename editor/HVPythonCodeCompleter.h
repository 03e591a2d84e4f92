#pragma once

#include "editor/HVPythonCompleterThread.h"

#include <QCompleter>

/// Offers the names that may follow in a script editor. Requests are answered on a thread, so the editor never waits;
/// the result becomes the completer's model. GUI thread only.
class HVPythonCodeCompleter : public QCompleter
{
    Q_OBJECT

public:
    explicit HVPythonCodeCompleter(QObject* parent = nullptr);
    /// Returns soon even when a computation is under way.
    ~HVPythonCodeCompleter() override;

    void request(const QString& text) { m_thread->request(text); }
    bool isComputing() const { return m_thread->isRunning(); }
    bool isAvailable() const { return m_thread->engine().isAvailable(); }
    QString error() const { return m_thread->engine().error(); }

    /// Whether the model belongs to another place in the text than the cursor's; cleared when a result arrives, before
    /// modelFillingFinished().
    bool needsRefresh() const { return m_needsRefresh; }
    void setNeedsRefresh() { m_needsRefresh = true; }

Q_SIGNALS:
    void modelFillingFinished();

private:
    void takeResults();

    HVPythonCompleterThread* m_thread; // see HVPythonCompleterThread::dispose()
    bool m_needsRefresh = false;
};
