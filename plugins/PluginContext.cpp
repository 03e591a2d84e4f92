#include "plugins/PluginContext.h"

#include "plugins/PluginModule.h"
#include "runtime/Errors.h"

namespace bp = boost::python;

namespace python {

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

} // namespace python
