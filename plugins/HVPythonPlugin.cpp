#include "plugins/HVPythonPlugin.h"

#include "host/changes/ChangeLog.h"
#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "host/widgets/HVPluginContributions.h"
#include "plugins/PluginFolderModules.h"
#include "plugins/PluginFolders.h"
#include "plugins/PluginInfo.h"
#include "plugins/PluginModule.h"
#include "plugins/UnloadFailurePrompt.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/PendingError.h"
#include "runtime/RunMonitor.h"
#include "runtime/ScriptCompiler.h"
#include "runtime/StreamCaptureBinding.h"

#include <QFileInfo>

namespace bp = boost::python;

using python::GilLock;
using python::HookResult;
using Clock = std::chrono::steady_clock;

namespace {

unsigned g_loads = 0; // NOLINT: counts on the GUI thread only

constexpr int g_addressDigits = 16;
constexpr int g_hexadecimal = 16;

void postAddress(const QString& message, const PyObject* module)
{
    const QString address = QStringLiteral("0x%1").arg(reinterpret_cast<quintptr>(module), g_addressDigits,
                                                       g_hexadecimal, QLatin1Char('0'));
    HVEventBus::instance().sendMessage(MessageLevel::Information, message.arg(address));
}

IRunObserver* runObserver()
{
    const IAppWrapper* app = python::applicationInterface();
    return app ? app->runObserver() : nullptr;
}

/// The value of the pending exception where that is a str, which a normalised one never is: a syntax error leaves no
/// message of its own, only its report on standard error.
QString compileErrorText()
{
    python::PendingError error;
    PyObject* value = error.value();
    return QString::fromUtf8(value && PyUnicode_Check(value) ? PyUnicode_AsUTF8(value) : nullptr);
}

} // namespace

HVPythonPlugin& HVPythonPlugin::operator=(const HVPythonPlugin& other)
{
    if (this != &other) {
        unloadIfLast();
        m_data = other.m_data;
    }
    return *this;
}

HVPythonPlugin::~HVPythonPlugin()
{
    unloadIfLast();
}

void HVPythonPlugin::unloadIfLast()
{
    if (isLoaded() && m_data.module.use_count() == 1)
        unload();
}

bool HVPythonPlugin::isLoaded() const
{
    return m_data.loaded && m_data.module && m_data.module->registered;
}

PyObject* HVPythonPlugin::pythonModule() const
{
    return m_data.module ? m_data.module->get() : nullptr;
}

QString HVPythonPlugin::metadataPath() const
{
    return QDir::toNativeSeparators(m_data.directory.path() + QDir::separator() + QStringLiteral("plugin.info"));
}

QString HVPythonPlugin::nativeDirectory() const
{
    return QDir::toNativeSeparators(directory());
}

QString HVPythonPlugin::searchPathEntry() const
{
    return QDir::toNativeSeparators(m_data.directory.path() + QDir::separator());
}

bool HVPythonPlugin::initialize(QString directory)
{
    m_data.directory = QDir(directory);
    const QString path = metadataPath();
    const QFileInfo file(path);
    if (!file.exists()) {
        setErrorMessage(QStringLiteral("Unable to find plugin metadata file: %1").arg(path));
        return false;
    }
    if (!file.isReadable()) {
        setErrorMessage(QStringLiteral("No read permission for plugin metadata file: %1").arg(path));
        return false;
    }
    const python::PluginInfo info = python::PluginInfo::read(path);
    m_data.init = info.init;
    m_data.license = info.license;
    m_data.version = info.version;
    m_data.copyright = info.copyright;
    m_data.contact = info.contact;
    m_data.autoLoad = info.autoLoad;
    m_data.isWhole = info.isStartupFileInside();
    return true;
}

