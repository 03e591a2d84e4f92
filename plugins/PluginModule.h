#pragma once

#include "host/core/Result.h"
#include "runtime/Ref.h"

#include <boost/python/detail/wrap_python.hpp>

#include <QByteArray>
#include <QString>

/// A plug-in's module on the side of the interpreter. Everything here needs the interpreter lock unless it says so.
namespace python {

/// The key in a plug-in's globals that holds its folder's absolute path; how functions know which plug-in calls.
inline constexpr const char* g_pluginDirectoryKey = "__strativo_python_plugin_directory__";

/// The module of a loaded plug-in, shared by the copies of the plug-in object. Destroyed with or without the lock, also
/// after the interpreter has gone.
class PluginModule
{
public:
    /// Takes the reference over.
    explicit PluginModule(PyObject* module) : m_module(Ref::steal(module)) {}
    ~PluginModule();
    PluginModule(const PluginModule&) = delete;
    PluginModule& operator=(const PluginModule&) = delete;

    PyObject* get() const { return m_module.get(); }

    /// Between a register() and an unregister() that both returned True.
    bool registered = false;

private:
    Ref m_module;
};

/// "<init>_<seconds since 1970>". A name that is taken, because another plug-in with such a startup file was loaded in
/// the same second, makes way for the next second's, so that every load gets a module of its own.
QByteArray freshModuleName(const QString& init);

/// The text of a startup file: Unicode by its byte-order mark, else what a coding comment names, else the locale's
/// encoding. Fails when the file cannot be opened. Takes the lock itself.
hv::Result<QString> readStartupFile(const QString& path);

enum class HookResult
{
    True,
    False,
    NotBool,
    Raised, ///< printed already
};

/// Calls the function `hook` of the module; only exactly True and False count as answers.
HookResult callHook(PyObject* hook);

/// A function that the module of a plug-in has to have, and what is said when it has not.
struct HookName
{
    const char* name;
    const char* notFound;
    const char* notCallable;
};
inline constexpr HookName g_registerHook{"register", "'register' function not found", "'register' must be a function"};
inline constexpr HookName g_unregisterHook{"unregister", "'unregister' function not found",
                                           "'unregister' must be a function"};

/// The module's callable attribute. On a failure nothing is pending.
hv::Result<Ref> findHook(PyObject* module, const HookName& hookName);

} // namespace python
