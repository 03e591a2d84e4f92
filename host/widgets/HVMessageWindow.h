#pragma once

#include "host/services/HVMessageQueue.h"

#include <QTimer>
#include <QWidget>

class HVFindBar;
class HVMessageView;
class QMenu;

/// host/widgets: windows and controls that the application's own panels and scripts share.

/// Shows the event bus's messages: made for a dock widget, which it shows and raises when a message wants to be seen.
///
/// Messages are collected by a queue on whatever thread sends them and shown in batches, at most about 60 times a
/// second and never for longer than some milliseconds at once; at rest nothing runs. The newest `lineLimit` lines are
/// kept. The view follows the end while it is at the end. GUI thread only; messages may come from any thread.
class HVMessageWindow : public QWidget
{
    Q_OBJECT

public:
    static constexpr int defaultLineLimit = 20000;

    explicit HVMessageWindow(QWidget* parent = nullptr, int lineLimit = defaultLineLimit);
    ~HVMessageWindow() override;

    /// Shows everything that is queued, however long it takes.
    void flush();
    /// Shows what fits into one step; true when more is waiting.
    bool flushSome();

    void clear();
    /// Puts the selection, or all text, on the clipboard.
    void copy();
    void find();

    HVMessageView* view() const { return m_view; }
    HVFindBar* findBar() const { return m_findBar; }

private:
    void wake();
    void tick();
    void makeTools();
    void revealNow();

    HVMessageView* m_view;
    HVFindBar* m_findBar;
    QTimer m_timer;
    HVMessageQueue m_queue;
    HVMessageBatch m_pending; // taken from the queue, not shown yet
};
