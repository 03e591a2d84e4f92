/// The interpreter of the shipped tree as a program, for child processes such as pip.
///
/// It finds its tree from its own location and takes nothing from a Python that is installed on the machine. The
/// application hands over its own search path, which names the user's packages too, as entries joined by ';': to all of
/// its child processes in STRATIVO_PYTHONPATH, to pip in PYTHONHOME. An ordinary interpreter would take the latter for
/// a folder and fail to start; this one reads it as the list it is.
///
/// Scripts may import `strativo_python` here as in the application, and get its values and data. Nothing of it is
/// loaded before.

#include <Python.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

using Entries = std::vector<std::string>;

Entries split(std::string_view joined, char separator)
{
    Entries entries;
    while (!joined.empty()) {
        const auto end = joined.find(separator);
        if (end != 0)
            entries.emplace_back(joined.substr(0, end));
        joined.remove_prefix(end == std::string_view::npos ? joined.size() : end + 1);
    }
    return entries;
}

std::string_view environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : std::string_view();
}

std::string_view handedOver()
{
    for (const char* name : {"PYTHONHOME", "STRATIVO_PYTHONPATH"})
        if (environment(name).find(';') != std::string_view::npos)
            return environment(name);
    return {};
}

Entries searchPath(const std::filesystem::path& tree)
{
    Entries entries;
    // pip sets both variables for the back end of an isolated build, whose packages lie in a folder of their own.
    // A PYTHONPATH alone is the user's and meant for another interpreter.
    if (!environment("PYTHONNOUSERSITE").empty())
        entries = split(environment("PYTHONPATH"), ':');
    const Entries own = !handedOver().empty() ? split(handedOver(), ';')
                                              : Entries{tree / "python36.zip", tree / "", tree / "site-packages" / ""};
    entries.insert(entries.end(), own.begin(), own.end());
    return entries;
}

PyObject* importValues()
{
    void* library = dlopen(STRATIVO_VALUES_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    void* initialize = library != nullptr ? dlsym(library, "strativo_python_values") : nullptr;
    if (initialize == nullptr)
        return PyErr_Format(PyExc_ImportError, "strativo_python, %s", dlerror());
    return reinterpret_cast<PyObject* (*)()>(initialize)();
}

PyStatus configure(PyConfig& config, const std::filesystem::path& program, int argc, char** argv)
{
    const auto tree = program.parent_path();
    const auto setText = [&config](wchar_t** field, const std::string& text) {
        return PyConfig_SetBytesString(&config, field, text.c_str());
    };
    PyStatus status = PyConfig_SetBytesArgv(&config, argc, argv);
    // A home that is set here keeps PYTHONHOME and the machine's own prefixes out.
    for (auto* field :
         {&config.home, &config.prefix, &config.exec_prefix, &config.base_prefix, &config.base_exec_prefix})
        if (!PyStatus_Exception(status))
            status = setText(field, tree);
    for (auto* field : {&config.executable, &config.base_executable, &config.program_name})
        if (!PyStatus_Exception(status))
            status = setText(field, program);
    config.module_search_paths_set = 1;
    for (const auto& entry : searchPath(tree)) {
        if (PyStatus_Exception(status))
            return status;
        wchar_t* text = Py_DecodeLocale(entry.c_str(), nullptr);
        status = text != nullptr ? PyWideStringList_Append(&config.module_search_paths, text) : PyStatus_NoMemory();
        PyMem_RawFree(text);
    }
    const auto encoding = split(environment("PYTHONIOENCODING"), ':');
    if (!PyStatus_Exception(status) && !encoding.empty())
        status = setText(&config.stdio_encoding, encoding[0]);
    if (!PyStatus_Exception(status) && encoding.size() > 1)
        status = setText(&config.stdio_errors, encoding[1]);
    if (!PyStatus_Exception(status))
        status = PyConfig_Read(&config);
    // The level of the tree's bytecode; -O asks for the same one, as multiprocessing does for its children.
    config.optimization_level = std::max(config.optimization_level, 1);
    // A module is run from the tree, never from a file that happens to lie in the current folder.
    if (config.run_module != nullptr)
        config.safe_path = 1;
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error || !std::filesystem::exists(program.parent_path() / "python36.zip", error)) {
        std::fprintf(stderr, "python3: there is no Python tree beside %s: python36.zip is missing\n", program.c_str());
        return 2;
    }

    PyImport_AppendInittab("strativo_python", importValues);
    PyPreConfig preConfig;
    PyPreConfig_InitIsolatedConfig(&preConfig);
    preConfig.utf8_mode = 1;
    preConfig.isolated = 0;
    PyStatus status = Py_PreInitialize(&preConfig);
    if (PyStatus_Exception(status))
        Py_ExitStatusException(status);

    PyConfig config;
    PyConfig_InitIsolatedConfig(&config);
    config.isolated = 0; // a script finds the modules beside it; the environment stays out all the same
    config.safe_path = 0;
    config.parse_argv = 1;
    config.install_signal_handlers = 1;
    config.write_bytecode = 0;
    config.use_frozen_modules = 0; // frozen modules (os among them) have neither a __file__ nor a source to show
    status = configure(config, program, argc, argv);
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    if (!PyStatus_Exception(status)) {
        PyObject* library = PyImport_ImportModule("_shipped_library");
        if (library == nullptr)
            PyErr_Print();
        Py_XDECREF(library);
    }
    if (PyStatus_IsExit(status))
        return status.exitcode;
    if (PyStatus_Exception(status))
        Py_ExitStatusException(status);
    return Py_RunMain();
}
