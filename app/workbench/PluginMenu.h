#pragma once

#include <QMenu>
#include <QObject>

class HVPythonPlugin;
class HVPythonPluginCollection;

namespace workbench {

class MainWindow;

/// The entries of the Extensions menu that load and unload plug-ins. The list of plug-ins is read from the disk each
/// time it is opened.
class PluginMenu : public QObject
{
    Q_OBJECT

public:
    /// Adds the entries; both outlive the object.
    PluginMenu(MainWindow& window, HVPythonPluginCollection& plugins);
    ~PluginMenu() override;

private:
    void choosePlugin();
    void fill();
    /// Loads or unloads and tells the user when that fails.
    void toggle(HVPythonPlugin& plugin);
    void complain(const QString& sentence, const QString& reason);

    MainWindow& m_window;
    HVPythonPluginCollection& m_plugins;
    QMenu m_list;
    QAction m_load;
};

} // namespace workbench
