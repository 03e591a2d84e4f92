#include "plugins/PluginFolderModules.h"

#include "plugins/PluginFolders.h"
#include "runtime/Errors.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

bp::handle<> nullable(PyObject* reference)
{
    return bp::handle<>(bp::allow_null(reference));
}

/// The last index of the entry in the sequence, -1 when it is not there.
Py_ssize_t lastIndex(PyObject* sequence, PyObject* entry)
{
    for (Py_ssize_t i = PySequence_Size(sequence) - 1; i >= 0; --i) {
        const bp::handle<> item = nullable(PySequence_GetItem(sequence, i));
        if (item && PyObject_RichCompareBool(item.get(), entry, Py_EQ) == 1)
            return i;
    }
    return -1;
}

bool anyLiesIn(PyObject* list, const FolderPrefix& folder)
{
    const bp::handle<> items = nullable(list ? PySequence_Fast(list, "") : nullptr);
    PyErr_Clear();
    for (Py_ssize_t i = 0; items && i < PySequence_Fast_GET_SIZE(items.get()); ++i)
        if (folder.contains(PySequence_Fast_GET_ITEM(items.get(), i)))
            return true;
    return false;
}

/// Read from the dictionary: asking a module for an attribute may run its code.
class ModuleLocation
{
public:
    bool isIn(PyObject* module, const FolderPrefix& folder) const
    {
        if (!PyModule_Check(module))
            return false;
        PyObject* names = PyModule_GetDict(module);
        PyObject* file = PyDict_GetItemWithError(names, m_file.get());
        if (file && file != Py_None)
            return folder.contains(file);
        return anyLiesIn(PyDict_GetItemWithError(names, m_path.get()), folder);
    }

private:
    bp::handle<> m_file{PyUnicode_InternFromString("__file__")};
    bp::handle<> m_path{PyUnicode_InternFromString("__path__")};
};

bool isPluginModule(PyObject* name, const QByteArray& prefix)
{
    Py_ssize_t size = 0;
    const char* utf8 = PyUnicode_Check(name) ? PyUnicode_AsUTF8AndSize(name, &size) : nullptr;
    PyErr_Clear();
    if (!utf8 || size <= prefix.size() || std::memcmp(utf8, prefix.constData(), prefix.size()) != 0)
        return false;
    return std::all_of(utf8 + prefix.size(), utf8 + size, [](char c) { return c >= '0' && c <= '9'; });
}

template <typename Predicate>
void removeFromDict(PyObject* dict, Predicate isUnwanted)
{
    if (!dict || !PyDict_Check(dict))
        return;
    std::vector<bp::handle<>> unwanted;
    PyObject *key = nullptr, *value = nullptr;
    for (Py_ssize_t position = 0; PyDict_Next(dict, &position, &key, &value);)
        if (isUnwanted(key, value))
            unwanted.emplace_back(bp::borrowed(key));
    // Destroying a module may run code, so it happens after the walk.
    for (const bp::handle<>& name : unwanted)
        if (PyDict_DelItem(dict, name.get()) != 0)
            PyErr_Clear();
}

} // namespace

PluginSearchPath::PluginSearchPath(const QString& entry)
{
    const QByteArray path = entry.toLocal8Bit();
    m_entry = nullable(PyUnicode_DecodeFSDefault(path.constData()));
    if (!m_entry) {
        PyErr_Format(PyExc_UnicodeError, "unable to decode '%s' to unicode", path.constData());
        return;
    }
    PyObject* searchPath = PySys_GetObject("path");
    if (searchPath && PyList_Check(searchPath))
        m_added = PyList_Append(searchPath, m_entry.get()) == 0;
    else
        PyErr_SetString(PyExc_RuntimeError, "sys.path must be a list of directory names");
}

PluginSearchPath::~PluginSearchPath()
{
    if (!m_added)
        return;
    PyObject* searchPath = PySys_GetObject("path");
    const Py_ssize_t index = searchPath ? lastIndex(searchPath, m_entry.get()) : -1;
    PyErr_Clear();
    if (index < 0)
        PyErr_SetString(PyExc_IndexError, "element not found");
    else
        PySequence_DelItem(searchPath, index);
    printPendingError();
}

void forgetModulesOfFolder(const QString& folder, const QString& init)
{
    const FolderPrefix prefix(folder);
    const QByteArray pluginPrefix = init.toUtf8() + '_';
    const ModuleLocation location;
    removeFromDict(PyImport_GetModuleDict(), [&](PyObject* name, PyObject* module) {
        return location.isIn(module, prefix) && !isPluginModule(name, pluginPrefix);
    });
    removeFromDict(PySys_GetObject("path_importer_cache"),
                   [&](PyObject* path, PyObject* /*finder*/) { return prefix.contains(path); });
}

} // namespace python
