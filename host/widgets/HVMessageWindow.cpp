#include "host/widgets/HVMessageWindow.h"

#include "host/icons/HVIconStore.h"
#include "host/widgets/HVFindBar.h"
#include "host/widgets/HVMessageView.h"

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QTextCursor>
#include <QToolBar>

namespace {

constexpr int g_frameMilliseconds = 16;
/// Spent on inserting per step; painting comes on top.
constexpr int g_stepMilliseconds = 6;
/// About a millisecond of inserting, so that the clock is looked at often enough.
constexpr std::size_t g_pieceBytes = 16u << 10;

} // namespace

HVMessageWindow::HVMessageWindow(QWidget* parent, int lineLimit)
    : QWidget(parent), m_view(new HVMessageView(lineLimit)), m_findBar(new HVFindBar(m_view)),
      m_queue(static_cast<std::size_t>(lineLimit), [this] {
          QMetaObject::invokeMethod(
              this, [this] { wake(); }, Qt::QueuedConnection);
      })
{
    setWindowTitle(tr("Messages"));
    m_timer.setSingleShot(true);
    m_timer.setInterval(g_frameMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &HVMessageWindow::tick);
    makeTools();
    HVEventBus::instance().addSink(&m_queue);
}

HVMessageWindow::~HVMessageWindow()
{
    HVEventBus::instance().removeSink(&m_queue);
}

void HVMessageWindow::makeTools()
{
    auto* bar = new QToolBar;
    bar->setOrientation(Qt::Vertical);
    bar->setIconSize({16, 16});
    const auto add = [&](const QString& icon, const QString& text, const QKeySequence& shortcut, auto handler) {
        QAction* action = bar->addAction(HVIconStore::icon(icon), text);
        action->setShortcut(shortcut);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        const QString keys = shortcut.toString(QKeySequence::NativeText);
        action->setToolTip(keys.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, keys));
        connect(action, &QAction::triggered, this, handler);
        addAction(action);
    };
    add(QStringLiteral("clear_24"), tr("Clear messages"), tr("Ctrl+L"), &HVMessageWindow::clear);
    add(QStringLiteral("copy_24"), tr("Copy selection or all messages"), tr("Ctrl+Shift+C"), &HVMessageWindow::copy);
    add(QStringLiteral("zoommode16"), tr("Find in messages"), QKeySequence::Find, &HVMessageWindow::find);
    add(QStringLiteral("to_end_16"), tr("Go to the newest message and follow"), tr("Ctrl+End"),
        [this] { m_view->goToEnd(); });

    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(m_view, 1);
    column->addWidget(m_findBar);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(bar);
    row->addLayout(column, 1);
    setFocusProxy(m_view);
}

void HVMessageWindow::wake()
{
    if (!m_timer.isActive())
        m_timer.start();
}

void HVMessageWindow::tick()
{
    if (flushSome())
        m_timer.start();
}

void HVMessageWindow::flush()
{
    while (flushSome()) {
    }
}

bool HVMessageWindow::flushSome()
{
    if (m_queue.take(m_pending))
        revealNow();
    if (m_pending.isEmpty())
        return false;

    QElapsedTimer clock;
    clock.start();
    const bool following = m_view->isAtEnd();
    const QTextCursor top = m_view->topLine();
    if (m_pending.lineCount() >= m_queue.lineLimit())
        m_view->clear(); // every line shown now would be pushed out one by one
    do {
        m_view->append(m_pending.takeFront(g_pieceBytes));
    } while (!m_pending.isEmpty() && clock.elapsed() < g_stepMilliseconds);
    if (following)
        m_view->goToEnd();
    else
        m_view->setTopLine(top);
    return !m_pending.isEmpty();
}

void HVMessageWindow::revealNow()
{
    if (auto* dock = qobject_cast<QDockWidget*>(parentWidget())) {
        dock->show();
        dock->raise();
    }
}

void HVMessageWindow::clear()
{
    m_queue.take(m_pending);
    m_pending.clear();
    m_view->clear();
}

void HVMessageWindow::copy()
{
    QGuiApplication::clipboard()->setText(m_view->copiedText());
}

void HVMessageWindow::find()
{
    m_findBar->open();
}
