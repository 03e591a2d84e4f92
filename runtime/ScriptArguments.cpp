#include "runtime/ScriptArguments.h"

#include "runtime/LateRelease.h"
#include "runtime/TextConversion.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace python {

namespace {

/// sys.path, borrowed; null when a script has made something else of it.
PyObject* searchPath()
{
    PyObject* path = PySys_GetObject("path");
    return path && PyList_Check(path) ? path : nullptr;
}

} // namespace

ScriptArguments::ScriptArguments(const QStringList& arguments, const QString& directory, const QString& file)
{
    const GilLock lock;
    bp::list argv;
    for (const QString& argument : arguments)
        argv.append(unicodeText(argument));
    PySys_SetObject("argv", argv.ptr());
    if (PyObject* path = searchPath(); path && !directory.isNull()) {
        m_directory = Ref::borrow(unicodeText(directory).ptr());
        PyList_Insert(path, 0, m_directory.get());
    }
    PyObject* names = PyModule_GetDict(PyImport_AddModule("__main__"));
    if (file.isEmpty())
        PyDict_DelItemString(names, "__file__");
    else
        PyDict_SetItemString(names, "__file__", unicodeText(file).ptr());
    PyErr_Clear();
}

ScriptArguments::~ScriptArguments()
{
    const LateGilLock lock;
    PyObject* path = m_directory && lock ? searchPath() : nullptr;
    for (Py_ssize_t i = 0; path && i < PyList_GET_SIZE(path); ++i)
        if (PyList_GET_ITEM(path, i) == m_directory.get()) {
            PyList_SetSlice(path, i, i + 1, nullptr);
            break;
        }
    releaseLate(m_directory);
}

} // namespace python
