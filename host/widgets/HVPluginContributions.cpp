#include "host/widgets/HVPluginContributions.h"

#include "host/services/HVEventBus.h"

#include <QAction>
#include <QDir>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStringList>
#include <QToolBar>

#include <algorithm>

namespace {

/// Empty for what is not worth a word by itself.
QString descriptionOf(const QObject* object)
{
    if (const auto* menu = qobject_cast<const QMenu*>(object))
        return QStringLiteral("menu %1").arg(menu->title());
    if (const auto* bar = qobject_cast<const QToolBar*>(object))
        return QStringLiteral("tool bar %1").arg(bar->windowTitle());
    if (const auto* window = qobject_cast<const QMdiSubWindow*>(object))
        return QStringLiteral("window %1").arg(window->windowTitle());
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (widget && widget->isWindow() && widget->isVisible())
        return QStringLiteral("window %1").arg(widget->windowTitle());
    return {};
}

void detach(QAction* action)
{
    for (QWidget* place : action->associatedWidgets())
        place->removeAction(action);
}

void remove(QObject* object)
{
    if (auto* menu = qobject_cast<QMenu*>(object))
        detach(menu->menuAction());
    else if (auto* action = qobject_cast<QAction*>(object))
        detach(action);
    else if (auto* widget = qobject_cast<QWidget*>(object))
        widget->hide();
    if (auto* bar = qobject_cast<QToolBar*>(object))
        if (auto* window = qobject_cast<QMainWindow*>(bar->parentWidget()))
            window->removeToolBar(bar);
    // The removal may have been asked for from one of these very objects.
    object->deleteLater();
}

} // namespace

HVPluginContributions& HVPluginContributions::instance()
{
    static HVPluginContributions contributions;
    return contributions;
}

void HVPluginContributions::add(const QString& pluginFolder, QObject* object)
{
    if (pluginFolder.isEmpty() || !object)
        return;
    QVector<QPointer<QObject>>& objects = m_objects[pluginFolder];
    objects.removeAll(nullptr);
    if (!objects.contains(object))
        objects.append(object);
}

void HVPluginContributions::forget(QObject* object)
{
    for (QVector<QPointer<QObject>>& objects : m_objects)
        objects.removeAll(object);
}

QStringList HVPluginContributions::describe(const QString& pluginFolder) const
{
    QStringList descriptions;
    for (const QPointer<QObject>& object : m_objects.value(pluginFolder))
        if (object && !isSharedBeyond(pluginFolder, object))
            descriptions << descriptionOf(object);
    descriptions.removeAll(QString());
    return descriptions;
}

void HVPluginContributions::removeAll(const QString& pluginFolder)
{
    const QStringList left = describe(pluginFolder);
    for (const QPointer<QObject>& object : m_objects.value(pluginFolder))
        if (object && !isSharedBeyond(pluginFolder, object))
            remove(object);
    m_objects.remove(pluginFolder);
    if (!left.isEmpty())
        HVEventBus::instance().sendMessage(MessageLevel::Information,
                                           QStringLiteral("Removed what the plug-in %1 left behind: %2")
                                               .arg(QDir(pluginFolder).dirName(), left.join(QStringLiteral(", "))));
}

bool HVPluginContributions::isSharedBeyond(const QString& pluginFolder, QObject* object) const
{
    for (auto other = m_objects.begin(); other != m_objects.end(); ++other)
        if (other.key() != pluginFolder && other.value().contains(object))
            return true;
    return false;
}
