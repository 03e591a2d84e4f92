#pragma once

#include <boost/python/detail/wrap_python.hpp>

#include <QDir>
#include <QString>

#include <chrono>
#include <memory>

namespace python {
class PluginModule;
}

/// plugins: plug-in folders, their metadata and their life. A plug-in is a folder with a file "plugin.info" and a
/// startup script whose functions register() and unregister() the application calls; HVPythonPlugin is one of them,
/// HVPythonPluginCollection owns all that the application knows.

/// One plug-in folder: constructed empty, initialised from its metadata, loaded, unloaded again.
///
/// Nothing here throws: what can fail returns false and leaves the reason in errorMessage(); errors of the plug-in's
/// own code are printed, with their traceback, to the captured standard error. A failed load() leaves the plug-in
/// unloaded and takes back what it had already put into the windows; a failed unload() leaves it loaded.
///
/// Copies share the loaded module: the plug-in counts as loaded until one of them unloads it, and the last one that is
/// destroyed does so. GUI thread only; needs a running interpreter, whose lock it takes.
class HVPythonPlugin
{
public:
    HVPythonPlugin() = default;
    HVPythonPlugin(const HVPythonPlugin&) = default;
    /// The plug-in that is replaced is unloaded like one that is destroyed.
    HVPythonPlugin& operator=(const HVPythonPlugin& other);
    ~HVPythonPlugin();

    /// Reads plugin.info of the folder; false when there is none or it cannot be read. Missing keys are no error.
    bool initialize(QString directory);

    /// Runs the startup file as a fresh module "<init>_<seconds>" and calls its register(), which must return True. The
    /// folder is on sys.path meanwhile. True at once when the plug-in is loaded.
    bool load();

    /// Calls unregister(), which must return True, and forgets the modules of the folder, so that the next load() runs
    /// the files as they are then. True at once when the plug-in is not loaded. When unregister() returns anything else
    /// the user is told by handleUnloadError(); when it raises, the error is printed only.
    bool unload();

    /// Switches autoload off and offers to restart the application, unless the prompt in use has no consequences.
    void handleUnloadError();

    /// Writes the key "autoload" of plugin.info; isAutoLoad() follows only when that worked.
    bool setAutoLoad(bool value);

    bool isAutoLoad() const { return m_data.autoLoad; }
    bool isLoaded() const;
    /// False when the startup file lies outside the folder. Such a plug-in loads where it is but is not to be given
    /// away.
    bool isWhole() const { return m_data.isWhole; }

    /// The folder's own name.
    const QString name() const { return m_data.directory.dirName(); }
    /// Absolute path of the folder.
    const QString directory() const { return m_data.directory.absolutePath(); }
    const QString initFilename() const { return directory() + QDir::separator() + m_data.init; }
    const QString& version() const { return m_data.version; }
    const QString& license() const { return m_data.license; }
    const QString& copyright() const { return m_data.copyright; }
    /// An address the user can write to.
    const QString& contactAddress() const { return m_data.contact; }
    const QString& errorMessage() const { return m_data.errorMessage; }
    /// Borrowed; null before the first load.
    PyObject* pythonModule() const;
    /// What the last successful load took, from reading the file to the end of register().
    std::chrono::nanoseconds startupCostNanoseconds() const { return m_data.startupCost; }
    /// Grows with every successful load of any plug-in: tells the order in which they were loaded.
    unsigned loadNumber() const { return m_data.loadNumber; }

    /// Drops the module without asking the plug-in, for one that refused while the application is leaving.
    void abandon();

private:
    struct Data
    {
        bool loaded = false;
        bool autoLoad = false;
        bool isWhole = true;
        QString errorMessage;
        QDir directory;
        QString init;
        QString license;
        QString version;
        QString copyright;
        QString contact;
        std::chrono::nanoseconds startupCost{0};
        std::shared_ptr<python::PluginModule> module;
        unsigned loadNumber = 0;
    };

    void setErrorMessage(QString message) { m_data.errorMessage = std::move(message); }
    bool insertDirectoryIntoModuleDict();
    bool removeDirectoryFromModuleDict();

    QString metadataPath() const;
    QString nativeDirectory() const;
    QString searchPathEntry() const;
    bool executeAndRegister(const QString& startupPath, const QString& source);
    bool callRegister();
    bool callUnregister();
    void forgetTraces();
    void unloadIfLast();

    Data m_data;
};
