#include "runtime/Interpreter.h"

#include "runtime/ArchiveDirectory.h"
#include "runtime/Errors.h"
#include "runtime/PythonPaths.h"

#include <boost/python.hpp>

#include <csignal>
#include <cstdlib>
#include <string_view>

namespace bp = boost::python;

namespace python {

namespace {

void check(PyStatus status)
{
    if (PyStatus_Exception(status))
        Py_ExitStatusException(status);
}

void setString(PyConfig& config, wchar_t** field, const std::wstring& value)
{
    check(PyConfig_SetString(&config, field, value.c_str()));
}

void setSearchPath(PyConfig& config, std::wstring_view path)
{
    config.module_search_paths_set = 1;
    while (!path.empty()) {
        const std::size_t end = path.find(L';');
        check(PyWideStringList_Append(&config.module_search_paths, std::wstring(path.substr(0, end)).c_str()));
        path.remove_prefix(end == std::wstring_view::npos ? path.size() : end + 1);
    }
}

/// As an ordinary Python does: writing to a pipe that nobody reads, or beyond the limit of a file's size, raises an
/// exception and ends nothing.
void ignoreSignalsOfFailedWrites()
{
    for (const int signal : {SIGPIPE, SIGXFSZ})
        PyOS_setsig(signal, SIG_IGN);
}

/// Modules that are compiled into the interpreter have no file when the standard library is not where it was built;
/// scripts expect one, of `os` above all.
void nameFrozenModules(const std::wstring& home)
{
    bp::object sys = bp::import("sys");
    const bp::object library = owned(PyUnicode_FromWideChar((home + L"/python36.zip").c_str(), -1));
    sys.attr("_stdlib_dir") = library; // for those that are imported later
    const bp::list modules = bp::dict(sys.attr("modules")).items();
    for (Py_ssize_t i = 0; i < bp::len(modules); ++i) {
        const bp::object name = modules[i][0];
        bp::object module = modules[i][1];
        const bp::object spec = bp::getattr(module, "__spec__", bp::object());
        const bp::object origin = bp::getattr(spec, "origin", bp::object());
        if (origin == "frozen" && !PyObject_HasAttrString(module.ptr(), "__file__"))
            module.attr("__file__") = library + "/" + name.attr("replace")(".", "/") + ".py";
    }
}

} // namespace

void startInterpreter(const std::wstring& searchPath)
{
    PyPreConfig preconfig;
    PyPreConfig_InitIsolatedConfig(&preconfig);
    preconfig.utf8_mode = 1;
    check(Py_PreInitialize(&preconfig));

    PyConfig config;
    PyConfig_InitIsolatedConfig(&config);
    config.write_bytecode = 0;
    config.optimization_level = 1;
    // With this set, printing a SystemExit that some handler raised never ends the process.
    config.inspect = 1;
    setSearchPath(config, searchPath);

    // For the launcher, so that child processes find the user's packages.
    ::setenv("STRATIVO_PYTHONPATH", QString::fromStdWString(searchPath).toLocal8Bit().constData(), 1);
    ignoreSignalsOfFailedWrites();

    const std::wstring executable = utils::ConstructPythonExecutablePath();
    const std::wstring home = executable.substr(0, executable.find_last_of(L"/\\"));
    setString(config, &config.program_name, L"Strativo");
    // Child processes of scripts (multiprocessing, pip) start the launcher, not a second application.
    setString(config, &config.executable, executable);
    setString(config, &config.base_executable, executable);
    for (wchar_t** prefix :
         {&config.home, &config.prefix, &config.base_prefix, &config.exec_prefix, &config.base_exec_prefix})
        setString(config, prefix, home);

    config._init_main = 0;
    check(Py_InitializeFromConfig(&config));
    PyConfig_Clear(&config);
    presentArchive(home + L"/python36.zip");
    check(_Py_InitializeMain());
    nameFrozenModules(home);
    bp::import("_shipped_library");
}

void stopInterpreter(Patience patience)
{
    endWhatIsLeftRunning(patience);
    Py_FinalizeEx();
}

} // namespace python
