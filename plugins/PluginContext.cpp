#include "plugins/PluginContext.h"

#include "host/widgets/HVPluginContributions.h"
#include "plugins/PluginFolders.h"
#include "plugins/PluginModule.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

namespace {

/// Of the plug-in in whose folder the calling module's file lies. A script that the editor runs is nobody's module,
/// wherever it lies.
QString folderOfCallingModule()
{
    PyObject* globals = PyEval_GetGlobals();
    PyObject* name = globals ? PyDict_GetItemString(globals, "__name__") : nullptr;
    if (!name || (PyUnicode_Check(name) && PyUnicode_CompareWithASCIIString(name, "__main__") == 0))
        return {};
    PyObject* file = PyDict_GetItemString(globals, "__file__");
    return file ? pluginFolderOf(file) : QString();
}

} // namespace

bp::object callingPluginDirectory()
{
    PyObject* globals = PyEval_GetGlobals();
    PyObject* directory = globals ? PyDict_GetItemString(globals, g_pluginDirectoryKey) : nullptr;
    return directory ? bp::object(bp::handle<>(bp::borrowed(directory))) : bp::object();
}

QString callingPluginFolder()
{
    const bp::object directory = callingPluginDirectory();
    return isStr(directory.ptr()) ? requireStr(directory, "") : QString();
}

void requirePlugin(const char* refusal)
{
    if (callingPluginDirectory().is_none())
        raise(PyExc_RuntimeError, "%s", refusal);
}

void noteContribution(QObject* object)
{
    QString folder = callingPluginFolder();
    if (folder.isEmpty())
        folder = folderOfCallingModule();
    HVPluginContributions::instance().add(folder, object);
}

} // namespace python
