#pragma once

#include "host/core/Result.h"
#include "plugins/HVPythonPlugin.h"

#include <QObject>

#include <map>

class HVProjectService;

/// All plug-ins that the application knows, by name. Owns them. Their failures go to the event bus as errors that name
/// the plug-in, and never stop the others. GUI thread only; needs the interpreter while a plug-in is loaded.
class HVPythonPluginCollection : public QObject
{
    Q_OBJECT

public:
    using Map = std::map<QString, HVPythonPlugin*>;

    /// Where plug-ins are looked for: the setting "Python/PluginsDirectory", else "plugins" in the user-data folder.
    static QString defaultDirectory();

    explicit HVPythonPluginCollection(QObject* parent = nullptr) : QObject(parent) {}
    /// Unloads what is still loaded.
    ~HVPythonPluginCollection() override;

    const Map& plugins() const { return m_plugins; }

    /// Takes up the folders in defaultDirectory() that hold a plugin.info; folders whose name begins with a dot are
    /// passed over. Plug-ins that are not loaded are read anew and forgotten when their folder has gone.
    void scan();

    /// The plug-in of the folder, which may be known already. Fails when it has no readable
    /// metadata or another folder's plug-in bears the same name.
    hv::Result<HVPythonPlugin*> add(const QString& directory);

    /// As HVPythonPlugin, with the failure on the event bus.
    bool load(HVPythonPlugin& plugin);
    bool unload(HVPythonPlugin& plugin);

    /// Unloads in the reverse order of loading, for the time when the application is leaving: a plug-in that refuses is
    /// reported and dropped without a dialog.
    void unloadAll();

    /// Loads every plug-in whose autoload is set and that is not loaded yet, in the order of their names.
    void loadAutomatic();

    /// From now on scans and loads the automatic plug-ins each time a project is opened, at once when one is open.
    void followProjects(HVProjectService& projects);

Q_SIGNALS:
    /// Plug-ins came, went, were loaded or unloaded through this object.
    void changed();

private:
    void forget(Map::iterator plugin);

    Map m_plugins;
};
