#include "plugins/HVPythonPluginCollection.h"

#include "host/data/HVProjectService.h"
#include "host/services/HVEventBus.h"
#include "host/services/HVUserData.h"
#include "plugins/UnloadFailurePrompt.h"

#include <QFileInfo>
#include <QSettings>

namespace {

void report(const HVPythonPlugin& plugin, const QString& what)
{
    const QString reason =
        plugin.errorMessage().isEmpty() ? QStringLiteral("see the messages above") : plugin.errorMessage();
    HVEventBus::instance().sendMessage(
        MessageLevel::Error, QStringLiteral("Unable to %1 the plug-in %2: %3").arg(what, plugin.name(), reason), true);
}

} // namespace

QString HVPythonPluginCollection::defaultDirectory()
{
    const QString chosen = QSettings().value(QStringLiteral("Python/PluginsDirectory")).toString();
    return chosen.isEmpty() ? hv::userDataDirectory() + QStringLiteral("/plugins") : chosen;
}

HVPythonPluginCollection::~HVPythonPluginCollection()
{
    unloadAll();
    for (const auto& [name, plugin] : m_plugins)
        delete plugin;
}

void HVPythonPluginCollection::scan()
{
    for (auto known = m_plugins.begin(); known != m_plugins.end();) {
        const auto plugin = known++;
        if (!plugin->second->isLoaded() &&
            !QFileInfo::exists(plugin->second->directory() + QStringLiteral("/plugin.info")))
            forget(plugin);
    }
    const QDir folder(defaultDirectory());
    for (const QFileInfo& entry : folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (!QFileInfo::exists(entry.absoluteFilePath() + QStringLiteral("/plugin.info")))
            continue;
        const auto plugin = add(entry.absoluteFilePath());
        if (!plugin)
            HVEventBus::instance().sendMessage(MessageLevel::Error, plugin.failure().sentence);
        else if (!(*plugin)->isLoaded())
            (*plugin)->initialize(entry.absoluteFilePath());
    }
    Q_EMIT changed();
}

hv::Result<HVPythonPlugin*> HVPythonPluginCollection::add(const QString& directory)
{
    const QString folder = QDir::cleanPath(QDir(directory).absolutePath());
    auto plugin = std::make_unique<HVPythonPlugin>();
    if (!plugin->initialize(folder))
        return hv::Failure(plugin->errorMessage());
    const auto [place, isNew] = m_plugins.try_emplace(plugin->name(), nullptr);
    if (!isNew) {
        if (QFileInfo(place->second->directory()) == QFileInfo(folder))
            return place->second;
        return hv::Failure(QStringLiteral("A plug-in with the name %1 is there already: %2")
                               .arg(place->first, place->second->directory()));
    }
    place->second = plugin.release();
    Q_EMIT changed();
    return place->second;
}

bool HVPythonPluginCollection::load(HVPythonPlugin& plugin)
{
    const bool loaded = plugin.load();
    if (!loaded)
        report(plugin, QStringLiteral("load"));
    Q_EMIT changed();
    return loaded;
}

bool HVPythonPluginCollection::unload(HVPythonPlugin& plugin)
{
    const bool unloaded = plugin.unload();
    if (!unloaded)
        report(plugin, QStringLiteral("unload"));
    Q_EMIT changed();
    return unloaded;
}

void HVPythonPluginCollection::unloadAll()
{
    std::vector<HVPythonPlugin*> loaded;
    for (const auto& [name, plugin] : m_plugins)
        if (plugin->isLoaded())
            loaded.push_back(plugin);
    if (loaded.empty())
        return;
    std::sort(loaded.begin(), loaded.end(),
              [](const HVPythonPlugin* a, const HVPythonPlugin* b) { return a->loadNumber() > b->loadNumber(); });
    python::QuietUnloadFailurePrompt quiet;
    const python::UnloadFailurePromptGuard noDialog(quiet);
    for (HVPythonPlugin* plugin : loaded)
        if (!unload(*plugin))
            plugin->abandon();
    Q_EMIT changed();
}

void HVPythonPluginCollection::loadAutomatic()
{
    for (const auto& [name, plugin] : Map(m_plugins))
        if (plugin->isAutoLoad() && !plugin->isLoaded())
            load(*plugin);
}

void HVPythonPluginCollection::followProjects(HVProjectService& projects)
{
    const auto follow = [this](const HVProject* project) {
        if (!project)
            return;
        scan();
        loadAutomatic();
    };
    connect(&projects, &HVProjectService::projectChanged, this, follow);
    follow(projects.project());
}

void HVPythonPluginCollection::forget(Map::iterator plugin)
{
    delete plugin->second;
    m_plugins.erase(plugin);
}
