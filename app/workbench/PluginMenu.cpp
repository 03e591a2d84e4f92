#include "app/workbench/PluginMenu.h"

#include "app/workbench/Commands.h"
#include "app/workbench/MainWindow.h"
#include "plugins/HVPythonPluginCollection.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QStatusBar>

namespace workbench {

PluginMenu::PluginMenu(MainWindow& window, HVPythonPluginCollection& plugins) : m_window(window), m_plugins(plugins)
{
    window.commands().handle("plugin.load", this, &PluginMenu::choosePlugin);
    window.commands().handleMenu("plug-ins", this, &PluginMenu::fill);
    m_plugins.scan();
}

void PluginMenu::choosePlugin()
{
    const QString folder =
        QFileDialog::getExistingDirectory(&m_window, tr("Load Plug-in"), HVPythonPluginCollection::defaultDirectory());
    if (folder.isEmpty())
        return;
    const auto plugin = m_plugins.add(folder);
    if (!plugin)
        complain(tr("The folder can not be used as a plug-in."), plugin.failure().sentence);
    else if (!(*plugin)->isLoaded())
        toggle(**plugin);
}

void PluginMenu::fill(QMenu* menu)
{
    menu->clear();
    m_plugins.scan();
    for (const auto& [name, plugin] : m_plugins.plugins()) {
        // Ampersands of the name are no mnemonics.
        QAction* entry = menu->addAction(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")));
        entry->setCheckable(true);
        entry->setChecked(plugin->isLoaded());
        const QString state = plugin->isLoaded() ? tr("Loaded; choose to unload") : tr("Choose to load");
        entry->setToolTip(tr("%1\nVersion %2, %3").arg(state, plugin->version(), plugin->directory()));
        entry->setStatusTip(state);
        connect(entry, &QAction::triggered, this, [this, key = name] {
            const auto found = m_plugins.plugins().find(key);
            if (found != m_plugins.plugins().end())
                toggle(*found->second);
        });
    }
    if (m_plugins.plugins().empty())
        menu->addAction(
                tr("No plug-ins in %1").arg(QDir::toNativeSeparators(HVPythonPluginCollection::defaultDirectory())))
            ->setEnabled(false);
}

void PluginMenu::toggle(HVPythonPlugin& plugin)
{
    const bool wasLoaded = plugin.isLoaded();
    const bool done = wasLoaded ? m_plugins.unload(plugin) : m_plugins.load(plugin);
    if (done)
        m_window.statusBar()->showMessage((wasLoaded ? tr("Unloaded %1.") : tr("Loaded %1.")).arg(plugin.name()));
    else
        complain((wasLoaded ? tr("The plug-in %1 can not be unloaded.") : tr("The plug-in %1 can not be loaded."))
                     .arg(plugin.name()),
                 plugin.errorMessage());
}

void PluginMenu::complain(const QString& sentence, const QString& reason)
{
    QMessageBox::warning(&m_window, QStringLiteral("Strativo"),
                         sentence + QStringLiteral("\n\n") +
                             (reason.isEmpty() ? tr("The message window tells more.") : reason));
}

} // namespace workbench
