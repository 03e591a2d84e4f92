#include "app/workbench/TabTips.h"

#include "editor/HVPythonTextEdit.h"

#include <QDir>
#include <QHelpEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabBar>
#include <QToolTip>

namespace workbench {

TabTips::TabTips(const QMdiArea& area, QTabBar* tabs) : QObject(tabs), m_area(area), m_tabs(tabs)
{
    tabs->installEventFilter(this);
}

bool TabTips::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QObject::eventFilter(receiver, event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int tab = m_tabs->tabAt(help->pos());
    const QMdiSubWindow* document = m_area.subWindowList().value(tab); // tabs stand in this order, also when moved
    QString tip = document ? document->windowTitle() : QString();
    if (const auto* editor = qobject_cast<HVPythonTextEdit*>(document ? document->widget() : nullptr)) {
        if (!editor->filename().isEmpty())
            tip = QDir::toNativeSeparators(editor->filename());
        if (editor->isFileReadOnly())
            tip += QLatin1Char('\n') + tr("This file is read-only.");
    }
    QToolTip::showText(help->globalPos(), tip, m_tabs, m_tabs->tabRect(tab));
    return true;
}

} // namespace workbench