bool HVPythonPlugin::load()
{
    if (isLoaded())
        return true;
    m_data.loaded = false;
    if (!Py_IsInitialized()) {
        setErrorMessage(QStringLiteral("The Python interpreter is not running"));
        return false;
    }
    const Clock::time_point start = Clock::now();
    const hv::ChangeScope step(python::projectChanges(), m_data.directory.dirName());
    const QString startupPath = m_data.directory.path() + QDir::separator() + m_data.init;
    const QFileInfo file(startupPath);
    if (!file.exists()) {
        setErrorMessage(QStringLiteral("Designated startup file(%1) does not exist").arg(startupPath));
        return false;
    }
    if (!file.isReadable()) {
        setErrorMessage(QStringLiteral("Designated startup file(%1) is not readable").arg(startupPath));
        return false;
    }
    const auto source = python::readStartupFile(startupPath);
    if (!source) {
        setErrorMessage(source.failure().sentence);
        return false;
    }
    if (!executeAndRegister(startupPath, *source)) {
        forgetTraces();
        return false;
    }
    m_data.loaded = true;
    m_data.loadNumber = ++g_loads;
    m_data.startupCost = Clock::now() - start;
    return true;
}

bool HVPythonPlugin::executeAndRegister(const QString& startupPath, const QString& source)
{
    const GilLock lock;
    python::restoreLostStreams();
    const python::RunMonitor monitor(runObserver(), startupPath);
    bp::handle<> code(bp::allow_null(python::compileScript(source, startupPath)));
    if (!code) {
        setErrorMessage(compileErrorText());
        python::printPendingError();
        return false;
    }
    python::enterPluginFolder(nativeDirectory(), m_data.directory.path());
    const python::PluginSearchPath searchPath(searchPathEntry());
    if (!searchPath.isAdded()) {
        setErrorMessage(QStringLiteral("unable to decode '%1' to unicode").arg(searchPathEntry()));
        python::printPendingError();
        return false;
    }
    PyObject* module = PyImport_ExecCodeModuleEx(python::freshModuleName(m_data.init).constData(), code.get(),
                                                 startupPath.toLocal8Bit().constData());
    if (!module) {
        python::printPendingError();
        return false;
    }
    m_data.module = std::make_shared<python::PluginModule>(module);
    postAddress(QStringLiteral("Loaded Python module %1"), module);
    code.reset();
    return insertDirectoryIntoModuleDict() && callRegister();
}

bool HVPythonPlugin::callRegister()
{
    const auto hook = python::findHook(pythonModule(), python::g_registerHook);
    if (!hook) {
        setErrorMessage(hook.failure().sentence);
        return false;
    }
    switch (python::callHook(hook->get())) {
    case HookResult::True:
        m_data.module->registered = true;
        return true;
    case HookResult::Raised:
        setErrorMessage(QStringLiteral("Exception raised during plugin registration"));
        break;
    case HookResult::NotBool:
        setErrorMessage(QStringLiteral("'register' function MUST return a boolean value"));
        break;
    case HookResult::False:
        setErrorMessage(QStringLiteral("Plugin signaled an error to Strativo during load process"));
        break;
    }
    m_data.module.reset();
    return false;
}

bool HVPythonPlugin::unload()
{
    if (!isLoaded() || !Py_IsInitialized()) {
        m_data.loaded = false;
        return true;
    }
    const hv::ChangeScope step(python::projectChanges(), m_data.directory.dirName());
    postAddress(QStringLiteral("Unload Python module %1"), pythonModule());
    if (!callUnregister())
        return false;
    if (!removeDirectoryFromModuleDict()) {
        setErrorMessage(QStringLiteral("Unable to remove plugin directory from Python module dictionary"));
        return false;
    }
    forgetTraces();
    abandon();
    return true;
}

bool HVPythonPlugin::callUnregister()
{
    HookResult answer = HookResult::Raised;
    {
        const GilLock lock;
        python::restoreLostStreams();
        const python::RunMonitor monitor(runObserver(), initFilename());
        const python::PluginSearchPath searchPath(searchPathEntry());
        if (!searchPath.isAdded())
            python::printPendingError();
        const auto hook = python::findHook(pythonModule(), python::g_unregisterHook);
        if (!hook) {
            setErrorMessage(hook.failure().sentence);
            return false;
        }
        answer = python::callHook(hook->get());
    }
    // Without the lock: the dialog may stand for long, and other threads of scripts go on.
    switch (answer) {
    case HookResult::True:
        return true;
    case HookResult::Raised:
        setErrorMessage(QStringLiteral("Exception raised during plugin unregistration"));
        return false;
    case HookResult::NotBool:
        setErrorMessage(QStringLiteral("'unregister' function MUST return a boolean value"));
        break;
    case HookResult::False:
        setErrorMessage(QStringLiteral("Plugin signaled an error to Strativo during unload process"));
        break;
    }
    handleUnloadError();
    return false;
}

