#pragma once

#include <QObject>

class HVPythonPlugin;
class HVPythonPluginCollection;
class QMenu;

namespace workbench {

class MainWindow;

/// The entries of the Extensions menu that load and unload plug-ins. The list of plug-ins is read from the disk each
/// time it is opened.
class PluginMenu : public QObject
{
    Q_OBJECT

public:
    /// Both outlive the object.
    PluginMenu(MainWindow& window, HVPythonPluginCollection& plugins);

private:
    void choosePlugin();
    void fill(QMenu* menu);
    /// Loads or unloads and tells the user when that fails.
    void toggle(HVPythonPlugin& plugin);
    void complain(const QString& sentence, const QString& reason);

    MainWindow& m_window;
    HVPythonPluginCollection& m_plugins;
};

} // namespace workbench
