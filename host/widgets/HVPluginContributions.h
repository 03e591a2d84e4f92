#pragma once

#include <QMap>
#include <QPointer>
#include <QString>
#include <QVector>

class QAction;

namespace hv {

/// The object names of the application's own tool bars begin with it. Plug-ins name theirs as they like but for this,
/// so they can neither find nor double what is the application's.
inline constexpr const char* g_ownPartPrefix = "strativo:";

inline QString ownPartName(const char* name)
{
    return QLatin1String(g_ownPartPrefix) + QLatin1String(name);
}
inline bool isOwnPartName(const QString& name)
{
    return name.startsWith(QLatin1String(g_ownPartPrefix));
}

} // namespace hv

/// What plug-ins put into the application's windows: menus, tool bars, commands, documents. A plug-in that is unloaded
/// leaves nothing behind, whatever its author forgot: removeAll() takes away what is still there.
///
/// A plug-in is known by its folder's absolute path. Objects are not owned and may be destroyed by anybody at any time.
/// GUI thread only.
class HVPluginContributions
{
public:
    static HVPluginContributions& instance();

    /// Notes that `object` (QMenu, QToolBar, QAction, QMdiSubWindow, a window) is there because of the plug-in. Several
    /// plug-ins may name the same object; it goes with the last of them. An empty folder is nobody's and ignored.
    void add(const QString& pluginFolder, QObject* object);

    /// Whether any plug-in put it there.
    bool contains(QObject* object) const { return isSharedBeyond(QString(), object); }

    /// The object is going on its own.
    void forget(QObject* object);

    /// What of the plug-in is still there, as its user would name it ("menu Velocity"); commands are not listed.
    QStringList describe(const QString& pluginFolder) const;

    /// Takes everything that is left of the plug-in out of the windows and destroys it once control is back in the
    /// event loop. A message on the event bus names it.
    void removeAll(const QString& pluginFolder);

private:
    HVPluginContributions() = default;
    bool isSharedBeyond(const QString& pluginFolder, QObject* object) const;

    QMap<QString, QVector<QPointer<QObject>>> m_objects;
};