void HVPythonPlugin::forgetTraces()
{
    HVPluginContributions::instance().removeAll(nativeDirectory());
    const GilLock lock;
    python::leavePluginFolder(nativeDirectory());
    python::forgetModulesOfFolder(m_data.directory.path(), m_data.init);
}

void HVPythonPlugin::abandon()
{
    m_data.loaded = false;
    if (m_data.module)
        m_data.module->registered = false;
    m_data.module.reset();
}

bool HVPythonPlugin::insertDirectoryIntoModuleDict()
{
    const QByteArray path = nativeDirectory().toUtf8();
    const bp::handle<> value(bp::allow_null(PyUnicode_DecodeUTF8(path.constData(), path.size(), nullptr)));
    PyErr_Clear();
    if (!value) {
        setErrorMessage(QStringLiteral("Unable to encode plugin directory name for Python"));
        return false;
    }
    // A startup file may put any object in its own place in sys.modules.
    PyObject* module = pythonModule();
    if (!PyModule_Check(module) ||
        PyDict_SetItemString(PyModule_GetDict(module), python::g_pluginDirectoryKey, value.get()) != 0) {
        PyErr_Clear();
        setErrorMessage(QStringLiteral("Unable to insert plugin directory into Python module dictionary"));
        return false;
    }
    return true;
}

bool HVPythonPlugin::removeDirectoryFromModuleDict()
{
    const GilLock lock;
    PyObject* module = pythonModule();
    const bool removed =
        PyModule_Check(module) && PyDict_DelItemString(PyModule_GetDict(module), python::g_pluginDirectoryKey) == 0;
    PyErr_Clear();
    return removed;
}

void HVPythonPlugin::handleUnloadError()
{
    python::IUnloadFailurePrompt& prompt = python::unloadFailurePrompt();
    if (!prompt.hasConsequences())
        return;
    const QString autoLoad =
        setAutoLoad(false)
            ? QStringLiteral("Autoload has been disabled for this plugin.")
            : QStringLiteral("Strativo is unable to disable autoload for this plugin. This is likely due "
                             "to insufficient privileges. Please contact your system administrator");
    const QString contact = m_data.contact.isEmpty()
                                ? QStringLiteral("the plugin provider")
                                : QStringLiteral("<b><a href=\"mailto:%1\">%1</a></b>").arg(m_data.contact);
    // Several replacements at once: a name may hold "%2" itself.
    const QString text =
        QStringLiteral(
            "Strativo is unable to unload the plugin <b>%1</b>. This may be because of an error that occurred "
            "during execution.<br></br><br></br>If this occurs repeatedly, please contact %2 for details. "
            "%3<br></br><br></br>It is recommended that Strativo be restarted to avoid any instability caused "
            "by an inconsistent plugin state.<br></br><br></br><b>Restart Strativo?</b>")
            .arg(name(), contact, autoLoad);
    if (prompt.askForRestart(QStringLiteral("Critical Error - Unable to unload Python plugin"), text))
        prompt.restart();
}

bool HVPythonPlugin::setAutoLoad(bool value)
{
    const QString path = metadataPath();
    const QFileInfo file(path);
    if (!file.exists()) {
        setErrorMessage(QStringLiteral("'plugin.info' file does not exist"));
        return false;
    }
    if (!file.isWritable()) {
        setErrorMessage(QStringLiteral("Strativo does not have permission to write to the 'plugin.info' file"));
        return false;
    }
    if (!python::PluginInfo::writeAutoLoad(path, value)) {
        setErrorMessage(QStringLiteral("Error occurred when enabling autoload"));
        return false;
    }
    m_data.autoLoad = value;
    return true;
}
