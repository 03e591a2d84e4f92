#include "runtime/ErrorLocation.h"

#include <frameobject.h>

namespace python {

std::string utf8Of(PyObject* object)
{
    const char* utf8 = object && PyUnicode_Check(object) ? PyUnicode_AsUTF8(object) : nullptr;
    PyErr_Clear();
    return utf8 ? utf8 : std::string();
}

ErrorLocation innermostLocation(PyObject* traceback)
{
    auto* entry = reinterpret_cast<PyTracebackObject*>(traceback);
    if (!entry)
        return {};
    while (entry->tb_next)
        entry = entry->tb_next;
    PyCodeObject* code = PyFrame_GetCode(entry->tb_frame);
    ErrorLocation location{utf8Of(code->co_filename), utf8Of(code->co_name), -1};
    // The field is filled lazily, so it is read as an attribute; the frame itself may have run on since.
    if (PyObject* line = PyObject_GetAttrString(reinterpret_cast<PyObject*>(entry), "tb_lineno")) {
        location.line = PyLong_AsLong(line);
        Py_DECREF(line);
    }
    PyErr_Clear();
    Py_DECREF(code);
    return location;
}

} // namespace python
